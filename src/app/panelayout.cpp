#include "app/panelayout.h"

#include "settings/settings.h"

#include <QAction>
#include <QSignalBlocker>
#include <QSplitter>

namespace {

constexpr int leastWidth = 180;

} // namespace

PaneLayout::PaneLayout(QWidget *centre, QWidget *right)
    : m_splitter(new QSplitter(Qt::Horizontal))
    , m_right(right)
{
    m_splitter->setObjectName(QStringLiteral("m_splitter"));
    m_splitter->addWidget(centre);
    m_splitter->addWidget(right);
    m_splitter->setStretchFactor(Centre, 1);
    m_splitter->setStretchFactor(Right, 0);
    m_splitter->setCollapsible(Centre, false);
    right->setMinimumWidth(leastWidth);
    connect(m_splitter, &QSplitter::splitterMoved, this, &PaneLayout::onHSplitterMoved);
}

void PaneLayout::setActions(QAction &itemPaneAction)
{
    m_itemPaneAction = &itemPaneAction;
    m_itemPaneAction->setChecked(m_splitter->sizes().value(Right) > 0);
}

void PaneLayout::restore(const Settings &settings)
{
    m_rightWidth = qMax(leastWidth, settings.splitterWidth3());
    m_splitter->setSizes({settings.splitterWidth2(), settings.splitterWidth3()});
    onHSplitterMoved();
}

void PaneLayout::store(Settings &settings) const
{
    const QList<int> sizes = m_splitter->sizes();
    if (sizes.size() > Right) {
        settings.setSplitterWidth2(sizes[Centre]);
        settings.setSplitterWidth3(sizes[Right]);
    }
}

void PaneLayout::setShown(Pane pane, bool on)
{
    QList<int> sizes = m_splitter->sizes();
    if (sizes.size() <= pane || (sizes[pane] > 0) == on) {
        return;
    }
    const int width = on ? m_rightWidth : 0;
    sizes[Centre] += sizes[pane] - width;
    sizes[pane] = width;
    m_splitter->setSizes(sizes);
}

void PaneLayout::onItemPaneVisibilityToggled(bool on)
{
    if (!on && m_splitter->sizes().value(Right) > 0) {
        m_rightWidth = m_splitter->sizes().value(Right);
    }
    setShown(Right, on);
}

void PaneLayout::onHSplitterMoved()
{
    const int width = m_splitter->sizes().value(Right);
    if (width > 0) {
        m_rightWidth = width;
    }
    if (m_itemPaneAction) {
        const QSignalBlocker blocker(m_itemPaneAction);
        m_itemPaneAction->setChecked(width > 0);
    }
}

void PaneLayout::takeRightPane()
{
    m_right->setWindowFlags(Qt::Widget);
    m_splitter->addWidget(m_right);
    m_right->show();
    m_splitter->setSizes({m_splitter->width() - m_rightWidth, m_rightWidth});
    onHSplitterMoved();
}
