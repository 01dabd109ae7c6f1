#include "panes/dialogs/columnchoicesdialog.h"

#include "panes/dialogs/helphook.h"
#include "panes/widgets/recordtablewidget.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr QSize firstSize(460, 520);

} // namespace

ColumnChoicesDialog::ColumnChoicesDialog(
    const Texts &texts, const ColumnList &columns, const QHash<ColumnId, int> &choices, QWidget *parent)
    : QDialog(parent)
    , m_first(choices)
    , m_columns(columns)
    , m_table(new RecordTableWidget)
    , m_which(new QComboBox)
{
    setWindowTitle(texts.title);
    HelpHook::setHelpPage(*this, QStringLiteral("Output_data"));
    RecordField name;
    name.title = QStringLiteral("Column");
    name.kind = RecordField::Label;
    RecordField choice;
    choice.title = texts.choiceColumn;
    choice.kind = RecordField::Choice;
    choice.choices = texts.choices;
    m_table->setFields({name, choice}, {QString(), 0});
    m_table->setFixed(true);
    m_table->setMovable(false);
    m_table->setDragDropMode(QAbstractItemView::NoDragDrop);
    m_table->setEmptyText(QStringLiteral("No columns"));
    m_table->setAccessibleName(texts.title);
    QVector<RecordTableWidget::Record> records;
    for (int i = 0; i < columns.size(); ++i) {
        records.append({columns.names.at(i), choices.value(columns.ids.at(i))});
    }
    m_table->setRecords(records);
    auto *quick = new QHBoxLayout;
    m_which->addItems({QStringLiteral("All"), QStringLiteral("Selected")});
    m_which->setAccessibleName(QStringLiteral("Columns to set"));
    auto *to = new QComboBox;
    to->addItems(texts.choices);
    to->setAccessibleName(texts.choiceColumn);
    auto *set = new QPushButton(QStringLiteral("Set"));
    set->setAutoDefault(false);
    for (QWidget *widget : {static_cast<QWidget *>(m_which), static_cast<QWidget *>(to), static_cast<QWidget *>(set)}) {
        widget->setToolTip(texts.quickSetTip);
        quick->addWidget(widget);
    }
    quick->addStretch(1);
    connect(set, &QPushButton::clicked, this, [this, to] { quickSet(to->currentIndex()); });
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(texts.heading));
    layout->addLayout(quick);
    layout->addWidget(m_table, 1);
    layout->addWidget(buttons);
    resize(firstSize);
}

void ColumnChoicesDialog::quickSet(int choice)
{
    QVector<RecordTableWidget::Record> records = m_table->records();
    const bool all = m_which->currentIndex() == 0;
    for (int row = 0; row < records.size(); ++row) {
        if (all || m_table->selectionModel()->rowIntersectsSelection(row, QModelIndex())) {
            records[row][1] = choice;
        }
    }
    m_table->setRecords(records);
}

QHash<ColumnId, int> ColumnChoicesDialog::choices() const
{
    QHash<ColumnId, int> result = m_first;
    const QVector<RecordTableWidget::Record> records = m_table->records();
    for (int row = 0; row < records.size(); ++row) {
        const int choice = records.at(row).at(1).toInt();
        if (choice == 0) {
            result.remove(m_columns.ids.at(row));
        } else {
            result.insert(m_columns.ids.at(row), choice);
        }
    }
    return result;
}
