#include "panes/status/nodestatuswidget.h"

#include "data/values.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodepainter.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>

namespace {

constexpr int iconSide = 16;
constexpr qint64 leastIntervalMs = 200; // between counts of all items during a run

/// In the order in which they stand.
constexpr NodeStatusIcon order[] = {NodeStatusIcon::UpToDate, NodeStatusIcon::NeedsUpdate, NodeStatusIcon::Warning,
    NodeStatusIcon::Error, NodeStatusIcon::Empty};

QIcon iconOf(NodeStatusIcon status, double ratio)
{
    QPixmap pixmap(qRound(iconSide * ratio), qRound(iconSide * ratio));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    NodePainter::drawStatusIcon(painter, QRectF(1, 1, iconSide - 2, iconSide - 2), status);
    return QIcon(pixmap);
}

} // namespace

NodeStatusWidget::NodeStatusWidget(QWidget *parent)
    : QWidget(parent)
{
    setAccessibleName(QStringLiteral("Item status"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (int i = 0; i < kinds; ++i) {
        auto *button = new QToolButton;
        button->setAutoRaise(true);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setIconSize(QSize(iconSide, iconSide));
        button->setFocusPolicy(Qt::NoFocus);
        button->setIcon(iconOf(order[i], devicePixelRatioF()));
        button->hide();
        connect(button, &QToolButton::clicked, this, [this, i] { emit iconClicked(order[i]); });
        layout->addWidget(button);
        m_buttons[i] = button;
    }
}

QString NodeStatusWidget::countText(NodeStatusIcon icon, int count)
{
    const QString number = formatInteger(count, true);
    switch (icon) {
    case NodeStatusIcon::UpToDate:
        return QStringLiteral("%1 ok").arg(number);
    case NodeStatusIcon::NeedsUpdate:
        return QStringLiteral("%1 %2 update")
            .arg(number, count == 1 ? QStringLiteral("needs") : QStringLiteral("need"));
    case NodeStatusIcon::Warning:
        return QStringLiteral("%1 warning(s)").arg(number);
    case NodeStatusIcon::Error:
        return QStringLiteral("%1 error(s)").arg(number);
    case NodeStatusIcon::Empty:
        return QStringLiteral("%1 empty").arg(number);
    case NodeStatusIcon::Processing:
    case NodeStatusIcon::None:
        break;
    }
    return {};
}

void NodeStatusWidget::showCountsInRun(const GraphScene &scene)
{
    if (!scene.isProcessing() || !m_lastCount.isValid() || m_lastCount.elapsed() > leastIntervalMs) {
        showCounts(scene);
    }
}

void NodeStatusWidget::showCounts(const GraphScene &scene)
{
    m_lastCount.start();
    int counts[static_cast<int>(NodeStatusIcon::None) + 1] = {};
    for (const Node *node : scene.nodes()) {
        ++counts[static_cast<int>(node->statusIcon())];
    }
    QStringList texts;
    for (int i = 0; i < kinds; ++i) {
        const int count = counts[static_cast<int>(order[i])];
        m_buttons[i]->setVisible(count > 0);
        m_buttons[i]->setText(formatInteger(count, true));
        m_buttons[i]->setAccessibleName(countText(order[i], count));
        if (count > 0) {
            texts.append(countText(order[i], count));
        }
    }
    setToolTip(texts.isEmpty() ? QString()
                               : QStringLiteral("Item status: %1.\nClick an icon to select and zoom to items with that "
                                                "status.")
                                     .arg(texts.join(QStringLiteral(", "))));
}
