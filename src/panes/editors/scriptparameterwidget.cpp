#include "panes/editors/scriptparameterwidget.h"

#include "graph/node.h"
#include "panes/widgets/codeedit.h"
#include "transforms/options/parameter.h"

#include <QRegularExpression>

ScriptParameterWidget::ScriptParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : ScriptWidget(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    edit().setOverlay([this](QWidget &viewport) { paintUnsetFrame(viewport); });
    refresh();
    connect(this, &ScriptWidget::scriptChanged, this, &ScriptParameterWidget::onChanged);
    connect(this, &ScriptWidget::evaluateClicked, this, &ScriptParameterWidget::processNow);
}

void ScriptParameterWidget::refresh()
{
    setColumns(ColumnList::of(parameter()->node()));
    setScript(parameter()->toText());
    markError();
    edit().viewport()->update();
}

QVariant ScriptParameterWidget::value() const
{
    return script();
}

void ScriptParameterWidget::onChanged()
{
    edit().setErrorLine(0);
    if (commit(UndoStep::Typing)) {
        emit parameterValueChanged(true);
    }
    edit().viewport()->update();
}

void ScriptParameterWidget::markError()
{
    static const QRegularExpression place(QStringLiteral("^(.*) at script line (\\d+) for dataset row"));
    const QStringList warnings = node() && node()->hasRun() ? node()->warnings() : QStringList();
    for (const QString &warning : warnings) {
        const QRegularExpressionMatch match = place.match(warning);
        if (match.hasMatch()) {
            edit().setErrorLine(match.captured(2).toInt(), match.captured(1));
            return;
        }
    }
    edit().setErrorLine(0);
}
