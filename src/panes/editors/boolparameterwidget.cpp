#include "panes/editors/boolparameterwidget.h"

#include "transforms/options/parameter.h"

#include <QEvent>
#include <QSignalBlocker>

BoolParameterWidget::BoolParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : QCheckBox(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    setText(parameter.label());
    refresh();
    connect(this, &QCheckBox::toggled, this, &BoolParameterWidget::onChanged);
}

void BoolParameterWidget::refresh()
{
    const QSignalBlocker blocker(this);
    setChecked(parameter()->toBool());
    updateColor();
}

QVariant BoolParameterWidget::value() const
{
    return isChecked();
}

void BoolParameterWidget::onChanged()
{
    updateColor();
    if (commit()) {
        emit parameterValueChanged(true);
    }
}

void BoolParameterWidget::changeEvent(QEvent *event)
{
    QCheckBox::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        updateColor();
    }
}

void BoolParameterWidget::updateColor()
{
    const bool marked = parameter()->highlightChecked() && isEnabled() && isChecked();
    const QString sheet = marked ? QStringLiteral("BoolParameterWidget{ color: %1; }").arg(QStringLiteral("#fc3300"))
                                 : QString();
    // Each setting of a style sheet paints anew, the same one too.
    if (sheet != styleSheet()) {
        setStyleSheet(sheet);
    }
}
