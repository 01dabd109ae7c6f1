#include "charts/chartvalues.h"

#include "data/dateparser.h"
#include "data/numberreader.h"
#include "data/values.h"
#include "text/cappedlist.h"

#include <QDateTime>
#include <QHash>
#include <cmath>
#include <limits>

namespace {

constexpr double missing = std::numeric_limits<double>::quiet_NaN();
/// The span between two larger numbers could not be held by a double.
constexpr double largest = 1e300;

/// Reads a column as numbers and lists what doesn't read.
QVector<double> readNumbers(const Dataset &data, ColumnIndex column, bool isLogarithmic, QStringList &warnings)
{
    const NumberReader reader(false, true);
    const QString name = data.columnName(column);
    QVector<double> values(data.rowCount(), missing);
    CappedList bad;
    for (int row = 0; row < data.rowCount(); ++row) {
        const Cell &cell = data.cell(RowIndex(row), column);
        bool ok = false;
        const double value = reader.read(cell, &ok);
        if (!ok || !(std::fabs(value) <= largest)) {
            bad.add([&] {
                return QStringLiteral("'%1' is not a valid number in column '%2' at row %3")
                    .arg(cell.text(), name, QString::number(row + 1));
            });
        } else if (isLogarithmic && value <= 0.0) {
            bad.add([&] {
                return QStringLiteral("'%1' is not a valid number for a logarithmic axis in column '%2' at row %3 "
                                      "(must be > 0)")
                    .arg(cell.text(), name, QString::number(row + 1));
            });
        } else {
            values[row] = value;
        }
    }
    warnings += bad.lines();
    return values;
}

double noonOf(const QDate &date)
{
    return static_cast<double>(QDateTime(date, QTime(12, 0)).toMSecsSinceEpoch());
}

} // namespace

ChartXValues ChartValues::texts(const Dataset &data, ColumnIndex column)
{
    ChartXValues x;
    QHash<QString, int> places;
    x.values.reserve(data.rowCount());
    for (int row = 0; row < data.rowCount(); ++row) {
        QString text = data.value(RowIndex(row), column);
        if (text.isEmpty()) {
            text = QStringLiteral("(empty)");
        }
        auto place = places.find(text);
        if (place == places.end()) {
            place = places.insert(text, x.texts.size());
            x.texts.append(text);
            x.counts.append(0);
        }
        ++x.counts[*place];
        x.values.append(*place);
    }
    return x;
}

ChartXValues ChartValues::numbers(const Dataset &data, ColumnIndex column, bool isLogarithmic)
{
    ChartXValues x;
    x.values = readNumbers(data, column, isLogarithmic, x.warnings);
    return x;
}

ChartXValues ChartValues::dates(const Dataset &data, ColumnIndex column)
{
    ChartXValues x;
    x.values.fill(missing, data.rowCount());
    const QString name = data.columnName(column);
    const bool allRead = data.isColumnDate(column, dateFormats(), &x.dateFormat, Dataset::dateSample);
    if (x.dateFormat.isEmpty()) {
        x.warnings.append(QStringLiteral("Could not infer a date format for column '%1'").arg(name));
        return x;
    }
    x.infos.append(QStringLiteral("'%1' inferred as date format for column '%2'").arg(x.dateFormat, name));
    const DateParser parser(x.dateFormat);
    CappedList bad;
    for (int row = 0; row < data.rowCount(); ++row) {
        const Cell &cell = data.cell(RowIndex(row), column);
        const QDate date = parser.parse(cell);
        if (date.isValid()) {
            x.values[row] = noonOf(date);
        } else {
            bad.add([&] {
                return QStringLiteral("'%1' is not a valid date in column '%2' at row %3")
                    .arg(cell.text(), name, QString::number(row + 1));
            });
        }
    }
    if (!allRead || !bad.isEmpty()) {
        x.warnings.append(QStringLiteral("Some values in column '%1' are not recognized as dates").arg(name));
    }
    x.warnings += bad.lines();
    return x;
}

ChartYValues ChartValues::yNumbers(const Dataset &data, ColumnIndex column, bool isLogarithmic)
{
    ChartYValues y;
    y.values = readNumbers(data, column, isLogarithmic, y.warnings);
    for (const double value : qAsConst(y.values)) {
        y.validCount += std::isfinite(value) ? 1 : 0;
        y.negativeCount += value < 0.0 ? 1 : 0;
    }
    return y;
}
