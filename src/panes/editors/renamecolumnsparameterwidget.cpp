#include "panes/editors/renamecolumnsparameterwidget.h"

#include "panes/dialogs/prefixsuffixdialog.h"
#include "panes/dialogs/replacedialog.h"
#include "panes/editors/columnstablewidget.h"
#include "panes/editors/renamerules.h"
#include "panes/widgets/recordtools.h"
#include "transforms/options/parameter.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QToolButton>

namespace {

RecordField newNameField()
{
    RecordField field;
    field.title = QStringLiteral("New name");
    field.toolTip = QStringLiteral("The new name of the column. Empty for the old name.");
    return field;
}

} // namespace

RenameColumnsParameterWidget::RenameColumnsParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : RecordParameterWidget(parameter, node, *new ColumnsTableWidget(newNameField()), parent)
{
    addTools();
    RenameColumnsParameterWidget::refresh();
}

void RenameColumnsParameterWidget::addTools()
{
    const auto add = [this](const char *icon, const char *name, const char *tip,
                         void (RenameColumnsParameterWidget::*slot)()) {
        QToolButton *button = tools().add(QLatin1String(icon), QLatin1String(name), QLatin1String(tip));
        connect(button, &QToolButton::clicked, this, slot);
    };
    add("list-add", "Prefix and suffix",
        "Add a prefix and/or suffix to the names of the selected columns, or of all columns.",
        &RenameColumnsParameterWidget::askForPrefixAndSuffix);
    add("edit-find", "Replace", "Replace text in the names of the selected columns, or of all columns.",
        &RenameColumnsParameterWidget::askForReplacement);
    QToolButton *changeCase = tools().add(QStringLiteral("keyboard"), QStringLiteral("Change case"),
        QStringLiteral("Change the case of the names of the selected columns, or of all columns."));
    auto *menu = new QMenu(changeCase);
    const QStringList cases{
        QStringLiteral("&lower case"), QStringLiteral("&UPPER CASE"), QStringLiteral("&Title Case")};
    for (int i = 0; i < cases.size(); ++i) {
        const auto change = static_cast<RenameRules::Case>(i);
        menu->addAction(cases.at(i), this,
            [this, change] { rename([change](const QString &name) { return RenameRules::inCase(name, change); }); });
    }
    changeCase->setMenu(menu);
    changeCase->setPopupMode(QToolButton::InstantPopup);
    add("edit-copy", "Copy", "Copy the old and new names to the clipboard.", &RenameColumnsParameterWidget::copyNames);
    add("edit-paste", "Paste names",
        "Paste new names from the clipboard, one for each column from the selected one on.",
        &RenameColumnsParameterWidget::pasteNames);
    add("edit-undo", "Old names", "Go back to the old names of the selected columns, or of all columns.",
        &RenameColumnsParameterWidget::takeBack);
}

void RenameColumnsParameterWidget::copyNames()
{
    table().copyRecords();
}

ColumnsTableWidget &RenameColumnsParameterWidget::columnsTable() const
{
    return static_cast<ColumnsTableWidget &>(table());
}

QString RenameColumnsParameterWidget::shownName(
    const QHash<ColumnId, QString> &renames, ColumnId id, const QString &oldName) const
{
    return renames.value(id, oldName);
}

void RenameColumnsParameterWidget::refresh()
{
    const ColumnList columns = ColumnList::of(parameter()->node());
    const QHash<ColumnId, QString> renames = parameter()->toRenames();
    QVector<RecordTableWidget::Record> records;
    for (int i = 0; i < columns.size(); ++i) {
        const ColumnId id = columns.ids.at(i);
        const QString oldName = columns.names.at(i);
        records.append({oldName, shownName(renames, id, oldName), QVariant::fromValue(id)});
    }
    table().setRecords(records);
    onRefreshed();
}

QVariant RenameColumnsParameterWidget::value() const
{
    const QHash<ColumnId, QString> stored = parameter()->toRenames();
    QHash<ColumnId, QString> renames = stored;
    for (const RecordTableWidget::Record &record : table().records()) {
        const auto id = record.at(ColumnsTableWidget::Id).value<ColumnId>();
        const QString oldName = record.at(ColumnsTableWidget::Name).toString();
        const QString newName = record.at(ColumnsTableWidget::Value).toString();
        if (newName == shownName(stored, id, oldName)) {
            continue;
        }
        if (newName.isEmpty() || newName == oldName) {
            renames.remove(id);
        } else {
            renames.insert(id, newName);
        }
    }
    return renames == stored ? parameter()->value() : QVariant::fromValue(renames);
}

void RenameColumnsParameterWidget::rename(const std::function<QString(const QString &)> &newName)
{
    columnsTable().setValues([&newName](const RecordTableWidget::Record &record) {
        return newName(record.at(ColumnsTableWidget::Value).toString());
    });
}

void RenameColumnsParameterWidget::askForPrefixAndSuffix()
{
    PrefixSuffixDialog dialog(this);
    if (dialog.exec() == QDialog::Accepted) {
        rename([&dialog](const QString &name) {
            return RenameRules::withPrefixAndSuffix(name, dialog.prefix(), dialog.suffix());
        });
    }
}

void RenameColumnsParameterWidget::askForReplacement()
{
    ReplaceDialog dialog(this);
    if (dialog.exec() == QDialog::Accepted) {
        rename([&dialog](const QString &name) {
            return RenameRules::replaced(name, static_cast<RenameRules::Match>(dialog.matchType()), dialog.find(),
                dialog.with(), dialog.isCaseSensitive());
        });
    }
}

void RenameColumnsParameterWidget::pasteNames()
{
    columnsTable().setValuesFrom(RenameRules::pasted(QApplication::clipboard()->text()));
}

void RenameColumnsParameterWidget::takeBack()
{
    columnsTable().setValues(
        [](const RecordTableWidget::Record &record) { return record.at(ColumnsTableWidget::Name); });
}
