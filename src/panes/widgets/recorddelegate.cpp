#include "panes/widgets/recorddelegate.h"

#include "panes/widgets/faultmark.h"
#include "panes/widgets/lineeditwithinsertcontrolchars.h"
#include "panes/widgets/singlecolumnfilteredwidget.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>

namespace {

constexpr int arrowSide = 8;

} // namespace

RecordDelegate::RecordDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

QString RecordDelegate::textOf(int field, const QVariant &value) const
{
    const RecordField &kind = m_fields.at(field);
    switch (kind.kind) {
    case RecordField::Choice:
        return kind.choices.value(value.toInt());
    case RecordField::Column: {
        const auto id = value.value<ColumnId>();
        const int column = m_columns.indexOf(id);
        return column >= 0 ? m_columns.names.at(column) : id.isNull() ? kind.noneText : QStringLiteral("<Lost column>");
    }
    case RecordField::Flag:
        return {};
    case RecordField::Text:
    case RecordField::Label:
        break;
    }
    return value.toString();
}

QWidget *RecordDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &index) const
{
    const RecordField &field = m_fields.at(index.column());
    QWidget *editor = nullptr;
    if (field.kind == RecordField::Text) {
        auto *line = new LineEditWithInsertControlChars(parent);
        line->setFrame(false);
        editor = line;
    } else {
        QComboBox *combo = nullptr;
        if (field.kind == RecordField::Column) {
            auto *columns = new SingleColumnFilteredWidget(parent);
            columns->setNoneText(field.noneText);
            columns->setColumns(m_columns);
            combo = columns;
        } else {
            combo = new QComboBox(parent);
            combo->addItems(field.choices);
            combo->setMaxVisibleItems(field.choices.size());
        }
        // What was chosen is taken at once: there is nothing to confirm.
        auto *self = const_cast<RecordDelegate *>(this);
        const auto take = [self, combo] {
            emit self->commitData(combo);
            emit self->closeEditor(combo);
        };
        if (field.kind == RecordField::Column) {
            connect(static_cast<SingleColumnFilteredWidget *>(combo), &SingleColumnFilteredWidget::columnChanged, combo,
                take);
        } else {
            connect(combo, QOverload<int>::of(&QComboBox::activated), combo, take);
        }
        QTimer::singleShot(0, combo, [combo] { combo->showPopup(); });
        editor = combo;
    }
    editor->setAccessibleName(field.title);
    return editor;
}

void RecordDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QVariant value = index.data(Qt::UserRole);
    if (auto *columns = qobject_cast<SingleColumnFilteredWidget *>(editor)) {
        columns->setColumn(value.value<ColumnId>());
    } else if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        combo->setCurrentIndex(value.toInt());
    } else if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        line->setText(value.toString());
    }
}

void RecordDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    QVariant value;
    if (auto *columns = qobject_cast<SingleColumnFilteredWidget *>(editor)) {
        value = QVariant::fromValue(columns->column());
    } else if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        value = combo->currentIndex();
    } else if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        value = line->text();
    }
    if (value != index.data(Qt::UserRole)) {
        model->setData(index, value, Qt::UserRole);
    }
}

bool RecordDelegate::isChosen(const QModelIndex &index) const
{
    const RecordField::Kind kind = m_fields.at(index.column()).kind;
    return (kind == RecordField::Choice || kind == RecordField::Column) && (index.flags() & Qt::ItemIsEditable);
}

QString RecordDelegate::faultAt(const QModelIndex &index) const
{
    const RecordField &field = m_fields.at(index.column());
    if (!field.fault) {
        return {};
    }
    QVariantList record;
    for (int column = 0; column < m_fields.size(); ++column) {
        record.append(index.sibling(index.row(), column).data(Qt::UserRole));
    }
    return field.fault(record);
}

bool RecordDelegate::helpEvent(
    QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const QString fault = event->type() == QEvent::ToolTip && index.isValid() ? faultAt(index) : QString();
    if (fault.isEmpty()) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    QToolTip::showText(event->globalPos(), fault, view);
    return true;
}

void RecordDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    paintValue(painter, option, index);
    if (!faultAt(index).isEmpty()) {
        painter->setPen(QColor(FaultMark::color));
        painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
    }
}

void RecordDelegate::paintValue(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (!isChosen(index)) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem text = option;
    text.rect.setRight(option.rect.right() - 2 * arrowSide);
    QStyleOptionViewItem background = option;
    initStyleOption(&background, index);
    background.text.clear();
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &background, painter, option.widget);
    QStyledItemDelegate::paint(painter, text, index);
    QStyleOption arrow;
    arrow.rect = QRect(option.rect.right() - arrowSide - arrowSide / 2, option.rect.center().y() - arrowSide / 2,
        arrowSide, arrowSide);
    arrow.palette = option.palette;
    arrow.state = option.state;
    style->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, painter, option.widget);
}

QSize RecordDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QSize hint = QStyledItemDelegate::sizeHint(option, index);
    return isChosen(index) ? hint + QSize(2 * arrowSide, 0) : hint;
}
