#include "panes/actions/actionpane.h"

#include "panes/actions/actionpanewidgets.h"
#include "panes/widgets/delayedlineedit.h"
#include "transforms/frame/transform.h"

#include <QScrollArea>
#include <QVBoxLayout>

ActionPane::ActionPane(const QList<Transform *> &prototypes, QWidget *parent)
    : QWidget(parent)
    , m_widgets(new ActionPaneWidgets(prototypes))
{
    setObjectName(QStringLiteral("m_actionPane"));
    setAccessibleName(QStringLiteral("Left pane"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_widgets);
    connect(m_widgets, &ActionPaneWidgets::addedTransform, this, &ActionPane::addedTransform);
    connect(m_widgets, &ActionPaneWidgets::inputFileClicked, this, &ActionPane::inputFileClicked);
    connect(m_widgets, &ActionPaneWidgets::inputFolderClicked, this, &ActionPane::inputFolderClicked);
    connect(m_widgets, &ActionPaneWidgets::inputClipboardClicked, this, &ActionPane::inputClipboardClicked);
    connect(m_widgets, &ActionPaneWidgets::outputFileClicked, this, &ActionPane::outputFileClicked);
    connect(m_widgets, &ActionPaneWidgets::outputChartClicked, this, &ActionPane::outputChartClicked);
    connect(m_widgets, &ActionPaneWidgets::highlightTransformNodes, this, &ActionPane::highlightTransformNodes);
    connect(m_widgets, &ActionPaneWidgets::scrollSoVisible, this, &ActionPane::scrollSoVisible);
    connect(this, &ActionPane::scrollSoVisible, this, &ActionPane::onScrollSoVisible);
}

void ActionPane::setCanOutput(bool can)
{
    m_widgets->setCanOutput(can);
}

void ActionPane::onThemeChanged()
{
    m_widgets->updateIcons();
}

void ActionPane::onScrollSoVisible(QWidget *button)
{
    m_widgets->transforms().ensureWidgetVisible(button, 0, button->height());
}

void ActionPane::onSetFocusToTransformFilter()
{
    m_widgets->keywords().setFocus(Qt::ShortcutFocusReason);
    m_widgets->keywords().selectAll();
}
