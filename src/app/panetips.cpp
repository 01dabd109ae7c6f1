#include "app/panetips.h"

#include "app/documentsession.h"
#include "app/mainwindow.h"
#include "graph/graphscene.h"
#include "panes/actions/actionpane.h"
#include "panes/actions/actionpanewidgets.h"
#include "panes/actions/panebutton.h"
#include "panes/widgets/delayedlineedit.h"
#include "panes/widgets/tips.h"
#include "settings/settings.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeySequence>
#include <QScrollArea>
#include <QToolTip>

namespace {

constexpr int pauseMs = 700;
constexpr int shownMs = 20000;

} // namespace

struct PaneTips::Tip
{
    bool isDue;
    const char *key;
    const char *title;
    QString text;
    QWidget *anchor;
};

PaneTips::PaneTips(const CommandContext &context)
    : m_context(context)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMs);
    QObject::connect(&m_pause, &QTimer::timeout, &m_pause, [this] { showNext(); });
}

void PaneTips::follow(GraphScene *scene)
{
    QObject::connect(scene, &GraphScene::nodesAdded, &m_pause, [this] { prepare(); });
    QObject::connect(scene, &GraphScene::completedTransforms, &m_pause, [this] { prepare(); });
    prepare();
}

bool PaneTips::showNext()
{
    const bool isBusy = !m_context.actionPane.isEnabled() || QApplication::activeModalWidget()
                        || QApplication::activePopupWidget() || !m_context.window.isActiveWindow();
    if (isBusy) {
        return false;
    }
    if (QToolTip::isVisible()) {
        prepare();
        return false;
    }
    for (const Tip &tip : actionTips() + canvasTips() + helpTips()) {
        if (tip.isDue
            && Tips::showOnce(QString::fromLatin1(tip.key), QString::fromLatin1(tip.title), tip.text, shownMs,
                tip.anchor, Qt::RightEdge)) {
            return true;
        }
    }
    return false;
}

QList<PaneTips::Tip> PaneTips::actionTips() const
{
    const GraphScene &scene = m_context.session.scene();
    const int inputs = scene.inputNodes().size();
    const int transforms = scene.transformNodes().size();
    ActionPaneWidgets &pane = m_context.actionPane.widgets();
    const QString toFilter = QKeySequence(Qt::CTRL + Qt::Key_K).toString(QKeySequence::NativeText);
    return {
        {scene.nodes().isEmpty(), "tip_input_button", "Add datasets to transform",
            QStringLiteral("Click an input button to add a dataset, or drag files onto the center pane."),
            &pane.fromFile()},
        {inputs > 0 && transforms == 0, "tip_transform_button", "Transform datasets",
            QStringLiteral("Select 1 or more items in the center pane and then click a button to transform them."),
            &pane.category()},
        {transforms > 0, "tip_filter_transform", "Find transforms",
            QStringLiteral("Type keywords in the transforms filter to find the right transform (%1).").arg(toFilter),
            &pane.keywords()},
        {transforms > 1 && !pane.advanced().isChecked(), "tip_advanced_transform", "Advanced transforms",
            QStringLiteral("Check to show all transforms, including advanced."), &pane.advanced()},
    };
}

QList<PaneTips::Tip> PaneTips::helpTips() const
{
    const GraphScene &scene = m_context.session.scene();
    return {
        {!scene.transformNodes().isEmpty(), "tip_help_transform", "Help",
            QStringLiteral("Click for help on what the item does, with an example."),
            m_context.window.findChild<QWidget *>(QStringLiteral("m_helpButton"))},
        {!scene.inputNodes().isEmpty(), "tip_how_do_I", "How do I...?",
            QStringLiteral("Click to find out how to do something, from cleaning up text to processing many files."),
            m_context.window.findChild<QWidget *>(QStringLiteral("m_howDoIButton"))},
    };
}

int PaneTips::canvasTipCount()
{
    switch (Settings::current().showCenterPaneTips()) {
    case CanvasTips::Off:
        return 0;
    case CanvasTips::Brief:
        return 1;
    default:
        return 3;
    }
}

QList<PaneTips::Tip> PaneTips::canvasTips() const
{
    const GraphScene &scene = m_context.session.scene();
    const int transforms = scene.transformNodes().size();
    ActionPaneWidgets &pane = m_context.actionPane.widgets();
    const QList<Tip> tips{
        {scene.inputNodes().size() > 1, "tip_select_multiple", "Merge datasets",
            QStringLiteral("Select 2 or more dataset items to use Join/Lookup/Intersect/Subtract etc."),
            &pane.transforms()},
        {transforms > 0 && scene.outputNodes().isEmpty(), "tip_output_button", "Ouput transformed dataset",
            QStringLiteral("Click the '%1' button (below the transform buttons) to export the transformed dataset to a "
                           "file.\nMultiple file formats are supported.")
                .arg(pane.toFile().text()),
            &pane.toFile()},
        {transforms > 0 && scene.chartNodes().isEmpty(), "tip_chart_button", "Visualize dataset",
            QStringLiteral("Click the '%1' button (below the transform buttons) to visualize the dataset as a "
                           "chart.\nMultiple chart types are supported.")
                .arg(pane.toChart().text()),
            &pane.toChart()},
    };
    return tips.mid(0, canvasTipCount());
}
