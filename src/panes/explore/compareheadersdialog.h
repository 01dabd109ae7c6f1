#pragma once

#include <QDialog>
#include <QList>

class ColorButton;
class ExploredItems;
class QComboBox;
class QLabel;
class QTableWidget;

/// The column names of two or more items in one table, with their differences coloured. The window follows the items
/// while they run, change or go.
class CompareHeadersDialog : public QDialog
{
    Q_OBJECT

public:
    /// `items` outlives the dialog.
    CompareHeadersDialog(ExploredItems &items, const QList<int> &itemIds, QWidget *parent = nullptr);

public slots:
    void onChangeCompareBy(int index);
    void onChangeShow(int index);
    void onChangeColor(const QColor &color);

private:
    void addChoices();
    void connectChoices();
    void rebuild();
    /// The column names of each item; notes those that have none.
    QVector<QStringList> readItems();
    void setHeaders(bool byName);
    void setHeader(int column, const QString &text, const QString &tip);
    void addRow(int row, const QString &title, const QStringList &cells, bool isDifferent);

    ExploredItems &m_items;
    QList<int> m_itemIds;
    QComboBox *m_by;
    QComboBox *m_show;
    ColorButton *m_color;
    QLabel *m_differences;
    QLabel *m_note;
    QTableWidget *m_table;
};
