#pragma once

#include "panes/items/optionsitemwidget.h"

class FixedWidthAutoManualWidget;
class InputNode;
class QCheckBox;
class QComboBox;
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
    void editWidths();
    void takeWidths(const QList<int> &widths, bool automatic);
    /// Changes options that stand together, as one step of undo named after `label`.
    void takeChanged(const QString &label, const std::function<void(InputOptions &)> &change);

    QCheckBox *m_header = nullptr;
    FixedWidthAutoManualWidget *m_widths = nullptr;
    QComboBox *m_schema = nullptr;
};
