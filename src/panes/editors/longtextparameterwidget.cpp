#include "panes/editors/longtextparameterwidget.h"

#include "panes/widgets/plaintext.h"
#include "transforms/options/parameter.h"

#include <QPaintEvent>
#include <QSignalBlocker>

namespace {

constexpr int linesShown = 4;

} // namespace

LongTextParameterWidget::LongTextParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : QPlainTextEdit(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    setTabChangesFocus(true);
    setMinimumHeight(linesShown * fontMetrics().lineSpacing() + 2 * frameWidth());
    refresh();
    connect(this, &QPlainTextEdit::textChanged, this, &LongTextParameterWidget::onChanged);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &LongTextParameterWidget::userInteraction);
}

void LongTextParameterWidget::refresh()
{
    const QString text = parameter()->toText();
    if (text != plainTextOf(*this)) {
        const QSignalBlocker blocker(this);
        setPlainText(text);
    }
    viewport()->update();
}

QVariant LongTextParameterWidget::value() const
{
    return plainTextOf(*this);
}

void LongTextParameterWidget::onChanged()
{
    if (commit(UndoStep::Typing)) {
        emit parameterValueChanged(true);
    }
    viewport()->update();
}

void LongTextParameterWidget::paintEvent(QPaintEvent *event)
{
    QPlainTextEdit::paintEvent(event);
    paintUnsetFrame(*viewport());
}
