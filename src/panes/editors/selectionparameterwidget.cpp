#include "panes/editors/selectionparameterwidget.h"

#include "panes/widgets/wheelguard.h"
#include "transforms/options/parameter.h"

#include <QPaintEvent>
#include <QSignalBlocker>

namespace {

constexpr int leastCharacters = 8;
constexpr int mostRows = 20;

} // namespace

SelectionParameterWidget::SelectionParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : QComboBox(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    guardFromWheel(*this);
    addItems(parameter.choices());
    setMaxVisibleItems(mostRows);
    // A long choice must not make the whole pane wide.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(leastCharacters);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    refresh();
    connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &SelectionParameterWidget::onChanged);
}

void SelectionParameterWidget::refresh()
{
    const QSignalBlocker blocker(this);
    setCurrentIndex(parameter()->toSelectionIndex());
    update();
}

QVariant SelectionParameterWidget::value() const
{
    return currentText();
}

void SelectionParameterWidget::onChanged()
{
    if (commit()) {
        emit parameterValueChanged(true);
    }
    update();
}

void SelectionParameterWidget::paintEvent(QPaintEvent *event)
{
    QComboBox::paintEvent(event);
    paintUnsetFrame(*this);
}
