#pragma once

#include "panes/items/itemwidget.h"

class DataTableModel;
class QLabel;
class QPlainTextEdit;
class QTabWidget;
class QTableView;

/// The panel of an item that has a table: what it is, its table, what it has to say, and its comment.
class DataItemWidget : public ItemWidget
{
    Q_OBJECT

public:
    explicit DataItemWidget(Node &node, QWidget *parent = nullptr);

    void refresh() override;
    void letGoOfData() override;
    void apply() override;

private:
    void addTabs();
    QPlainTextEdit *addTextTab(const QString &tip);
    void showMessages(int tab, QPlainTextEdit &edit, const QString &title, const QStringList &lines);

    QLabel *m_name;
    QLabel *m_state;
    QTabWidget *m_tabs;
    QTableView *m_table;
    DataTableModel *m_model;
    QLabel *m_tooBig;
    QPlainTextEdit *m_warnings = nullptr;
    QPlainTextEdit *m_infos = nullptr;
    QPlainTextEdit *m_details = nullptr;
    QPlainTextEdit *m_comment = nullptr;
};
