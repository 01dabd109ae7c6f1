#include "document/missingtransforms.h"

#include "data/values.h"
#include <QStringList>

namespace {

/// The transform that took the place of a deprecated one; empty for others.
QString successor(const QString &name)
{
    static const QMap<QString, QString> successors{{QStringLiteral("Replace"), QStringLiteral("Replace")},
        {QStringLiteral("Trim"), QStringLiteral("Whitespace")}, {QStringLiteral("Rename"), QStringLiteral("Rename")}};
    return successors.value(name);
}

QString block(const QString &heading, const QMap<QString, int> &counts)
{
    QStringList lines{heading};
    for (auto it = counts.constBegin(); it != counts.constEnd(); ++it) {
        const QString occurrences = it.value() == 1 ? QStringLiteral("occurrence") : QStringLiteral("occurrences");
        QString line = QStringLiteral("'%1' (%2 %3)").arg(it.key(), formatInteger(it.value(), true), occurrences);
        const QString newer = successor(it.key());
        if (!newer.isEmpty()) {
            line += QStringLiteral(" - use the newer '%1' transform.").arg(newer);
        }
        lines.append(line);
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

void MissingTransforms::add(const QString &name)
{
    ++(successor(name).isEmpty() ? m_unknown : m_deprecated)[name];
}

QString MissingTransforms::message() const
{
    QStringList blocks;
    if (!m_deprecated.isEmpty()) {
        blocks.append(block(QStringLiteral("The following deprecated transforms were not added:"), m_deprecated));
    }
    if (!m_unknown.isEmpty()) {
        blocks.append(block(QStringLiteral("The following unknown transforms were not added:"), m_unknown));
    }
    return blocks.join(QStringLiteral("\n\n"));
}
