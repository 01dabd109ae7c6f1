#pragma once

#include "data/dataset.h"
#include "data/valuefrequencies.h"

#include <QDialog>

class DataTableView;
class Prompts;
class QLabel;
class QPushButton;
class QTreeWidget;

/// "Duplicates Drilldown": the values that come more than once in a column, and the rows of the one that is selected.
class DrilldownDuplicatesDialog : public QDialog
{
    Q_OBJECT

public:
    /// `dataset` holds the rows whose value in `column` comes more than once; `prompts` outlives the dialog.
    DrilldownDuplicatesDialog(const Dataset &dataset, ColumnIndex column, Prompts &prompts);

    DataTableView &view() const { return *m_view; }

public slots:
    void onClickedClipboard();
    void onItemSelectionChanged();

private:
    void addValues();

    const Dataset m_dataset;
    const ColumnIndex m_column;
    const ValueFrequencies m_values;
    Prompts &m_prompts;
    QTreeWidget *m_tree;
    QLabel *m_rows;
    DataTableView *m_view;
    QPushButton *m_copy;
};
