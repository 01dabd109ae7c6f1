#pragma once

#include "transforms/frame/transform.h"

#include <vector>

/// What the frames have in common that rewrite each of the selected columns on its own.
class ColumnwiseTransform : public Transform
{
protected:
    using Transform::Transform;

    /// Lets each worker process its column, and puts those that changed into `result`. A block of rows at a time, so
    /// that progress tells of whole rows while each column is walked on its own.
    template<class Worker>
    void processColumns(std::vector<Worker> &workers, const QVector<ColumnIndex> &columns, Dataset &result)
    {
        const int rowCount = result.rowCount();
        for (int row = 0; row < rowCount; row += progressStep) {
            reportRow(row, rowCount);
            for (Worker &worker : workers) {
                worker.process(row, qMin(row + progressStep, rowCount));
            }
        }
        for (size_t i = 0; i < workers.size(); ++i) {
            if (workers[i].isChanged()) {
                result.setColumn(columns.at(static_cast<int>(i)), workers[i].take());
            }
        }
    }
};
