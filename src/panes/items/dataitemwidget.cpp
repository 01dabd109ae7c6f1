#include "panes/items/dataitemwidget.h"

#include "data/values.h"
#include "graph/node.h"
#include "panes/table/datatablemodel.h"

#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QStackedLayout>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace {

enum Tab { Data, Warnings, Info, Details, Comment };

QString detailsOf(const Node &node)
{
    QStringList lines;
    for (const InfoRow &row : node.generalRows() + node.kindRows() + node.optionRows()) {
        if (!row.second.isEmpty()) {
            lines.append(QStringLiteral("%1: %2").arg(row.first, row.second));
        }
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

DataItemWidget::DataItemWidget(Node &item, QWidget *parent)
    : ItemWidget(item, parent)
    , m_name(new QLabel)
    , m_state(new QLabel)
    , m_tabs(new QTabWidget)
    , m_table(new QTableView)
    , m_model(new DataTableModel(this))
    , m_tooBig(new QLabel)
{
    QFont bold = font();
    bold.setBold(true);
    m_name->setFont(bold);
    m_name->setTextFormat(Qt::PlainText);
    m_name->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_name->setWordWrap(true);
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    m_tooBig->setWordWrap(true);
    m_tooBig->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_name);
    layout->addWidget(m_state);
    layout->addWidget(m_tabs, 1);
    addTabs();
    m_comment->setPlainText(item.comment());
}

void DataItemWidget::addTabs()
{
    m_table->setModel(m_model);
    m_table->setAccessibleName(QStringLiteral("Data"));
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    auto *dataTab = new QWidget;
    auto *stack = new QStackedLayout(dataTab);
    stack->addWidget(m_table);
    stack->addWidget(m_tooBig);
    m_tabs->addTab(dataTab, QStringLiteral("Data"));
    m_warnings = addTextTab(QStringLiteral("Warnings from the most recent processing."));
    m_infos = addTextTab(QStringLiteral("Information from the most recent processing."));
    m_details = addTextTab(QStringLiteral("Details of the most recent processing."));
    m_tabs->setTabText(Details, QStringLiteral("Details"));
    m_comment = addTextTab(QStringLiteral("Add a useful comment for a colleague or your future self."));
    m_tabs->setTabText(Comment, QStringLiteral("Comment"));
    m_comment->setReadOnly(false);
    m_comment->setPlaceholderText(m_tabs->tabToolTip(Comment));
}

QPlainTextEdit *DataItemWidget::addTextTab(const QString &tip)
{
    auto *edit = new QPlainTextEdit;
    edit->setReadOnly(true);
    edit->setTabChangesFocus(true);
    edit->setAccessibleName(tip);
    m_tabs->setTabToolTip(m_tabs->addTab(edit, QString()), tip);
    return edit;
}

void DataItemWidget::showMessages(int tab, QPlainTextEdit &edit, const QString &title, const QStringList &lines)
{
    edit.setPlainText(lines.isEmpty() ? QStringLiteral("No messages") : lines.join(QLatin1Char('\n')));
    const QString count = formatInteger(lines.size(), true);
    m_tabs->setTabText(tab, lines.isEmpty() ? title : QStringLiteral("%1 (%2)").arg(title, count));
}

void DataItemWidget::refresh()
{
    const Node *item = node();
    if (!item) {
        return;
    }
    m_name->setText(item->name());
    QStringList state{item->kindName(), item->displaySizeText(), item->stateText(), item->resultText()};
    state.removeAll(QString());
    m_state->setText(state.join(QStringLiteral(", ")));
    showMessages(Warnings, *m_warnings, QStringLiteral("Warnings"), item->warnings());
    showMessages(Info, *m_infos, QStringLiteral("Info"), item->infos());
    m_details->setPlainText(detailsOf(*item));
    m_model->setDataset(item->datasetConst());
    auto *stack = static_cast<QStackedLayout *>(m_table->parentWidget()->layout());
    m_tooBig->setText(m_model->tooBigText());
    stack->setCurrentIndex(m_model->isTooBig() ? 1 : 0);
}

void DataItemWidget::letGoOfData()
{
    m_model->clear();
}

void DataItemWidget::apply()
{
    setNodeComment(m_comment->toPlainText());
}
