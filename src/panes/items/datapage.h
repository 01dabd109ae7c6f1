#pragma once

#include "panes/items/panelstate.h"

#include <QWidget>

class DataFilterRow;
class DataTableView;
class QToolButton;
class QToolBar;
class QVBoxLayout;

/// The page of a panel with the item's table and the tools for looking at it.
class DataPage : public QWidget
{
    Q_OBJECT

public:
    explicit DataPage(QWidget *parent = nullptr);

    DataTableView &view() const { return *m_view; }
    /// What panels before this one showed; must outlive the page.
    void setPanelState(PanelState &state);
    /// A row between the tools and the table.
    void addRow(QWidget *row);
    /// The table has changed: the filter is applied to the new one.
    void onTableChanged();
    void updateButtons();

signals:
    void copyClicked();
    void rowValuesClicked();
    void columnValuesClicked();
    void editClicked();
    void exportClicked();

public slots:
    void onToggledDataFilterButton(bool on);
    void onFilterRowColContains(const QString &value, bool row);
    void onScrollXLeft();
    void onScrollLeft();
    void onScrollRight();
    void onScrollXRight();
    void onScrollTop();
    void onScrollUp();
    void onScrollDown();
    void onScrollBottom();
    void onUpdateDataScrollButtons();
    void onClickedShowWhitespace(bool on);

private:
    QToolButton *addButton(const QString &icon, const QString &name, const QString &tip);
    void addDataButtons();
    void addScrollButtons();
    void addSeparator();

    QToolBar *m_tools;
    QVBoxLayout *m_layout;
    DataFilterRow *m_filter;
    DataTableView *m_view;
    PanelState *m_state = nullptr;
    QToolButton *m_whitespace = nullptr;
    QToolButton *m_filterButton = nullptr;
    QList<QToolButton *> m_scroll; ///< in the order of the slots
    QList<QToolButton *> m_needTable;
};
