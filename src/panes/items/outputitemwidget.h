#pragma once

#include "panes/items/dataitemwidget.h"

class OptionsForm;
class OutputNode;
class QLineEdit;
class SingleColumnFilteredWidget;
struct OutputOptions;

/// The panel of an output: where it writes and how, and the table that it wrote.
class OutputItemWidget : public DataItemWidget
{
    Q_OBJECT

public:
    explicit OutputItemWidget(OutputNode &node, QWidget *parent = nullptr);

    void takeTyped() override;

protected:
    void refreshOptions() override;

private:
    OutputNode *output() const;
    void addTargetRows();
    void addTextRows();
    void addWritingRows();
    void addAliasRow();
    void setOptions(const OutputOptions &options, const QString &label);
    void onBrowse(const QByteArray &key);
    void onFilesColumnChosen();
    void chooseExcelFormats();
    void chooseJsonTypes();
    void openWritten();
    void onAliasEdited();

    OptionsForm *m_form;
    SingleColumnFilteredWidget *m_filesColumn = nullptr;
    QLineEdit *m_sheet = nullptr;
    QLineEdit *m_alias = nullptr;
};
