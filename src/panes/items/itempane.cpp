#include "panes/items/itempane.h"

#include "graph/graphscene.h"
#include "graph/node.h"
#include "panes/items/itemwidget.h"
#include "panes/items/panelfactory.h"
#include "settings/settings.h"

#include <QCloseEvent>
#include <QLabel>
#include <QStackedLayout>

namespace {

constexpr double millisecondsInSecond = 1000.0;

} // namespace

ItemPane::ItemPane(Prompts &prompts, QWidget *parent)
    : QWidget(parent)
    , m_layout(new QStackedLayout(this))
    , m_hint(new QLabel(QStringLiteral("Select 1 item in the Center pane to view")))
{
    setObjectName(QStringLiteral("m_itemPane"));
    setAccessibleName(QStringLiteral("Right pane"));
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_hint->setEnabled(false);
    m_layout->addWidget(m_hint);
    m_panelState.prompts = &prompts;
    m_optionTimer.setSingleShot(true);
    connect(&m_optionTimer, &QTimer::timeout, this, &ItemPane::onProcessChanges);
}

ItemPane::~ItemPane()
{
    // A panel that fills the screen is in no layout.
    delete m_itemWidget;
}

void ItemPane::showSelection(const GraphScene &scene)
{
    const QList<Node *> selected = scene.nodes(true);
    Node *node = selected.size() == 1 ? selected.first() : nullptr;
    if (m_itemWidget && node && m_itemWidget->node() == node) {
        return;
    }
    onFlushTimer();
    showNode(node);
}

void ItemPane::showNode(Node *node)
{
    letGo();
    if (!node) {
        return;
    }
    m_itemWidget = PanelFactory::instance().make(*node);
    m_itemWidget->setPanelState(m_panelState);
    connectPanel();
    m_layout->addWidget(m_itemWidget);
    m_layout->setCurrentWidget(m_itemWidget);
    m_itemWidget->refresh();
}

QString ItemPane::selectionText() const
{
    return m_itemWidget ? m_itemWidget->selectionText() : QString();
}

void ItemPane::connectPanel()
{
    connect(m_itemWidget, &ItemWidget::nodeCommentChanged, this, &ItemPane::nodeCommentChanged);
    connect(m_itemWidget, &ItemWidget::nodeStatusChanged, this, &ItemPane::nodeStatusChanged);
    connect(m_itemWidget, &ItemWidget::selectedDataCellsChanged, this, &ItemPane::selectedDataCellsChanged);
    connect(m_itemWidget, &ItemWidget::changeNeedsSave, this, &ItemPane::changeNeedsSave);
    connect(m_itemWidget, &ItemWidget::fullScreenReleased, this, &ItemPane::onFullScreenReleased);
    connect(m_itemWidget, &ItemWidget::warnOverwritingOutputMoreThanOnce, this,
        &ItemPane::onWarnOverwritingOutputMoreThanOnce);
    connect(m_itemWidget, &ItemWidget::helpRequested, this, &ItemPane::helpRequested);
    connect(m_itemWidget, &ItemWidget::flushTimer, this, &ItemPane::onFlushTimer);
    connect(m_itemWidget, &ItemWidget::restartTimer, this, &ItemPane::onRestartTimer);
    connect(m_itemWidget, &ItemWidget::stopTimer, this, &ItemPane::onStopTimer);
    connect(m_itemWidget, &ItemWidget::restartTimerIfActive, this, &ItemPane::onRestartTimerIfActive);
    connect(m_itemWidget, &ItemWidget::currentTabChanged, this, &ItemPane::onItemCurrentTabChanged);
}

void ItemPane::letGo()
{
    onStopTimer();
    ItemWidget *old = m_itemWidget;
    m_itemWidget = nullptr;
    m_layout->setCurrentWidget(m_hint);
    if (old) {
        // What it takes into the item may change what is selected.
        old->takeTyped();
        old->disconnect(this);
        old->hide();
        old->letGoOfData();
        old->deleteLater();
        emit selectedDataCellsChanged();
    }
}

void ItemPane::refresh(Node *node)
{
    if (m_itemWidget && m_itemWidget->node() == node) {
        m_itemWidget->refresh();
    }
}

void ItemPane::refresh()
{
    if (m_itemWidget) {
        m_itemWidget->refresh();
    }
}

void ItemPane::setInteraction(bool allow)
{
    setEnabled(allow);
    if (m_itemWidget) {
        m_itemWidget->setInteraction(allow);
        allow ? m_itemWidget->refresh() : m_itemWidget->letGoOfData();
    }
}

void ItemPane::onTypedCharInNote(QChar c)
{
    if (m_itemWidget) {
        m_itemWidget->typeText(c);
    }
}

void ItemPane::showFullscreen()
{
    if (m_itemWidget) {
        m_itemWidget->showFullscreen(true);
    }
}

void ItemPane::onFullScreenReleased(ItemWidget *widget)
{
    m_layout->addWidget(widget);
    m_layout->setCurrentWidget(widget);
    widget->show();
}

void ItemPane::onWarnOverwritingOutputMoreThanOnce()
{
    emit overwritingOutputMoreThanOnce();
}

void ItemPane::onProcessChanges()
{
    m_runPending = false;
    if (m_itemWidget) {
        m_itemWidget->onProcessChanges();
    }
}

void ItemPane::onFlushTimer()
{
    const Node *node = m_itemWidget ? m_itemWidget->node() : nullptr;
    GraphScene *scene = node ? node->graphScene() : nullptr;
    const bool isDue = m_runPending
                       || (scene && node->state() == NodeState::NeedsProcessing && scene->isAutoRunOn()
                           && node->canProcess());
    onStopTimer();
    if (scene && isDue) {
        m_itemWidget->takeTyped();
        // The selection changes in the middle of a click: the run waits until the click has been dealt with.
        QTimer::singleShot(0, scene, [scene] { scene->runChangesIfAuto(); });
    }
}

void ItemPane::onRestartTimer()
{
    m_runPending = true;
    m_optionTimer.start(qRound(Settings::current().processingDelay() * millisecondsInSecond));
}

void ItemPane::onStopTimer()
{
    m_optionTimer.stop();
    m_runPending = false;
}

void ItemPane::onRestartTimerIfActive()
{
    if (m_optionTimer.isActive()) {
        onRestartTimer();
    }
}

void ItemPane::onItemCurrentTabChanged(int index)
{
    m_panelState.tab = index;
}

void ItemPane::closeEvent(QCloseEvent *event)
{
    emit closed();
    event->accept();
}
