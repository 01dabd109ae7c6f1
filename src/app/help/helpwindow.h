#pragma once

#include "app/help/helpsearch.h"

#include <QWidget>

class HelpBrowser;
class QLineEdit;
class QListWidget;
class QStackedWidget;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;
struct HelpSection;

/// The window with the help: contents or what a search found on the left, a page on the right. It stays open beside the
/// others.
class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    HelpWindow();

    /// Shows a page over `over`, which may be null. While a dialog waits for an answer, the window belongs to it, so
    /// that it can be read and used.
    void showPage(const QString &page, QWidget *over);
    HelpBrowser &browser() const { return *m_browser; }
    QLineEdit &search() const { return *m_search; }

protected:
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void buildTools();
    void buildSide();
    void addSection(const HelpSection &section, QTreeWidgetItem *parent);
    void connectKeys();
    void onSearchEdited();
    void onHitChosen(int row);
    void onPageChanged();
    void focusSearch();
    void keepPlace() const;
    void restorePlace(const QWidget *over);

    QToolBar *m_tools;
    QLineEdit *m_search;
    QStackedWidget *m_side;
    QTreeWidget *m_contents;
    QListWidget *m_hits;
    HelpBrowser *m_browser;
    HelpSearch m_index;
};
