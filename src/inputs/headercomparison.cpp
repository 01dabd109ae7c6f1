#include "inputs/headercomparison.h"

#include "data/values.h"

namespace {

/// Differences of one kind, of which only the first few are told.
class LimitedLines
{
public:
    bool isFull() const { return m_lines.size() == limit; }
    /// `line` is not looked at when the limit is reached.
    template<class Line>
    void add(Line line)
    {
        if (isFull()) {
            ++m_others;
        } else {
            m_lines.append(line());
        }
    }
    QStringList lines() const
    {
        if (m_others == 0) {
            return m_lines;
        }
        const QString word = m_others == 1 ? QStringLiteral("other") : QStringLiteral("others");
        return m_lines + QStringList(QStringLiteral("  + %1 %2").arg(formatInteger(m_others, true), word));
    }

private:
    static constexpr int limit = 5;
    QStringList m_lines;
    int m_others = 0;
};

} // namespace

QString headerMismatch(const QString &itemName, const QStringList &firstNames, const QStringList &itemNames)
{
    LimitedLines missing;
    LimitedLines different;
    LimitedLines extra;
    for (int i = 0; i < qMax(firstNames.size(), itemNames.size()); ++i) {
        const QString position = QString::number(i + 1);
        if (i >= itemNames.size()) {
            missing.add([&] { return QStringLiteral("  Missing column %1: '%2'").arg(position, firstNames.at(i)); });
        } else if (i >= firstNames.size()) {
            extra.add([&] { return QStringLiteral("  Extra column %1: '%2'").arg(position, itemNames.at(i)); });
        } else if (firstNames.at(i) != itemNames.at(i)) {
            different.add([&] {
                return QStringLiteral("  Column name difference at column %1: '%2' -> '%3'")
                    .arg(position, firstNames.at(i), itemNames.at(i));
            });
        }
    }
    const QStringList lines = missing.lines() + different.lines() + extra.lines();
    if (lines.isEmpty()) {
        return QString();
    }
    return QStringLiteral("'%1' header mismatch:\n").arg(itemName) + lines.join(QLatin1Char('\n'));
}
