#include "panes/editors/uniqueparameterwidget.h"

#include "panes/editors/columnstablewidget.h"
#include "panes/widgets/recordtools.h"
#include "transforms/options/parameter.h"
#include "transforms/row/uniquemodes.h"

#include <QMenu>
#include <QToolButton>

namespace {

RecordField operationField()
{
    RecordField field;
    field.title = QStringLiteral("Operation");
    field.kind = RecordField::Choice;
    field.choices = UniqueModes::texts();
    field.toolTip = QStringLiteral("What becomes of the column where several rows are made one.");
    return field;
}

} // namespace

UniqueParameterWidget::UniqueParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : RecordParameterWidget(parameter, node, *new ColumnsTableWidget(operationField()), parent)
{
    QToolButton *button = tools().add(QStringLiteral("edit-select-all"), QStringLiteral("Set operation"),
        QStringLiteral("Set the operation of the selected columns, or of all columns."));
    auto *menu = new QMenu(button);
    const QStringList labels = operationField().choices;
    for (int code = 0; code < labels.size(); ++code) {
        menu->addAction(labels.at(code), this, [this, code] { setSelected(code); });
    }
    button->setMenu(menu);
    button->setPopupMode(QToolButton::InstantPopup);
    UniqueParameterWidget::refresh();
}

void UniqueParameterWidget::setSelected(int code)
{
    static_cast<ColumnsTableWidget &>(table()).setValues([code](const RecordTableWidget::Record &) { return code; });
}

void UniqueParameterWidget::refresh()
{
    const ColumnList columns = ColumnList::of(parameter()->node());
    const QHash<ColumnId, int> codes = parameter()->toUniqueColumns();
    QVector<RecordTableWidget::Record> records;
    for (int i = 0; i < columns.size(); ++i) {
        const ColumnId id = columns.ids.at(i);
        records.append({columns.names.at(i), codes.value(id, UniqueCode::KeepFirst), QVariant::fromValue(id)});
    }
    table().setRecords(records);
    onRefreshed();
}

QVariant UniqueParameterWidget::value() const
{
    const QHash<ColumnId, int> stored = parameter()->toUniqueColumns();
    QHash<ColumnId, int> codes = stored;
    for (const RecordTableWidget::Record &record : table().records()) {
        const auto id = record.at(ColumnsTableWidget::Id).value<ColumnId>();
        const int code = record.at(ColumnsTableWidget::Value).toInt();
        if (code != codes.value(id, UniqueCode::KeepFirst)) {
            codes.insert(id, code);
        }
    }
    return codes == stored ? parameter()->value() : QVariant::fromValue(codes);
}
