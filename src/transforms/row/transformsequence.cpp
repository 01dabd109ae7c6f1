#include "data/columnbuilder.h"
#include "data/dateparser.h"
#include "data/datewriter.h"
#include "data/numberreader.h"
#include "data/rowsorter.h"
#include "data/values.h"
#include "text/cappedlist.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/row/missingvalues.h"

/// Adds a row for each whole number or day that a column lacks between two bounds, and sorts the rows by it.
class TransformSequence final : public Transform
{
    enum How { Integers, Dates };                           // the choices of How_Name
    enum Bound { FromData, UserDefined };                   // of the two _type options
    enum Order { Ascending, Descending };                   // of Order
    enum As { Blank, CopyAbove, CopyBelow, UserDefinedAs }; // of As_Name

    static constexpr double share = 0.3; ///< of the progress, for reading and for making rows
    static constexpr int blankRow = -1;

public:
    TransformSequence()
        : Transform(
            "Sequence", "Add missing rows from a sequence.", "fill infill range completion complete sequence missing")
    {
    }

private:
    OptionTable options() const override
    {
        OptionTable table{
            Option::selection("How_Name", "Rows added", {"Missing integers", "Missing dates"})
                .tip("Whether to add missing rows to an integer or date sequence."),
            Option::column("Col_Name", "From column").tip("Select the column to create the sequence from."),
        };
        addBound(table, "Minimum", "minimum");
        addBound(table, "Maximum", "maximum");
        table.append(Option::selection("Order", "Order", {"Ascending", "Descending"})
                         .tip("The order to sort results using the selected column."));
        table.append(Option::selection(
            "As_Name", "New values", {"Blank", "Copy from above", "Copy from below", "User defined"}));
        table.append(Option::text("User_Defined_Row_Value", "With value")
                         .activeWhen("As_Name", {"User defined"})
                         .tip("The user defined value for new values."));
        return table;
    }

    static void addBound(OptionTable &table, const QString &bound, const QString &word)
    {
        constexpr int most = 999999999;
        const QString type = bound + "_Missing_type";
        const QString key = "User_Define_" + bound + "_Missing_";
        const QString tip = QStringLiteral("The user defined %1 value for missing rows to add.").arg(word);
        table.append(Option::selection(type, bound, {"From data", "User defined"})
                         .tip(QStringLiteral("How to set the %1 value for missing rows to add.").arg(word)));
        table.append(Option::integer(key + "Int", bound + " value")
                         .limits(-most, most)
                         .activeWhen("How_Name", {"Missing integers"})
                         .activeWhen(type, {"User defined"})
                         .tip(tip));
        table.append(Option::date(key + "Date", bound + " value", QDate::currentDate())
                         .activeWhen("How_Name", {"Missing dates"})
                         .activeWhen(type, {"User defined"})
                         .tip(tip));
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const bool dates = values.choice("How_Name") == Dates;
        const ColumnIndex column = values.column("Col_Name");
        setResultText(Messages::noChanges());
        if (!column.isValid()) {
            addWarning(QStringLiteral("Set '%1' to the column containing missing %2 values")
                           .arg(QStringLiteral("From column"), QLatin1String(dates ? "date" : "integer")));
            return input;
        }
        QString format;
        if (dates && !input.isColumnDate(column, dateFormats(), &format)) {
            addWarning(QStringLiteral("Can't establish date format for values in the '%1' column")
                           .arg(input.columnName(column)));
            return input;
        }
        MissingValues missing(bound(values, "Minimum", dates), bound(values, "Maximum", dates));
        readValues(input.column(column), dates, format, missing);
        return isPossible(missing, dates, input) ? completed(values, input, column, format, missing.list()) : input;
    }

    static std::optional<qint64> bound(const OptionValues &values, const QString &name, bool dates)
    {
        if (values.choice(name + "_Missing_type") == FromData) {
            return std::nullopt;
        }
        const QString key = "User_Define_" + name + "_Missing_";
        if (!dates) {
            return values.integer(key + "Int");
        }
        const QDate date = values.date(key + "Date");
        return date.isValid() ? std::make_optional(date.toJulianDay()) : std::nullopt;
    }

    void readValues(const CellColumn &column, bool dates, const QString &format, MissingValues &missing)
    {
        const NumberReader reader(false, false);
        const DateParser parser(format);
        CappedList invalid;
        const QString type = QLatin1String(dates ? "date" : "integer");
        for (int row = 0; row < column.size(); ++row) {
            reportRow(row, column.size(), {0.0, share});
            const Cell &cell = column.at(row);
            bool ok = false;
            qint64 value = 0;
            if (dates) {
                const QDate date = parser.parse(cell);
                ok = date.isValid();
                value = date.toJulianDay();
            } else {
                value = reader.readLongLong(cell, &ok);
            }
            if (ok) {
                missing.addPresent(value);
            } else {
                invalid.add([&] {
                    return QStringLiteral("'%1' at row %2 in the input dataset is not a valid %3 value.")
                        .arg(cell.text(), QString::number(row + 1), type);
                });
            }
        }
        if (invalid.count() > 0) {
            addWarning(QStringLiteral("%1 invalid row values").arg(Messages::count(invalid.count())));
            warningList() += invalid.lines("other", "other");
        }
    }

