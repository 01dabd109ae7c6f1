#pragma once

#include "data/indexes.h"
#include "panes/editors/recordparameterwidget.h"

#include <functional>

class ColumnsTableWidget;

/// Old names and new ones, side by side, with ways to change many at once.
class RenameColumnsParameterWidget : public RecordParameterWidget
{
    Q_OBJECT

public:
    RenameColumnsParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

private:
    void addTools();
    ColumnsTableWidget &columnsTable() const;
    /// What the option shows as the new name of a column.
    QString shownName(const QHash<ColumnId, QString> &renames, ColumnId id, const QString &oldName) const;
    /// Makes new names out of the present new ones.
    void rename(const std::function<QString(const QString &name)> &newName);
    void askForPrefixAndSuffix();
    void askForReplacement();
    void copyNames();
    void pasteNames();
    void takeBack();
};
