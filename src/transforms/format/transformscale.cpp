#include "data/numberreader.h"
#include "data/realwriter.h"
#include "text/cappedlist.h"
#include "transforms/frame/columnedit.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace {

enum ScaleBy { Sum, Maximum, Range };            // the choices of By, in their order
enum ScaleOf { AllValues, EachColumn, EachRow }; // the choices of Of, in their order

/// Numbers that are scaled together.
struct Group
{
    double sum = 0;
    double least = std::numeric_limits<double>::infinity();
    double most = -std::numeric_limits<double>::infinity();

    void add(double number)
    {
        sum += number;
        least = std::fmin(least, number);
        most = std::fmax(most, number);
    }
};

/// The numbers of the selected columns, those of one group, and how they are scaled.
class Scaling
{
public:
    Scaling(const Dataset &input, const QVector<ColumnIndex> &columns, ScaleBy by, ScaleOf of, double from, double to)
        : m_input(input)
        , m_columns(columns)
        , m_by(by)
        , m_of(of)
        , m_offset(by == Range ? from : 0)
        , m_range(by == Range ? to - from : to)
        , m_reader(false, true)
        , m_numbers(columns.size(), QVector<double>(input.rowCount()))
        , m_groups(of == AllValues    ? 1
                   : of == EachColumn ? columns.size()
                                      : input.rowCount())
    {
        for (ColumnIndex column : columns) {
            m_edits.emplace_back(input.column(column));
        }
    }

    /// Reads a row's cells into their groups.
    void readRow(int row)
    {
        for (int i = 0; i < m_columns.size(); ++i) {
            bool ok = false;
            const double number = m_reader.read(source(i, row), &ok);
            // No text reads as a number that is none, so that marks the cells without one.
            m_numbers[i][row] = ok ? number : std::numeric_limits<double>::quiet_NaN();
            if (!ok) {
                note(nonNumeric, "'%1' at column '%2' row %3", i, row);
                continue;
            }
            group(i, row).add(number);
            if (number < 0 && m_by == Sum) {
                note(negative, "'%1' at column '%2' row %3", i, row);
            }
        }
    }

    void writeRow(int row)
    {
        for (int i = 0; i < m_columns.size(); ++i) {
            const double number = m_numbers.at(i).at(row);
            if (std::isnan(number)) {
                put(i, row, QByteArrayLiteral("Error: number expected"));
                continue;
            }
            changed += scale(i, row, number);
        }
    }

    Dataset take()
    {
        Dataset result = m_input;
        for (int i = 0; i < m_columns.size(); ++i) {
            ColumnEdit &edit = m_edits[static_cast<size_t>(i)];
            if (edit.isChanged()) {
                result.setColumn(m_columns.at(i), edit.take());
            }
        }
        return result;
    }

    qint64 changed = 0;
    CappedList nonNumeric;
    CappedList divideByZero;
    CappedList negative;

private:
    const Cell &source(int i, int row) const { return m_edits[static_cast<size_t>(i)].source()[row]; }
    Group &group(int i, int row) { return m_groups[m_of == AllValues ? 0 : m_of == EachColumn ? i : row]; }

    void note(CappedList &examples, const char *form, int i, int row) const
    {
        examples.add([&] {
            return QString::fromLatin1(form).arg(
                source(i, row).text(), m_input.columnName(m_columns.at(i)), QString::number(row + 1));
        });
    }

    /// True when the cell's text changed.
    bool scale(int i, int row, double number)
    {
        const Group &own = group(i, row);
        const double base = m_by == Range ? own.least : 0;
        const double span = m_by == Sum ? own.sum : own.most - base;
        if (span == 0) {
            note(divideByZero, "'%1' divided by 0 at column '%2' row %3", i, row);
            return put(i, row, QByteArrayLiteral("Error: divide by 0"));
        }
        double scaled = (number - base) * m_range / span + m_offset;
        if (!std::isfinite(scaled)) {
            scaled = (number - base) / span * m_range + m_offset;
        }
        // Of a sum or a range too large for a double nothing can be said.
        m_writer.write(std::isfinite(span) ? scaled : span, m_text);
        return put(i, row, m_text);
    }

