#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/merge/inputorder.h"
#include "transforms/options/option.h"

#include <climits>

/// Makes every combination of the rows of its inputs; the last input changes fastest.
class TransformCross final : public Transform
{
public:
    TransformCross()
        : Transform("Cross", "Create every combination of rows in each input dataset.", "products cartesian cross")
    {
    }

    QString imageName() const override { return QStringLiteral("cross.png"); }
    bool updateInputOrder(const QList<DataSource *> &inputs) override { return m_order.update(inputs); }

    Dataset run(const QList<DataSource *> &inputs, bool *hasIssues) override
    {
        m_order.remember(inputs);
        return Transform::run(inputs, hasIssues);
    }

protected:
    OptionTable options() const override { return {}; }

    Dataset compute(const OptionValues &, const Inputs &inputs) override
    {
        qint64 rowCount = 1;
        qint64 columnCount = 0;
        for (const Dataset *input : inputs) {
            columnCount += input->columnCount();
            rowCount *= input->rowCount();
            if (!TableSize::isPossible(rowCount, qMax<qint64>(1, columnCount))) {
                addWarning(TableSize::warning(rowCount, columnCount));
                setResultText(QStringLiteral("Too many rows"));
                return Dataset();
            }
        }
        const Dataset result = crossed(inputs, static_cast<int>(rowCount));
        setResultText(rowCount == 0 ? Messages::noChanges()
                                    : QStringLiteral("Crossed %1 inputs").arg(Messages::count(inputs.size())));
        return result;
    }

private:
    Dataset crossed(const Inputs &inputs, int rowCount)
    {
        Dataset result;
        QStringList names;
        bool hasHeader = false;
        int block = rowCount; // how many rows of the result one row of the input fills in a row
        for (int k = 0; k < inputs.size(); ++k) {
            const Dataset &input = *inputs.at(k);
            emit processed(static_cast<qreal>(k) / inputs.size());
            block = input.rowCount() == 0 ? 0 : block / input.rowCount();
            const QVector<int> rows = rowsOf(input.rowCount(), block, rowCount);
            for (int column = 0; column < input.columnCount(); ++column) {
                const ColumnIndex at(column);
                result.appendColumn(input.column(at).gathered(rows), QString(), input.columnId(at));
            }
            names += input.columnNames();
            hasHeader |= input.hasHeader();
        }
        if (hasHeader) {
            result.setHeader(names);
        }
        result.clearDuplicateColumnIds();
        return result;
    }

    QVector<int> rowsOf(int inputRows, int block, int rowCount)
    {
        QVector<int> rows(rowCount);
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            rows[row] = row / block % inputRows;
        }
        return rows;
    }

    InputOrder m_order;
};

TRANSFORM_FACTORY(TransformCross)