    bool isPossible(MissingValues &missing, bool dates, const Dataset &input)
    {
        if (!missing.hasBounds()) {
            addWarning(QStringLiteral("Can't establish minimum and/or maximum for sequence"));
            return false;
        }
        if (missing.maximum() < missing.minimum()) {
            addWarning(dates ? QStringLiteral("Maximum value must not be before minimum value")
                             : QStringLiteral("Maximum value must not be less than minimum value"));
            return false;
        }
        constexpr quint64 mostCounted = 1ULL << 62;
        const qint64 rows = static_cast<qint64>(qMin(missing.count(), mostCounted)) + input.rowCount();
        if (!TableSize::isPossible(rows, input.columnCount())) {
            addWarning(TableSize::warning(rows, input.columnCount()));
            setResultText(TableSize::resultText());
            return false;
        }
        return true;
    }

    /// The input with the missing values in rows of their own, sorted.
    Dataset completed(const OptionValues &values, const Dataset &input, ColumnIndex column, const QString &format,
        const std::vector<qint64> &missing)
    {
        const bool descending = values.choice("Order") == Descending;
        const CellColumn keys = withMissing(input.column(column), missing, format);
        std::vector<RowSortKey> sortKeys;
        sortKeys.emplace_back(keys, format.isEmpty() ? RowSortKey::Number : RowSortKey::Date, format,
            RowSortKey::TextRules(), descending);
        const QVector<int> order = RowSorter(sortKeys).sorted();
        const int as = values.choice("As_Name");
        Dataset result = input.withRows(sources(order, input.rowCount(), as));
        if (as == UserDefinedAs) {
            setNewCells(result, column, order, input.rowCount(), values.text("User_Defined_Row_Value"));
        }
        result.setColumn(column, keys.gathered(order));
        if (!missing.empty()) {
            const auto count = static_cast<qint64>(missing.size());
            setResultText(QStringLiteral("%1 new %2 added").arg(Messages::count(count), Messages::rows(count)));
        }
        return result;
    }

    /// The column with the missing values as texts behind its own cells.
    CellColumn withMissing(const CellColumn &column, const std::vector<qint64> &missing, const QString &format)
    {
        ColumnBuilder texts(static_cast<int>(missing.size()));
        const DateWriter writer(format);
        TextBuffer buffer;
        for (size_t i = 0; i < missing.size(); ++i) {
            reportRow(static_cast<int>(i), static_cast<int>(missing.size()), {share, 2 * share});
            if (format.isEmpty()) {
                const QByteArray digits = QByteArray::number(missing[i]);
                texts.append(digits.constData(), digits.size());
            } else {
                writer.write(QDate::fromJulianDay(missing[i]), buffer);
                texts.append(buffer);
            }
        }
        const CellColumn added = texts.take();
        CellColumn all = column;
        all.keepAllOf(added);
        all.cells.reserve(column.size() + added.size());
        for (int i = 0; i < added.size(); ++i) {
            all.cells.append(added.at(i));
        }
        return all;
    }

    /// The row of the input that each row shows: its own or, in new rows, that of the nearest one to be copied.
    static QVector<int> sources(const QVector<int> &order, int inputRows, int as)
    {
        QVector<int> rows = order;
        const bool fromBelow = as == CopyBelow;
        int nearest = blankRow;
        for (int i = 0; i < rows.size(); ++i) {
            int &row = rows[fromBelow ? rows.size() - 1 - i : i];
            if (row < inputRows) {
                nearest = as == CopyAbove || as == CopyBelow ? row : blankRow;
            } else {
                row = nearest;
            }
        }
        return rows;
    }

    static void setNewCells(
        Dataset &result, ColumnIndex except, const QVector<int> &order, int inputRows, const QString &text)
    {
        const TextArenaPointer arena(new TextArena);
        const Cell value = arena->store(text);
        for (ColumnIndex at : result.allColumns()) {
            if (at == except) {
                continue;
            }
            CellColumn column = result.column(at);
            column.keep(arena);
            Cell *cells = column.cells.data();
            for (int row = 0; row < order.size(); ++row) {
                if (order.at(row) >= inputRows) {
                    cells[row] = value;
                }
            }
            result.setColumn(at, column);
        }
    }
};

TRANSFORM_FACTORY(TransformSequence)
