#pragma once

#include "panes/items/itemwidget.h"
#include "panes/items/panelstate.h"

#include <QPoint>

class Dataset;
class CharsWidget;
class DataPage;
class ItemToolRow;
class QTimer;
class QPlainTextEdit;
class QScrollArea;
class QSplitter;
class QTabWidget;
class QTextBrowser;

/// The panel of an item that has a table: its options, its table, what it has to say, and its comment.
class DataItemWidget : public ItemWidget
{
    Q_OBJECT

public:
    explicit DataItemWidget(Node &node, QWidget *parent = nullptr);

    void setPanelState(PanelState &state) override;
    void refresh() override;
    void letGoOfData() override;
    void takeTyped() override;
    void apply() override;
    bool isBusy() const override;
    QString selectionText() const override;
    void setInteraction(bool allow) override;
    void showFullscreen(bool on) override;

public slots:
    /// An option has changed: the item is stale; with `restart`, and auto run on, it runs after a pause.
    void onParameterValueChanged(bool restart);
    void processNow();
    void onUserInteraction();
    void onProcessSelected();
    void onClickedRunButton();
    void onClickedClipboard();
    void onClickedEditTemp();
    void onClickedExport();
    void onClickedShowOptionsAndData();
    void onClickedShowOptions();
    void onClickedShowData();
    void onCommentChanged();
    void onClickedFullscreen(bool on);

protected:
    /// Takes ownership; shown above the table.
    void setOptionsArea(QWidget *options);
    /// For kinds that have a picture instead of a table: takes ownership and the place of the two tabs of data.
    void setPicturePage(QWidget *page, const QString &title);
    /// Shows the item's options, which somebody else may have changed.
    virtual void refreshOptions() {}
    /// The table that the item's is compared with; empty for none.
    virtual const Dataset *previousDataset() const;
    virtual void onTableShown() {}
    DataPage &dataPage() const { return *m_data; }
    /// False during a run.
    bool interacts() const { return m_interacts; }
    PanelState &panelState() const { return *m_state; }
    ItemToolRow &toolRow() const { return *m_tools; }
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    /// Gives the options the room that they need, while nobody has moved the divider.
    void fitOptions();
    void addTabs();
    void connectTools();
    QPlainTextEdit *addMessages(const QString &title, const QString &tip);
    void showMessages(int tab, QPlainTextEdit &edit, const QStringList &lines, const QColor &color);
    void showTable();
    /// Where the table is scrolled to, which a run must not change.
    void keepPlace();
    void setShow(int show);
    void runFlow();

    PanelState m_ownState;
    PanelState *m_state = &m_ownState;
    ItemToolRow *m_tools;
    QSplitter *m_splitter;
    QScrollArea *m_options;
    QTabWidget *m_tabs;
    DataPage *m_data;
    CharsWidget *m_characters;
    QPlainTextEdit *m_warnings = nullptr;
    QPlainTextEdit *m_infos = nullptr;
    QTextBrowser *m_details = nullptr;
    QPlainTextEdit *m_comment = nullptr;
    QTimer *m_commentPause;
    QPoint m_place; ///< of the scroll bars
    bool m_interacts = true;
};
