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
    void setOptions(OutputOptions options, const QString &label);
    /// The type that goes with the options' new path, if the user agrees; false for an extension that is blocked.
    bool followPath(OutputOptions &options);
    /// The extension that goes with the options' new type, if the user agrees.
    void followType(OutputOptions &options);
    bool isYes(const QString &question);
    void onFilesColumnChosen();
    void chooseExcelFormats();
    void chooseJsonTypes();
    void openWritten();

    SingleColumnFilteredWidget *m_filesColumn = nullptr;
};
