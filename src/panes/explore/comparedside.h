#pragma once

#include "data/dataset.h"

#include <QWidget>

class DataTableView;
class ElidedLabel;
class ExploredItems;
class QLabel;
class SingleColumnFilteredWidget;

/// One of two tables that are compared: which item it is, its key column, and the rows.
class ComparedSide : public QWidget
{
    Q_OBJECT

public:
    /// `name` is "Left" or "Right".
    ComparedSide(const QString &name, int itemId, QWidget *parent = nullptr);

    int itemId() const { return m_itemId; }
    /// Another item; its key column is `key`.
    void setItem(int itemId, ColumnId key);
    DataTableView &view() const { return *m_view; }
    SingleColumnFilteredWidget &key() const { return *m_key; }
    void setKeyShown(bool on);
    /// Takes what the item is and has now. False when there is no table, which noTableText() then explains.
    bool read(const ExploredItems &items);
    const QString &noTableText() const { return m_noTableText; }
    const Dataset &dataset() const { return m_dataset; }
    /// The key column's place; invalid when none is chosen or it has gone.
    ColumnIndex keyColumn() const;
    /// Shows no rows, but that text.
    void showText(const QString &text);
    void letGo();

private:
    int m_itemId;
    Dataset m_dataset;
    QString m_noTableText;
    ElidedLabel *m_label;
    QLabel *m_keyLabel;
    SingleColumnFilteredWidget *m_key;
    DataTableView *m_view;
};
