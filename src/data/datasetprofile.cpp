#include "data/columnprofile.h"
#include "data/dataset.h"
#include "data/values.h"

// What a person is told about columns

namespace {

void chooseDateFormat(
    ColumnProfile &profile, const Dataset &dataset, ColumnIndex column, const QStringList &dateFormats)
{
    if (!dateFormats.isEmpty()) {
        dataset.isColumnDate(column, dateFormats, &profile.m_dateFormat);
    }
}

} // namespace

void Dataset::columnProfile(
    ColumnProfile &profile, ColumnIndex column, const QStringList &dateFormats, bool withNumbers) const
{
    profile = ColumnProfile();
    profile.m_values = ValueFrequencies(this->column(column));
    chooseDateFormat(profile, *this, column, dateFormats);
    fillColumnProfile(profile, this->column(column), withNumbers);
}

void Dataset::columnProfile(ColumnProfile &profile, ColumnIndex column, const QVector<int> &rows,
    const QStringList &dateFormats, bool withNumbers) const
{
    profile = ColumnProfile();
    profile.m_values = ValueFrequencies(this->column(column), rows);
    chooseDateFormat(profile, *this, column, dateFormats);
    fillColumnProfile(profile, this->column(column), withNumbers);
}

QStringList Dataset::columnPreviews(int rowLimit, int textLimit) const
{
    QStringList previews;
    for (const CellColumn &column : m_columns) {
        QStringList texts;
        for (int row = 0; row < qMin(rowLimit, m_rowCount); ++row) {
            texts.append(ellipsized(column.at(row).text(), textLimit));
        }
        if (m_rowCount > rowLimit) {
            texts.append(QString(QChar(0x2026)));
        }
        if (m_rowCount == 0) {
            texts.append(QStringLiteral("No values"));
        }
        previews.append(QStringLiteral("( %1 )").arg(texts.join(QStringLiteral(", "))));
    }
    return previews;
}
