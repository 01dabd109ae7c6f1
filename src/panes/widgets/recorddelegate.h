#pragma once

#include "panes/widgets/columnlist.h"
#include "panes/widgets/recordfield.h"

#include <QStyledItemDelegate>
#include <QVector>

/// Edits and paints the cells of a table of records by the kinds of its columns. Values are in Qt::UserRole, the texts
/// shown in Qt::DisplayRole.
class RecordDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit RecordDelegate(QObject *parent = nullptr);

    void setFields(const QVector<RecordField> &fields) { m_fields = fields; }
    void setColumns(const ColumnList &columns) { m_columns = columns; }
    const ColumnList &columns() const { return m_columns; }
    /// What a value is shown as.
    QString textOf(int field, const QVariant &value) const;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
        const QModelIndex &index) override;

private:
    bool isChosen(const QModelIndex &index) const;
    QString faultAt(const QModelIndex &index) const;
    void paintValue(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;

    QVector<RecordField> m_fields;
    ColumnList m_columns;
};