    template<class Bytes>
    bool put(int i, int row, const Bytes &text)
    {
        ColumnEdit &edit = m_edits[static_cast<size_t>(i)];
        const Cell &before = edit.source()[row];
        if (before.size() == text.size()
            && std::memcmp(before.bytes(), text.constData(), static_cast<size_t>(text.size())) == 0) {
            return false;
        }
        edit.set(row, edit.store(text.constData(), text.size()));
        return true;
    }

    const Dataset &m_input;
    const QVector<ColumnIndex> m_columns;
    const ScaleBy m_by;
    const ScaleOf m_of;
    const double m_offset;
    const double m_range;
    const NumberReader m_reader;
    const RealWriter m_writer;
    QVector<QVector<double>> m_numbers; ///< by column and row
    QVector<Group> m_groups;
    std::vector<ColumnEdit> m_edits;
    TextBuffer m_text;
};

} // namespace

/// Rescales numbers so that their sum, their maximum or both ends of their range reach given values.
class TransformScale final : public Transform
{
public:
    TransformScale()
        : Transform("Scale", "Scale numeric values, e.g. to a percentage or 0 to 1.",
            "normalisation normalization normalise normalize maximum minimum scorings scores feature standardization "
            "rescaling rescale range convert scoring percentages scaling scales")
    {
    }

private:
    OptionTable options() const override
    {
        const QStringList by{QStringLiteral("Sum"), QStringLiteral("Maximum"), QStringLiteral("Minimum & Maximum")};
        return {
            Option::columns("Columns"),
            Option::integer("From", "Scale from ", 0)
                .limits(-2147483647, mostValue)
                .activeWhen("By", {by.at(Range)})
                .tip("The value to scale from (e.g. if set to 0 the minimum value will be scaled to 0)."),
            Option::integer("To", "Scale to ", 100)
                .limits(1, mostValue)
                .tip("The value to scale to (e.g. 100 for a percentage, 1 for 0 to 1)."),
            Option::selection("By", "Using", by)
                .tip(QStringLiteral("Scale so that:\n%1: all values sum to the '%4' value.\n%2: the maximum value "
                                    "scales to the '%4' value.\n%3: the minimum value scales to the '%5' value and "
                                    "the maximum value scales to the '%4' value.")
                         .arg(by.at(Sum), by.at(Maximum), by.at(Range), QStringLiteral("Scale to"),
                             QStringLiteral("Scale from"))),
            Option::selection(
                "Of", "Of", {QStringLiteral("All values"), QStringLiteral("Each column"), QStringLiteral("Each row")})
                .tip("Whether to scale for all values or separately by column or by row."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const QVector<ColumnIndex> columns = values.columns("Columns");
        if (columns.isEmpty()) {
            setResultText(Messages::noChanges());
            return input;
        }
        Scaling scaling(input, columns, values.choiceAs<ScaleBy>("By"), values.choiceAs<ScaleOf>("Of"),
            values.integer("From"), values.integer("To"));
        const int rowCount = input.rowCount();
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount, {0.0, 0.5});
            scaling.readRow(row);
        }
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount, {0.5, 1.0});
            scaling.writeRow(row);
        }
        report(scaling, qint64(rowCount) * columns.size());
        return scaling.take();
    }

    void report(const Scaling &scaling, qint64 cells)
    {
        warnOf(scaling.nonNumeric, "non-numeric");
        warnOf(scaling.divideByZero, "divide by 0");
        warnOf(scaling.negative, "negative");
        const qint64 nonNumeric = scaling.nonNumeric.count();
        if (scaling.changed == 0 && nonNumeric == 0) {
            setResultText(Messages::noChanges());
            return;
        }
        setResultText(QStringLiteral("%1 changed, %2 unchanged, %3 non-numeric")
                          .arg(Messages::count(scaling.changed), Messages::count(cells - scaling.changed - nonNumeric),
                              Messages::count(nonNumeric)));
    }

    void warnOf(const CappedList &examples, const char *fault)
    {
        if (examples.count() == 0) {
            return;
        }
        const QString heading = QStringLiteral("%1 %2 %3:")
                                    .arg(Messages::count(examples.count()), QLatin1String(fault),
                                        Messages::word(examples.count(), "value", "values"));
        addWarning((QStringList{heading} + examples.lines()).join(QLatin1Char('\n')));
    }

    static constexpr int mostValue = 999999999;
};

TRANSFORM_FACTORY(TransformScale)
