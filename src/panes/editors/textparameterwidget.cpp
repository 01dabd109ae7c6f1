#include "panes/editors/textparameterwidget.h"

#include "transforms/options/parameter.h"

#include <QPaintEvent>
#include <QSignalBlocker>

TextParameterWidget::TextParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : LineEditWithInsertControlChars(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    refresh();
    connect(this, &QLineEdit::textChanged, this, &TextParameterWidget::onChanged);
    connect(this, &QLineEdit::cursorPositionChanged, this, &TextParameterWidget::userInteraction);
    connect(this, &QLineEdit::returnPressed, this, &TextParameterWidget::processNow);
}

void TextParameterWidget::refresh()
{
    const QString text = parameter()->toText();
    if (text != QLineEdit::text()) {
        const QSignalBlocker blocker(this);
        setText(text);
    }
    update();
}

QVariant TextParameterWidget::value() const
{
    return text();
}

void TextParameterWidget::onChanged()
{
    if (commit(UndoStep::Typing)) {
        emit parameterValueChanged(true);
    }
    update();
}

void TextParameterWidget::paintEvent(QPaintEvent *event)
{
    LineEditWithInsertControlChars::paintEvent(event);
    paintUnsetFrame(*this);
}
