#pragma once

#include "panes/widgets/columnlist.h"

#include <QWidget>

class ColumnChecksModel;
class ColumnsListWidget;
class DataSource;
class QLabel;
class QLineEdit;
class QMenu;
class QSortFilterProxyModel;
class QHBoxLayout;

/// Chooses columns by check marks, with a box to filter them by and buttons for many at once. The buttons work on the
/// columns that the filter lets through.
class MultipleColumnsWidget : public QWidget
{
    Q_OBJECT

public:
    explicit MultipleColumnsWidget(QWidget *parent = nullptr);

    /// `source`, which may be null, outlives the widget or is replaced.
    void setSource(const DataSource *source);
    /// Emits nothing.
    void setChecked(const QList<ColumnId> &ids);
    /// In the table's order.
    QList<ColumnId> checkedColumns() const;
    /// Also such as aren't in the table at present.
    bool isChecked(ColumnId id) const;

signals:
    /// A person has checked or unchecked something.
    void columnsChanged();
    void userInteraction();

protected:
    ColumnsListWidget &list() const { return *m_list; }

private:
    void addButtons(QHBoxLayout &layout);
    void addTypeMenu(QMenu &menu);
    QVector<int> shownRows() const;
    void checkByType(int type);
    void updateCount();

    const DataSource *m_source = nullptr;
    ColumnChecksModel *m_model;
    QSortFilterProxyModel *m_rows;
    QLineEdit *m_filter;
    ColumnsListWidget *m_list;
    QLabel *m_count;
};
