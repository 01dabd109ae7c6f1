#pragma once

#include "data/dataset.h"
#include "data/datasource.h"

/// An item upstream that is nothing but its table.
class FakeSource final : public DataSource
{
public:
    /// Columns without an id get (id, 1), (id, 2) and so on.
    explicit FakeSource(const Dataset &dataset, int id = 1);

    int id() const override { return m_id; }
    const Dataset &datasetConst() const override { return m_dataset; }
    bool isReady() const override { return m_ready; }
    QPointF sourcePosition() const override { return m_position; }
    QString columnsDescription(const QList<ColumnId> &ids, int maxNames) const override;

    Dataset &dataset() { return m_dataset; }
    void setReady(bool ready) { m_ready = ready; }
    void setPosition(const QPointF &position) { m_position = position; }

private:
    Dataset m_dataset;
    int m_id;
    bool m_ready = true;
    QPointF m_position;
};
