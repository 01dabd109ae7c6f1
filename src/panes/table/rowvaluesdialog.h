#pragma once

#include "data/dataset.h"

#include <QDialog>

class DataTableView;
class QLabel;
class QPushButton;

/// The values of one row of a table, each beside the name of its column, with steps to the rows before and after it.
class RowValuesDialog : public QDialog
{
    Q_OBJECT

public:
    RowValuesDialog(const Dataset &dataset, RowIndex row, bool showWhitespace, QWidget *parent = nullptr);

private:
    void showRow(int row);

    Dataset m_dataset;
    int m_row = 0;
    QLabel *m_place;
    DataTableView *m_view;
    QPushButton *m_previous;
    QPushButton *m_next;
};
