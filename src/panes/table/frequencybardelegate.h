#pragma once

#include <QStyledItemDelegate>

/// Draws a bar behind the text of a cell, as long as the part of the cell that `shareRole` says (0 to 1).
class FrequencyBarDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    static constexpr int shareRole = Qt::UserRole + 1;

    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
