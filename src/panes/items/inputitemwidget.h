#pragma once

#include "panes/items/dataitemwidget.h"

class QCheckBox;
class QComboBox;

class InputNode;
class OptionsForm;
class QLineEdit;
struct InputOptions;
struct InputSchema;

/// The panel of an input: what it reads and how, and its table.
class InputItemWidget : public DataItemWidget
{
    Q_OBJECT

public:
    explicit InputItemWidget(InputNode &node, QWidget *parent = nullptr);

    void takeTyped() override;

protected:
    void refreshOptions() override;

private:
    InputNode *input() const;
    void addSourceRows();
    void addReadingRows();
    void addTidyingRows();
    void addAliasRow();
    QWidget *sheetBox();
    QWidget *widthsBox();
    QWidget *schemaBox();
    QWidget *headerBox();
    void setOptions(const InputOptions &options, const QString &label);
    void takeSchema(const InputSchema &schema);
    void onBrowse(const QByteArray &key);
    void chooseSheet();
    void importClipboard();
    void editSchema();
    void onWidthsEdited();
    void onAliasEdited();

    OptionsForm *m_form;
    QLineEdit *m_alias = nullptr;
    QLineEdit *m_sheet = nullptr;
    QCheckBox *m_header = nullptr;
    QCheckBox *m_autoWidths = nullptr;
    QLineEdit *m_widths = nullptr;
    QComboBox *m_schema = nullptr;
};
