#pragma once

#include "panes/explore/duplicaterun.h"

#include <QDialog>

class CheckedColumnsList;
class DataTableView;
class Node;
class Prompts;
class QCheckBox;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QTabWidget;
class QToolButton;
class QVBoxLayout;
class Transform;

/// "Explore Duplicates": shows which rows of a table repeat others, under options that can be tried out. It works on a
/// copy of the table as it is when the window opens.
class ExploreDuplicatesDialog : public QDialog
{
    Q_OBJECT

public:
    /// `prompts` outlives the dialog.
    ExploreDuplicatesDialog(const Node &item, const DuplicateOptions &options, Prompts &prompts);

    /// Those of a transform that has options for duplicates.
    static DuplicateOptions optionsOf(const Transform &transform);
    bool isRunning() const { return m_run.isRunning(); }

public slots:
    void onRunTip();
    void onColumnsChanged();
    void onCurrentMatchComboChanged();
    void onNextClicked() { goToDuplicate(1); }
    void onPrevClicked() { goToDuplicate(-1); }
    void onRun();
    void onStop();
    void onProcessed(qreal progress, int nonDupesFound, int dupesFound);
    void onPopulateTable();
    void onHideUncheckedChanged();
    void onHideNonDupeRowsChanged();

protected:
    void showEvent(QShowEvent *event) override;

private:
    QWidget *makeOptions(const DuplicateOptions &options);
    QWidget *makeResults(Prompts &prompts);
    QWidget *makeDataPage();
    QToolButton *makeArrow(const char *icon, const char *name, const char *tip, void (ExploreDuplicatesDialog::*go)());
    void addRunRow(QVBoxLayout &layout);
    DuplicateOptions options() const;
    void goToDuplicate(int direction);
    void showInfo();
    void updateButtons();

    const Dataset m_dataset;
    DuplicateRun m_run;
    bool m_hasResult = false;
    CheckedColumnsList *m_columns;
    QComboBox *m_matching;
    QSpinBox *m_closeness;
    QCheckBox *m_caseSensitive;
    QCheckBox *m_ignoreSpaces;
    QCheckBox *m_ignorePunctuation;
    QPushButton *m_runButton;
    QPushButton *m_stopButton;
    QProgressBar *m_progress;
    QLabel *m_info;
    QLabel *m_stopped;
    QTabWidget *m_tabs;
    DataTableView *m_view;
    QCheckBox *m_hideUnchecked;
    QCheckBox *m_hideOthers;
    QToolButton *m_previous = nullptr;
    QToolButton *m_next = nullptr;
    QPlainTextEdit *m_summary;
};
