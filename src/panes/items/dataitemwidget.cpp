#include "panes/items/dataitemwidget.h"

#include "data/dataset.h"
#include "data/values.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/runcontrol.h"
#include "panes/items/charswidget.h"
#include "panes/items/datapage.h"
#include "panes/items/datasetexport.h"
#include "panes/items/itemtoolrow.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "panes/widgets/countmark.h"
#include "panes/widgets/plaintext.h"
#include "panes/widgets/tips.h"
#include "settings/settings.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTimer>
#include <QVBoxLayout>

namespace {

enum Tab { Data, Characters, Warnings, Info, Details, Comment };

constexpr int leastWidth = 160;
constexpr int commentPauseMs = 500;
constexpr int tipMs = 8000;
/// Options get the room that they need, but leave two fifths to the table.
constexpr double mostForOptions = 0.6;

QString detailsOf(const Node &node)
{
    QString html = QStringLiteral("<table cellpadding='2'>");
    for (const InfoRow &row : node.generalRows() + node.kindRows() + node.optionRows() + node.commentRows()) {
        if (!row.second.isEmpty()) {
            html += QStringLiteral("<tr><td><b>%1</b></td><td style='white-space: pre-wrap'>%2</td></tr>")
                        .arg(row.first.toHtmlEscaped(), row.second.toHtmlEscaped());
        }
    }
    return html + QStringLiteral("</table>");
}

} // namespace

