#pragma once

#include "panes/items/optionsitemwidget.h"

class OutputNode;
class SingleColumnFilteredWidget;
struct OutputOptions;

/// The panel of an output: where it writes and how, and the table that it wrote.
class OutputItemWidget : public OptionsItemWidget
{
    Q_OBJECT

public:
    explicit OutputItemWidget(OutputNode &node, QWidget *parent = nullptr);

protected:
    void refreshOptions() override;
    void onBrowse(const QByteArray &key) override;

private:
    OutputNode *output() const;
    /// The panel needn't be made yet, since the options are only asked for later.
    static std::unique_ptr<OptionSource> makeSource(OutputItemWidget *panel);
    void addTargetRows();
    void addTextRows();
    void addWritingRows();
    void setOptions(const OutputOptions &options, const QString &label);
    void onFilesColumnChosen();
    void chooseExcelFormats();
    void chooseJsonTypes();
    void openWritten();

    SingleColumnFilteredWidget *m_filesColumn = nullptr;
};
