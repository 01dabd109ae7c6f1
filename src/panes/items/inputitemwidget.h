#pragma once

#include "panes/items/optionsitemwidget.h"

class InputNode;
class QCheckBox;
class QComboBox;
class QLineEdit;
struct InputOptions;
struct InputSchema;

/// The panel of an input: what it reads and how, and its table.
class InputItemWidget : public OptionsItemWidget
{
    Q_OBJECT

public:
    explicit InputItemWidget(InputNode &node, QWidget *parent = nullptr);

protected:
    void refreshOptions() override;
    void onBrowse(const QByteArray &key) override;

private:
    InputNode *input() const;
    /// The panel needn't be made yet, since the options are only asked for later.
    static std::unique_ptr<OptionSource> makeSource(InputItemWidget *panel);
    void addSourceRows();
    void addReadingRows();
    void addTidyingRows();
    QWidget *sheetBox();
    QWidget *widthsBox();
    QWidget *schemaBox();
    QWidget *headerBox();
    void setOptions(const InputOptions &options, const QString &label);
    void takeSchema(const InputSchema &schema);
    void chooseSheet();
    void importClipboard();
    void editSchema();
    void onWidthsEdited();

    QCheckBox *m_header = nullptr;
    QCheckBox *m_autoWidths = nullptr;
    QLineEdit *m_widths = nullptr;
    QComboBox *m_schema = nullptr;
};
