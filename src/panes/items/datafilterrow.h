#pragma once

#include <QWidget>

class DataTableModel;
class DataTableView;
class DelayedLineEdit;
class QComboBox;
class QLabel;

/// Hides rows or columns of a shown table that don't have a text. The table itself doesn't change.
class DataFilterRow : public QWidget
{
    Q_OBJECT

public:
    explicit DataFilterRow(DataTableView &view, QWidget *parent = nullptr);

    /// Shows only rows, or only columns, that contain `value`.
    void setFilter(const QString &value, bool rows);
    /// Applies the filter to the present table.
    void apply();
    /// Shows everything, until apply().
    void lift();
    void focusText();

signals:
    void escaped();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void onDataFilterTextChanged();
    void onDataFilterComboChanged(int index);
    void filterRows(const QString &text);
    void filterColumns(const QString &text, bool byName);

    DataTableView &m_view;
    DelayedLineEdit *m_text;
    QComboBox *m_by;
    QLabel *m_found;
};
