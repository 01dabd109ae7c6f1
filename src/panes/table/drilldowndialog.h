#pragma once

#include <QDialog>

class Dataset;
class DataTableView;
class Prompts;

/// The rows of a table that stand behind one value of another.
class DrilldownDialog : public QDialog
{
    Q_OBJECT

public:
    /// `prompts` outlives the dialog.
    DrilldownDialog(const Dataset &dataset, Prompts &prompts);

    DataTableView &view() const { return *m_view; }

public slots:
    void onClickedClipboard();

private:
    Prompts &m_prompts;
    DataTableView *m_view;
};
