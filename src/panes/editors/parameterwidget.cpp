#include "panes/editors/parameterwidget.h"

#include "graph/node.h"
#include "panes/widgets/faultmark.h"
#include "transforms/options/parameter.h"

#include <QPainter>
#include <QWidget>

namespace {

constexpr int frameInset = 2;

} // namespace

ParameterWidget::ParameterWidget(Parameter &parameter, Node &node)
    : m_parameter(&parameter)
    , m_node(&node)
{
}

ParameterWidget::~ParameterWidget() = default;

Node *ParameterWidget::node() const
{
    return m_node;
}

QString ParameterWidget::name() const
{
    return m_parameter->name();
}

bool ParameterWidget::isUnset() const
{
    return m_parameter->isUnset();
}

bool ParameterWidget::commit(UndoStep::Kind kind)
{
    if (!m_node) {
        return false;
    }
    const QVariant edited = value();
    if (edited == m_parameter->value() && !m_parameter->hasDeferredText()) {
        return false;
    }
    const UndoStep step(*m_node, QStringLiteral("'%1' change").arg(m_parameter->label()), kind);
    m_parameter->setValue(edited);
    return true;
}

void ParameterWidget::describe(QWidget &widget) const
{
    widget.setObjectName(m_parameter->name());
    widget.setToolTip(m_parameter->toolTip());
    widget.setAccessibleName(m_parameter->label());
    widget.setAccessibleDescription(m_parameter->toolTip());
}

void ParameterWidget::setFault(const QString &reason)
{
    auto *widget = dynamic_cast<QWidget *>(this);
    if (reason != m_fault && widget) {
        m_fault = reason;
        const QString tip = m_parameter->toolTip();
        widget->setToolTip(reason.isEmpty() || tip.isEmpty() ? reason + tip : reason + QStringLiteral("\n\n") + tip);
        widget->setAccessibleDescription(widget->toolTip());
        widget->update();
    }
}

void ParameterWidget::paintUnsetFrame(QWidget &widget) const
{
    if (!widget.isEnabled() || (!isUnset() && m_fault.isEmpty())) {
        return;
    }
    QPainter painter(&widget);
    painter.setPen(QColor(FaultMark::color));
    painter.drawRect(widget.rect().adjusted(frameInset, frameInset, -frameInset - 1, -frameInset - 1));
}
