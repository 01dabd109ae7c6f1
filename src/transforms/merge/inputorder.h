#pragma once

#include "data/datasource.h"

#include <QVector>

/// Remembers in which order a transform without key columns last saw its inputs, so that moving one can be noticed.
class InputOrder
{
public:
    /// The order that a run uses.
    void remember(const QList<DataSource *> &inputs) { m_ids = idsOf(inputs); }
    /// Takes the new order; true when it differs from that of the last run.
    bool update(const QList<DataSource *> &inputs)
    {
        const QVector<int> ids = idsOf(inputs);
        const bool changed = !m_ids.isEmpty() && ids != m_ids;
        m_ids = ids;
        return changed;
    }

private:
    static QVector<int> idsOf(const QList<DataSource *> &inputs)
    {
        QVector<int> ids;
        for (const DataSource *input : inputs) {
            ids.append(input->id());
        }
        return ids;
    }

    QVector<int> m_ids;
};
