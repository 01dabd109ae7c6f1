#pragma once

#include "charts/chartoptions.h"
#include "panes/items/dataitemwidget.h"

class ChartNode;
class ChartWidget;
class MultipleColumnsWidget;
class OptionsForm;
class QLabel;
class QLineEdit;
class SingleColumnFilteredWidget;

/// The panel of a chart: its options in tabs, and the picture.
class ChartItemWidget final : public DataItemWidget
{
    Q_OBJECT

public:
    explicit ChartItemWidget(ChartNode &node, QWidget *parent = nullptr);

    /// Lets charts have this panel.
    static void enlist();

    void takeTyped() override;
    void letGoOfData() override;
    ChartWidget &chart() const { return *m_chart; }

public slots:
    /// Puts the picture on the clipboard, as large as it is shown.
    void onCopyClicked();

protected:
    void refreshOptions() override;
    void onTableShown() override;

private:
    struct Page
    {
        OptionsForm *form;
        QLabel *nothing; ///< said when no option applies; null where some always do
        QList<QByteArray> keys;
    };

    ChartNode *chartNode() const;
    OptionsForm *addPage(const QString &title, const QString &nothing, const QList<QList<QByteArray>> &rows);
    OptionsForm *addForm(const QString &title, const QString &nothing);
    void addColumnRows(OptionsForm &form);
    void addAliasRow(OptionsForm &form);
    void addPicture();
    void refreshColumns();
    void setOptions(const ChartOptions &options, const QString &label);
    void onOptionChanged(const QByteArray &key);
    void offerExtension();
    void offerType();
    void onBrowse();
    void onColumnsChosen(bool isX);
    void onAliasEdited();
    void showPicture();
    void showNextTip();

    QTabWidget *m_pages;
    QList<Page> m_forms;
    ChartWidget *m_chart;
    SingleColumnFilteredWidget *m_x = nullptr;
    MultipleColumnsWidget *m_y = nullptr;
    QLineEdit *m_alias = nullptr;
    QVariantList m_shown; ///< what the picture was drawn of, to draw it once only
};
