#pragma once

#include "panes/items/dataitemwidget.h"
#include "panes/items/optionsource.h"

#include <memory>

class OptionsForm;
class QLineEdit;

/// What the panels of inputs and outputs share: a form over their declared options, which marks the item stale, the
/// sheet and the alias.
class OptionsItemWidget : public DataItemWidget
{
    Q_OBJECT

public:
    OptionsItemWidget(Node &node, std::unique_ptr<OptionSource> source, QWidget *parent);

    void takeTyped() override;

protected:
    void refreshOptions() override;
    OptionsForm &form() const { return *m_form; }
    /// The last row.
    void addAliasRow();
    /// The line for a sheet's name, which goes into the option "worksheet".
    QLineEdit *makeSheetLine(const QString &toolTip);
    /// Changes an option from outside the form, and marks the item stale.
    void changeOption(const QByteArray &key, const QVariant &value, const QString &label);
    virtual void onBrowse(const QByteArray &key) = 0;

private:
    void onAliasEdited();

    OptionsForm *m_form;
    QLineEdit *m_sheet = nullptr;
    QLineEdit *m_alias = nullptr;
};
