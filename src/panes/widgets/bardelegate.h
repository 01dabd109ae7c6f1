#pragma once

#include <QStyledItemDelegate>

/// Paints a bar behind the text of a cell, as long as the share that the cell gives for a role, 0 to 1.
class BarDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit BarDelegate(int shareRole, QObject *parent = nullptr);

    void setShown(bool on) { m_shown = on; }
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    int m_role;
    bool m_shown = true;
};
