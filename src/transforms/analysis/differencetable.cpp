#include "transforms/analysis/differencetable.h"

#include "transforms/frame/messages.h"

namespace {

QString orNone(const QString &text)
{
    return text.isNull() ? QStringLiteral("N/A") : text;
}

QString rowText(int row)
{
    return row < 0 ? QString() : QString::number(row + 1);
}

} // namespace

DifferenceTable::DifferenceTable(bool hasKey, int limit)
    : m_hasKey(hasKey)
    , m_limit(limit)
{
    QStringList names{QStringLiteral("Change"), QStringLiteral("Column")};
    if (hasKey) {
        names.append(QStringLiteral("Key"));
    }
    names += {QStringLiteral("Top row"), QStringLiteral("Bottom row"), QStringLiteral("Top value"),
        QStringLiteral("Bottom value")};
    m_dataset.setColumnCount(names.size());
    m_dataset.setHeader(names);
}

bool DifferenceTable::add(const Difference &difference)
{
    if (m_full) {
        return false;
    }
    QStringList row{difference.change, orNone(difference.column)};
    if (m_hasKey) {
        row.append(orNone(difference.key));
    }
    row += {orNone(rowText(difference.topRow)), orNone(rowText(difference.bottomRow)), orNone(difference.topValue),
        orNone(difference.bottomValue)};
    m_dataset.appendRow(row);
    if (++m_count >= m_limit) {
        m_full = true;
        m_dataset.appendRow({QStringLiteral("Stopped after %1 difference(s)").arg(Messages::count(m_count))});
        for (int column = 1; column < m_dataset.columnCount(); ++column) {
            m_dataset.setValue(m_dataset.lastRow(), ColumnIndex(column), orNone(QString()));
        }
    }
    return !m_full;
}