DataItemWidget::DataItemWidget(Node &item, QWidget *parent)
    : ItemWidget(item, parent)
    , m_tools(new ItemToolRow)
    , m_splitter(new QSplitter(Qt::Vertical))
    , m_options(new QScrollArea)
    , m_tabs(new QTabWidget)
    , m_data(new DataPage)
    , m_characters(new CharsWidget)
    , m_commentPause(new QTimer(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(m_tools);
    layout->addWidget(m_splitter, 1);
    m_options->setWidgetResizable(true);
    m_options->setFrameShape(QFrame::NoFrame);
    m_options->setVisible(false);
    m_splitter->addWidget(m_options);
    m_splitter->addWidget(m_tabs);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(1, 1);
    addTabs();
    connectTools();
}

void DataItemWidget::addTabs()
{
    m_tabs->setDocumentMode(true);
    // The pages give way to the width that a person gives the pane.
    m_tabs->setMinimumWidth(leastWidth);
    const int markHeight = fontMetrics().height();
    m_tabs->setIconSize(QSize(2 * markHeight, markHeight));
    m_tabs->addTab(m_data, QStringLiteral("Data"));
    m_tabs->addTab(m_characters, QStringLiteral("Characters"));
    m_tabs->setTabToolTip(Characters, QStringLiteral("The number of each type of character in each column."));
    m_warnings = addMessages(QStringLiteral("Warnings"), QStringLiteral("Warnings from the most recent processing."));
    m_infos = addMessages(QStringLiteral("Info"), QStringLiteral("Information from the most recent processing."));
    m_details = new QTextBrowser;
    m_details->setAccessibleName(QStringLiteral("Details"));
    m_details->setTabChangesFocus(true);
    m_tabs->setTabToolTip(
        m_tabs->addTab(m_details, QStringLiteral("Details")), QStringLiteral("Details of the most recent processing."));
    m_comment = addMessages(
        QStringLiteral("Comment"), QStringLiteral("Add a useful comment for a colleague or your future self."));
    m_comment->setReadOnly(false);
    m_comment->setPlaceholderText(m_tabs->tabToolTip(Comment));
    m_comment->setPlainText(node()->comment());
    m_commentPause->setSingleShot(true);
    m_commentPause->setInterval(commentPauseMs);
    connect(m_comment, &QPlainTextEdit::textChanged, m_commentPause, QOverload<>::of(&QTimer::start));
    connect(m_commentPause, &QTimer::timeout, this, &DataItemWidget::onCommentChanged);
    connect(m_tabs, &QTabWidget::currentChanged, this, [this](int index) {
        m_state->tab = index;
        emit currentTabChanged(index);
    });
}

QPlainTextEdit *DataItemWidget::addMessages(const QString &title, const QString &tip)
{
    auto *edit = new QPlainTextEdit;
    edit->setReadOnly(true);
    edit->setTabChangesFocus(true);
    edit->setAccessibleName(title);
    edit->setToolTip(tip);
    m_tabs->setTabToolTip(m_tabs->addTab(edit, title), tip);
    return edit;
}

void DataItemWidget::connectTools()
{
    connect(m_tools, &ItemToolRow::runClicked, this, &DataItemWidget::onClickedRunButton);
    connect(m_tools, &ItemToolRow::showChosen, this, &DataItemWidget::setShow);
    connect(m_tools, &ItemToolRow::fullscreenClicked, this, &DataItemWidget::onClickedFullscreen);
    connect(m_tools, &ItemToolRow::helpClicked, this, [this] {
        if (node()) {
            emit helpRequested(node()->helpPage());
        }
    });
    connect(m_data, &DataPage::copyClicked, this, &DataItemWidget::onClickedClipboard);
    connect(m_data, &DataPage::editClicked, this, &DataItemWidget::onClickedEditTemp);
    connect(m_data, &DataPage::exportClicked, this, &DataItemWidget::onClickedExport);
    connect(&m_data->view(), &DataTableView::selectedDataCellsChanged, this, &ItemWidget::selectedDataCellsChanged);
    connect(m_splitter, &QSplitter::splitterMoved, this, [this] { m_state->splitter = m_splitter->saveState(); });
}

void DataItemWidget::setOptionsArea(QWidget *options)
{
    m_options->setWidget(options);
    options->installEventFilter(this);
}

void DataItemWidget::setPicturePage(QWidget *page, const QString &title)
{
    m_tabs->removeTab(Data);
    m_data->hide();
    m_data->setParent(this);
    m_tabs->insertTab(Data, page, title);
    m_tabs->setTabVisible(Characters, false);
    m_tabs->setCurrentIndex(Data);
}

bool DataItemWidget::eventFilter(QObject *watched, QEvent *event)
{
    // Options come and go with the values of others.
    if (watched == m_options->widget() && event->type() == QEvent::LayoutRequest) {
        fitOptions();
    }
    return ItemWidget::eventFilter(watched, event);
}

void DataItemWidget::resizeEvent(QResizeEvent *event)
{
    ItemWidget::resizeEvent(event);
    fitOptions();
}

void DataItemWidget::fitOptions()
{
    // Whoever has moved the divider knows better.
    if (!m_state->splitter.isEmpty() || m_state->show != PanelState::OptionsAndData || !m_options->widget()) {
        return;
    }
    layout()->activate();
    const int height = m_splitter->height() - m_splitter->handleWidth();
    const int options = qMin(m_options->widget()->sizeHint().height(), qRound(mostForOptions * height));
    m_splitter->setSizes({options, height - options});
}

void DataItemWidget::setPanelState(PanelState &state)
{
    m_state = &state;
    m_data->setPanelState(state);
    m_tabs->setCurrentIndex(m_tabs->isTabVisible(state.tab) ? state.tab : static_cast<int>(Data));
    if (!state.splitter.isEmpty()) {
        m_splitter->restoreState(state.splitter);
    }
    setShow(state.show);
}

void DataItemWidget::setShow(int show)
{
    m_state->show = static_cast<PanelState::Show>(show);
    m_tools->setShow(m_state->show);
    m_options->setVisible(m_options->widget() && m_state->show != PanelState::OnlyData);
    m_tabs->setVisible(m_state->show != PanelState::OnlyOptions);
    fitOptions();
}

void DataItemWidget::onClickedShowOptionsAndData()
{
    setShow(PanelState::OptionsAndData);
}

void DataItemWidget::onClickedShowOptions()
{
    setShow(PanelState::OnlyOptions);
}

void DataItemWidget::onClickedShowData()
{
    setShow(PanelState::OnlyData);
}

void DataItemWidget::showFullscreen(bool on)
{
    m_tools->fullscreenButton().setChecked(on);
    ItemWidget::showFullscreen(on);
}

void DataItemWidget::onClickedFullscreen(bool on)
{
    showFullscreen(on);
}

void DataItemWidget::showMessages(int tab, QPlainTextEdit &edit, const QStringList &lines, const QColor &color)
{
    const QString text = lines.isEmpty() ? QStringLiteral("No messages") : lines.join(QLatin1Char('\n'));
    if (text != plainTextOf(edit)) {
        edit.setPlainText(text);
    }
    m_tabs->setTabIcon(tab, lines.isEmpty() ? QIcon() : countMark(lines.size(), color, *m_tabs));
}

void DataItemWidget::refresh()
{
    const Node *item = node();
    if (!item) {
        return;
    }
    m_tools->showNode(*item);
    const Settings &settings = Settings::current();
    showMessages(Warnings, *m_warnings, item->warnings(), settings.verifyFailErrorColor());
    showMessages(Info, *m_infos, item->infos(), settings.changedDataColor());
    m_details->setHtml(detailsOf(*item));
    if (!m_commentPause->isActive() && item->comment() != plainTextOf(*m_comment)) {
        const QSignalBlocker blocker(m_comment);
        m_comment->setPlainText(item->comment());
    }
    showTable();
    if (!isBusy()) {
        refreshOptions();
    }
}

const Dataset *DataItemWidget::previousDataset() const
{
    return nullptr;
}

void DataItemWidget::showTable()
{
    const Node &item = *node();
    const GraphScene *scene = item.graphScene();
    using Wait = DataTableView::Wait;
    const bool waits = item.state() == NodeState::NeedsProcessing;
    const bool runs = scene && scene->isAutoRunOn();
    DataTableView &view = m_data->view();
    view.setWait(item.state() == NodeState::Processing ? Wait::Processing
                 : !waits || item.columnCount() > 0    ? Wait::None
                 : runs                                ? Wait::AwaitingUpdate
                                                       : Wait::RunToUpdate);
    // The scene counts as running until the last listener of the run's end has been told, which this may be.
    if (!m_interacts) {
        return;
    }
    const Dataset *previous = previousDataset();
    keepPlace();
    view.table().setDataset(item.datasetConst(), previous ? *previous : Dataset());
    m_data->onTableChanged();
    m_characters->setDataset(item.datasetConst());
    onTableShown();
    view.doItemsLayout();
    view.horizontalScrollBar()->setValue(m_place.x());
    view.verticalScrollBar()->setValue(m_place.y());
}

void DataItemWidget::keepPlace()
{
    const DataTableView &view = m_data->view();
    if (view.table().columnCount() > 0) {
        m_place = QPoint(view.horizontalScrollBar()->value(), view.verticalScrollBar()->value());
    }
}

void DataItemWidget::letGoOfData()
{
    keepPlace();
    m_data->view().table().clear();
    m_characters->letGo();
}

void DataItemWidget::takeTyped()
{
    onCommentChanged();
}

void DataItemWidget::onCommentChanged()
{
    m_commentPause->stop();
    setNodeComment(plainTextOf(*m_comment));
}

void DataItemWidget::setInteraction(bool allow)
{
    m_interacts = allow;
    m_options->setEnabled(allow);
    m_tools->setEnabled(allow);
    m_tabs->setEnabled(allow);
}

QString DataItemWidget::selectionText() const
{
    return m_data->view().selectionText();
}

bool DataItemWidget::isBusy() const
{
    if (QApplication::activeModalWidget()) {
        return true;
    }
    const QWidget *options = m_options->widget();
    const QWidget *popup = QApplication::activePopupWidget();
    if (popup && options) {
        return true;
    }
    // A cell that is being edited has its editor in the viewport of its view.
    const QWidget *focus = QApplication::focusWidget();
    const QWidget *viewport = focus ? focus->parentWidget() : nullptr;
    const auto *view = viewport ? qobject_cast<const QAbstractItemView *>(viewport->parentWidget()) : nullptr;
    return view && viewport == view->viewport() && options && options->isAncestorOf(view);
}

void DataItemWidget::onParameterValueChanged(bool restart)
{
    Node *item = node();
    GraphScene *scene = item ? item->graphScene() : nullptr;
    if (!scene) {
        return;
    }
    item->setState(NodeState::NeedsProcessing, true);
    emit changeNeedsSave();
    emit nodeStatusChanged();
    m_tools->showNode(*item);
    if (restart && scene->isAutoRunOn()) {
        emit restartTimer();
    }
}

void DataItemWidget::onUserInteraction()
{
    const Node *item = node();
    if (item && item->graphScene() && item->graphScene()->isAutoRunOn()) {
        emit restartTimerIfActive();
    }
}

void DataItemWidget::processNow()
{
    Node *item = node();
    GraphScene *scene = item ? item->graphScene() : nullptr;
    if (!scene) {
        return;
    }
    if (scene->isAutoRunOn()) {
        emit stopTimer();
    }
    item->setState(NodeState::NeedsProcessing, true);
    emit changeNeedsSave();
    runFlow();
}

void DataItemWidget::onProcessSelected()
{
    runFlow();
}

void DataItemWidget::onClickedRunButton()
{
    processNow();
}

void DataItemWidget::apply()
{
    const GraphScene *scene = node() ? node()->graphScene() : nullptr;
    if (!scene || scene->isProcessing()) {
        return;
    }
    if (scene->isAutoRunOn() && isBusy()) {
        emit restartTimer();
        return;
    }
    emit stopTimer();
    runFlow();
}

void DataItemWidget::runFlow()
{
    GraphScene *scene = node() ? node()->graphScene() : nullptr;
    if (!scene || scene->isProcessing()) {
        return;
    }
    const QPointer<DataItemWidget> self(this);
    const QPointer<QWidget> focus(QApplication::focusWidget());
    QApplication::setOverrideCursor(Qt::WaitCursor);
    stopRequested = false;
    scene->runTransforms(scene->isAutoRunOn() ? RunMode::Changes : RunMode::Selected, false);
    stopRequested = false;
    QApplication::restoreOverrideCursor();
    if (!self) {
        return;
    }
    if (focus) {
        focus->setFocus(Qt::OtherFocusReason);
    }
    if (scene->isAutoRunOn()) {
        Tips::showOnce(QStringLiteral("tip_data_transform"), QStringLiteral("Transform results"),
            QStringLiteral(
                "Transforms are carried out automatically with 'Run>Auto Run' selected.\nThe results are shown "
                "here."),
            tipMs, m_tabs);
    }
}

void DataItemWidget::onClickedClipboard()
{
    if (node()) {
        DatasetExport(*m_state->prompts).copy(node()->datasetConst());
    }
}

void DataItemWidget::onClickedEditTemp()
{
    if (node()) {
        DatasetExport(*m_state->prompts).edit(node()->datasetConst());
    }
}

void DataItemWidget::onClickedExport()
{
    if (node()) {
        DatasetExport(*m_state->prompts).save(node()->datasetConst(), node()->name());
    }
}
