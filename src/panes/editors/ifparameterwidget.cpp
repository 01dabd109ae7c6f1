#include "panes/editors/ifparameterwidget.h"

#include "panes/editors/iftablewidget.h"
#include "panes/widgets/recordtools.h"
#include "transforms/options/parameter.h"

#include <QToolButton>

IfParameterWidget::IfParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : RecordParameterWidget(parameter, node, *new IfTableWidget, parent)
{
    const auto add = [this](const char *icon, const char *name, const char *tip, const char *keys,
                         void (IfTableWidget::*slot)()) {
        QToolButton *button = tools().add(
            QLatin1String(icon), QLatin1String(name), QLatin1String(tip), QLatin1String(keys));
        connect(button, &QToolButton::clicked, &ifTable(), slot);
    };
    add("list-add", "Add ELSE IF", "Add an ELSE IF. (%1)", "Insert", &IfTableWidget::addElseIf);
    add("edit-duplicate", "Add AND", "Add an AND to an IF/ELSE IF. (%1)", "Shift+Insert", &IfTableWidget::addAnd);
    add("go-up", "Move up", "Move selected IF/ELSE IF(s) up.", "", &IfTableWidget::moveBranchesUp);
    add("go-down", "Move down", "Move selected IF/ELSE IF(s) down.", "", &IfTableWidget::moveBranchesDown);
    add("list-remove", "Remove", "Remove the selected IF/ELSE IF(s) or AND(s). (%1)", "Delete",
        &IfTableWidget::removeLines);
    IfParameterWidget::refresh();
}

IfTableWidget &IfParameterWidget::ifTable() const
{
    return static_cast<IfTableWidget &>(table());
}

void IfParameterWidget::refresh()
{
    takeColumns();
    ifTable().setIf(parameter()->toIfBranches());
    onRefreshed();
}

QVariant IfParameterWidget::value() const
{
    const IfRecord record = ifTable().ifRecord();
    return record == parameter()->toIfBranches() ? parameter()->value() : QVariant::fromValue(record);
}
