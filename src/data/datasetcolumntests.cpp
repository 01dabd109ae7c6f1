#include "data/dataset.h"
#include "data/dateparser.h"
#include "data/numberreader.h"
#include "data/values.h"

namespace {

constexpr int sampledRows = 100;

enum Verdict { Counts, PassedOver, Refused };

/// True when no value among the first `maxRows` is refused and at least one counts.
template<class Judge>
bool holdsForSample(const CellVector &cells, int maxRows, Judge judge)
{
    bool found = false;
    const int rows = qMin(maxRows, cells.size());
    for (int row = 0; row < rows; ++row) {
        const Verdict verdict = cells.at(row).isEmpty() ? PassedOver : judge(cells.at(row));
        if (verdict == Refused) {
            return false;
        }
        found = found || verdict == Counts;
    }
    return found;
}

Verdict countsWhen(bool holds)
{
    return holds ? Counts : Refused;
}

QVector<Cell> firstValues(const CellVector &cells, int count)
{
    QVector<Cell> values;
    for (int row = 0; row < cells.size() && values.size() < count; ++row) {
        if (!cells.at(row).isEmpty()) {
            values.append(cells.at(row));
        }
    }
    return values;
}

} // namespace

bool Dataset::isColumnNumeric(ColumnIndex column, bool ignoreCurrency, int maxRows) const
{
    const NumberReader reader(false, ignoreCurrency);
    return holdsForSample(m_columns.at(column.toInt()).cells, maxRows, [&](const Cell &cell) {
        bool ok = false;
        reader.read(cell, &ok);
        if (ok) {
            return Counts;
        }
        const QString text = cell.text().trimmed();
        const bool ignored = text.isEmpty() || text.compare(QLatin1String("nan"), Qt::CaseInsensitive) == 0;
        return ignored ? PassedOver : Refused;
    });
}

bool Dataset::isColumnBoolean(ColumnIndex column) const
{
    return holdsForSample(m_columns.at(column.toInt()).cells, sampledRows, [](const Cell &cell) {
        bool ok = false;
        parseBoolean(cell.text(), false, false, &ok);
        return countsWhen(ok);
    });
}

bool Dataset::isColumnTime(ColumnIndex column) const
{
    return holdsForSample(m_columns.at(column.toInt()).cells, sampledRows,
        [](const Cell &cell) { return countsWhen(parseTime(cell.text()).isValid()); });
}

bool Dataset::isColumnJsonNumber(ColumnIndex column) const
{
    return holdsForSample(m_columns.at(column.toInt()).cells, sampledRows, [](const Cell &cell) {
        const QString text = cell.text().trimmed();
        return text.isEmpty() ? PassedOver : countsWhen(isJsonNumber(text));
    });
}

bool Dataset::isColumnDate(ColumnIndex column, const QStringList &formats, QString *matchedFormat, int sampleSize) const
{
    const QVector<Cell> values = firstValues(m_columns.at(column.toInt()).cells, sampleSize);
    int best = 0;
    for (const QString &format : formats) {
        int count = 0;
        for (const Cell &value : values) {
            count += parseDate(value.text(), format).isValid() ? 1 : 0;
        }
        if (count > best) {
            best = count;
            if (matchedFormat) {
                *matchedFormat = format;
            }
        }
        if (best == values.size()) {
            break;
        }
    }
    return best > 0 && best == values.size();
}

Dataset::ColumnType Dataset::columnType(
    ColumnIndex column, const QStringList &formats, QString *matchedFormat, bool ignoreCurrency) const
{
    if (isColumnNumeric(column, ignoreCurrency, sampledRows)) {
        return Numeric;
    }
    if (isColumnBoolean(column)) {
        return Boolean;
    }
    if (isColumnTime(column)) {
        return Time;
    }
    return isColumnDate(column, formats, matchedFormat) ? Date : Text;
}
