#pragma once

#include "data/dataset.h"
#include "data/datasource.h"
#include "panes/widgets/multiplecolumnswidget.h"

/// Chooses columns of a table that belongs to nobody else, with a frame round the list while none is checked.
class CheckedColumnsList : public MultipleColumnsWidget
{
    Q_OBJECT

public:
    explicit CheckedColumnsList(const Dataset &dataset, QWidget *parent = nullptr);

private:
    class Source : public DataSource
    {
    public:
        explicit Source(const Dataset &dataset)
            : m_dataset(dataset)
        {
        }
        int id() const override { return -1; }
        const Dataset &datasetConst() const override { return m_dataset; }
        bool isReady() const override { return true; }
        QPointF sourcePosition() const override { return QPointF(); }
        QString columnsDescription(const QList<ColumnId> &, int) const override { return QString(); }

    private:
        const Dataset m_dataset;
    };

    void paintFrame(QWidget &viewport) const;

    const Source m_table;
};
