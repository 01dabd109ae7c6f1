#include "outputs/multifilesummary.h"

#include "data/values.h"
#include "outputs/outputenums.h"

namespace {

QString existingFormat(int writeMode)
{
    switch (writeMode) {
    case WriteMode::Append:
        return QStringLiteral("%1 existing %2 to be appended to:\n%3\n");
    case WriteMode::New:
        return QStringLiteral("%1 existing %2 will not be overwritten:\n%3\n");
    default:
        return QStringLiteral("%1 existing %2 to be overwritten:\n%3\n");
    }
}

} // namespace

MultiFileSummary MultiFileSummary::of(const QStringList &existing, QStringList created, int writeMode, bool isExcel)
{
    const QString word = isExcel ? QStringLiteral("file(s)/sheets(s)") : QStringLiteral("file(s)");
    MultiFileSummary summary;
    const auto startPart = [&summary] {
        if (!summary.text.isEmpty()) {
            summary.text += QLatin1Char('\n');
        }
    };
    const auto addList = [&](const QString &format, const QStringList &targets) {
        if (!targets.isEmpty()) {
            startPart();
            summary.text += format.arg(formatInteger(targets.size(), true), word, targets.join(QLatin1Char('\n')));
        }
    };
    addList(existingFormat(writeMode), existing);
    created.sort();
    addList(QStringLiteral("%1 new %2 to be created:\n%3\n"), created);
    startPart();
    summary.count = created.size() + (writeMode == WriteMode::New ? 0 : existing.size());
    summary.text += QStringLiteral("%1 %2 will be written").arg(formatInteger(summary.count, true), word);
    return summary;
}
