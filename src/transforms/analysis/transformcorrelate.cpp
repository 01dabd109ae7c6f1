#include "data/columnbuilder.h"
#include "data/numberreader.h"
#include "data/values.h"
#include "text/cappedlist.h"
#include "transforms/analysis/correlation.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <QSet>
#include <limits>

/// Makes a table of the correlations between columns.
class TransformCorrelate final : public Transform
{
public:
    TransformCorrelate()
        : Transform("Correlate", "Calculate the correlation of 2 or more pairs of columns.",
            "covariances squared rsquared correlations pearson correlates")
    {
    }

private:
    OptionTable options() const override { return {Option::columns("Columns")}; }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const QVector<ColumnIndex> columns = values.columns("Columns");
        setResultText(Messages::noChanges());
        if (columns.size() < 2) {
            addWarning(QStringLiteral("Expected at least 2 columns to be selected"));
            return Dataset();
        }
        if (!input.hasRows()) {
            addWarning(QStringLiteral("No data"));
            return Dataset();
        }
        const qint64 cellCount = static_cast<qint64>(columns.size()) * columns.size();
        if (!TableSize::isPossibleText(cellCount, bytesPerCoefficient)) {
            addWarning(TableSize::warning(columns.size(), columns.size() + 1));
            setResultText(TableSize::resultText());
            return Dataset();
        }
        QStringList names;
        for (const ColumnIndex column : columns) {
            names.append(input.columnName(column));
        }
        m_faults = CappedList();
        m_constants.clear();
        const QVector<QStringList> texts = correlated(numbersOf(input, columns, names), names);
        warningList() += m_faults.lines();
        Dataset result;
        result.addNamedColumn(columnOf(names), QStringLiteral("Correlation"));
        for (int i = 0; i < texts.size(); ++i) {
            result.addNamedColumn(columnOf(texts.at(i)), names.at(i));
        }
        setResultText(QStringLiteral("Correlation table created"));
        return result;
    }

    /// What a cell of the result takes while the table is made.
    static constexpr qint64 bytesPerCoefficient = 72;

    static CellColumn columnOf(const QStringList &texts)
    {
        ColumnBuilder column(texts.size());
        for (const QString &text : texts) {
            column.append(text);
        }
        return column.take();
    }

    /// The numbers of each column on a common scale, NaN for a cell that has none.
    std::vector<std::vector<double>> numbersOf(
        const Dataset &input, const QVector<ColumnIndex> &columns, const QStringList &names)
    {
        const NumberReader reader(false, true);
        CappedList failures;
        std::vector<std::vector<double>> numbers;
        for (int i = 0; i < columns.size(); ++i) {
            const CellColumn &cells = input.column(columns.at(i));
            std::vector<double> read;
            read.reserve(static_cast<size_t>(cells.size()));
            for (int row = 0; row < cells.size(); ++row) {
                bool ok = false;
                const double number = reader.read(cells.at(row), &ok);
                read.push_back(ok ? number : std::numeric_limits<double>::quiet_NaN());
                if (!ok) {
                    failures.add([&] {
                        return QStringLiteral("'%1' is not a numerical value in column '%2' row %3")
                            .arg(cells.at(row).text(), names.at(i), QString::number(row + 1));
                    });
                }
            }
            Correlation::scale(read);
            numbers.push_back(std::move(read));
        }
        warningList() += failures.lines();
        return numbers;
    }

    /// A list of cells for each column.
    QVector<QStringList> correlated(const std::vector<std::vector<double>> &numbers, const QStringList &names)
    {
        const int count = names.size();
        const qint64 pairCount = static_cast<qint64>(count) * (count - 1) / 2;
        QVector<QStringList> texts(count);
        for (QStringList &list : texts) {
            for (int i = 0; i < count; ++i) {
                list.append(QStringLiteral("1"));
            }
        }
        qint64 done = 0;
        for (int i = 0; i < count; ++i) {
            for (int j = i + 1; j < count; ++j) {
                const Correlation pair = Correlation::of(
                    numbers[static_cast<size_t>(i)], numbers[static_cast<size_t>(j)]);
                texts[i][j] = texts[j][i] = pairText(pair, names.at(i), names.at(j));
                emit processed(static_cast<qreal>(++done) / static_cast<qreal>(pairCount));
            }
        }
        return texts;
    }

    QString pairText(const Correlation &pair, const QString &x, const QString &y)
    {
        if (pair.pairCount() == 0) {
            m_faults.add(QStringLiteral("No valid pairs of values for columns '%1' and '%2'").arg(x, y));
            return QString();
        }
        if (pair.isConstantX()) {
            warnOfConstant(x);
        }
        if (pair.isConstantY()) {
            warnOfConstant(y);
        }
        return pair.isConstantX() || pair.isConstantY() ? QString() : formatReal(pair.coefficient(), false, -1, true);
    }

    /// Says so once for a column, however many pairs it is in.
    void warnOfConstant(const QString &name)
    {
        if (!m_constants.contains(name)) {
            m_constants.insert(name);
            m_faults.add(QStringLiteral("Standard deviation for '%1' is 0, causing divided by 0").arg(name));
        }
    }

    // Of one run
    CappedList m_faults;
    QSet<QString> m_constants;
};

TRANSFORM_FACTORY(TransformCorrelate)
