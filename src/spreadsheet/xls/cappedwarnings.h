#pragma once

#include <QStringList>

namespace spreadsheet {

/// Warnings of one kind, of which only the first few are told.
class CappedWarnings
{
public:
    /// Whether the next one is among those that are told, so that others need no text.
    bool isNextTold() const { return m_told.size() < most; }
    void add(const QString &warning)
    {
        if (isNextTold()) {
            m_told.append(warning);
        } else {
            ++m_others;
        }
    }
    /// Those told, and how many others there were.
    void appendTo(QStringList *warnings) const
    {
        warnings->append(m_told);
        if (m_others > 0) {
            const QString word = m_others == 1 ? QStringLiteral("other") : QStringLiteral("others");
            warnings->append(QStringLiteral("+ %1 %2").arg(m_others).arg(word));
        }
    }

private:
    static constexpr int most = 5;
    QStringList m_told;
    int m_others = 0;
};

} // namespace spreadsheet
