#include "app/panelayout.h"

#include "settings/settings.h"

#include <QAction>
#include <QSignalBlocker>
#include <QSplitter>
#include <cstdlib>

namespace {

/// By PaneLayout::Pane; that of the centre plays no part.
constexpr int leastWidths[] = {100, 0, 180};
/// Pixels by which a window may be wider than its panes together.
constexpr int bordersAtMost = 30;
/// Of the window, for each pane at the start: the canvas must be there to be seen.
constexpr double mostShare = 0.45;

} // namespace

PaneLayout::PaneLayout(QWidget *left, QWidget *canvas, QWidget *log, QWidget *right)
    : m_splitter(new QSplitter(Qt::Horizontal))
    , m_right(right)
{
    auto *centre = new QSplitter(Qt::Vertical);
    centre->addWidget(canvas);
    centre->addWidget(log);
    centre->setStretchFactor(0, 1);
    centre->setCollapsible(0, false);
    m_splitter->setObjectName(QStringLiteral("m_splitter"));
    for (QWidget *pane : {left, static_cast<QWidget *>(centre), right}) {
        m_splitter->addWidget(pane);
    }
    for (int pane = Left; pane < PaneCount; ++pane) {
        m_splitter->setStretchFactor(pane, pane == Centre ? 1 : 0);
    }
    m_splitter->setCollapsible(Centre, false);
    left->setMinimumWidth(leastWidths[Left]);
    right->setMinimumWidth(leastWidths[Right]);
    connect(m_splitter, &QSplitter::splitterMoved, this, &PaneLayout::onHSplitterMoved);
}

void PaneLayout::setActions(QAction &actionPaneAction, QAction &itemPaneAction)
{
    m_actions[Left] = &actionPaneAction;
    m_actions[Right] = &itemPaneAction;
    onHSplitterMoved();
}

void PaneLayout::restore(const Settings &settings)
{
    const QList<int> stored{settings.splitterWidth1(), settings.splitterWidth2(), settings.splitterWidth3()};
    QList<int> widths = stored;
    // A window that is wider or narrower than it was gives each pane its share.
    const int total = stored[Left] + stored[Centre] + stored[Right];
    const int present = m_splitter->window()->width();
    const bool isSame = std::abs(present - total) <= bordersAtMost || total <= 0;
    const double share = isSame ? 1 : static_cast<double>(present) / total;
    for (int pane : {Left, Right}) {
        m_widths[pane] = qMax(leastWidths[pane], qRound(qMin(stored[pane] * share, present * mostShare)));
        widths[pane] = stored[pane] > 0 ? m_widths[pane] : 0;
    }
    if (settings.geometry().isEmpty() && stored[Left] == leastWidths[Left]) {
        // The first start: nobody has chosen a width that cuts the texts.
        m_widths[Left] = qMax(m_widths[Left], m_splitter->widget(Left)->sizeHint().width());
        widths[Left] = m_widths[Left];
    }
    widths[Centre] = qMax(1, present - widths[Left] - widths[Right]);
    m_splitter->setSizes(widths);
    onHSplitterMoved();
}

void PaneLayout::store(Settings &settings) const
{
    const QList<int> sizes = m_splitter->sizes();
    settings.setSplitterWidth1(sizes.value(Left));
    settings.setSplitterWidth2(sizes.value(Centre));
    settings.setSplitterWidth3(sizes.value(Right, m_widths[Right]));
}

void PaneLayout::setShown(Pane pane, bool on)
{
    QList<int> sizes = m_splitter->sizes();
    if (sizes.size() <= pane || (sizes[pane] > 0) == on) {
        return;
    }
    if (!on) {
        m_widths[pane] = sizes[pane];
    }
    const int width = on ? m_widths[pane] : 0;
    sizes[Centre] += sizes[pane] - width;
    sizes[pane] = width;
    m_splitter->setSizes(sizes);
}

void PaneLayout::onHSplitterMoved()
{
    const QList<int> sizes = m_splitter->sizes();
    for (int pane : {Left, Right}) {
        const int width = sizes.value(pane);
        m_widths[pane] = width > 0 ? width : m_widths[pane];
        if (m_actions[pane]) {
            const QSignalBlocker blocker(m_actions[pane]);
            m_actions[pane]->setChecked(width > 0);
        }
    }
}

void PaneLayout::takeRightPane()
{
    QList<int> sizes = m_splitter->sizes();
    m_right->setWindowFlags(Qt::Widget);
    m_splitter->addWidget(m_right);
    m_right->show();
    sizes[Centre] -= m_widths[Right];
    sizes.append(m_widths[Right]);
    m_splitter->setSizes(sizes);
    onHSplitterMoved();
}
