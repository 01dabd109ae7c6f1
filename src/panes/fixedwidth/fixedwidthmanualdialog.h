#pragma once

#include <QDialog>
#include <QList>
#include <QStringList>

class FixedWidthPreviewWidget;
class QDialogButtonBox;
class QLabel;
class QPushButton;
class QTableWidget;

/// "Fixed Column Widths": edits the widths of fixed-width columns, beside the first lines of the text.
class FixedWidthManualDialog : public QDialog
{
    Q_OBJECT

public:
    /// `widths` in characters; `sample` may be empty when nothing was read yet.
    FixedWidthManualDialog(const QList<int> &widths, const QStringList &sample, QWidget *parent = nullptr);

    const QList<int> &widths() const { return m_widths; }

private:
    using Edit = QList<int> (*)(const QList<int> &widths, const QList<int> &selected);

    QWidget *makeButtons();
    QPushButton *addButton(const char *text, const char *tip, Edit edit, QWidget &box);
    QWidget *makeTable();
    /// Shows the widths anew and selects `columns` of them.
    void showWidths(const QList<int> &widths, const QList<int> &columns);
    void showPlaces();
    QList<int> selectedColumns() const;
    void select(const QList<int> &columns);
    void onWidthEdited(int row, int column);
    void onColClicked(int column, bool shift);
    void onSelectionChanged();

    QList<int> m_widths;
    QTableWidget *m_table;
    QLabel *m_count;
    FixedWidthPreviewWidget *m_preview;
    QPushButton *m_merge = nullptr;
    QPushButton *m_split = nullptr;
    QPushButton *m_insertLeft = nullptr;
    QPushButton *m_insertRight = nullptr;
    QPushButton *m_delete = nullptr;
    QDialogButtonBox *m_buttons;
};
