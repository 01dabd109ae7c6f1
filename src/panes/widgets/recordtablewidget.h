#pragma once

#include "panes/widgets/columnlist.h"
#include "panes/widgets/recordfield.h"

#include <QTableWidget>
#include <QVector>
#include <functional>

class RecordDelegate;

/// A table of records that a person edits: adds, removes, copies and moves them, and changes what is in their cells.
/// Insert adds, Delete removes, Alt+Up and Alt+Down move, F2 or typing edits.
class RecordTableWidget : public QTableWidget
{
    Q_OBJECT

public:
    using Record = QVariantList;

    explicit RecordTableWidget(QWidget *parent = nullptr);

    void setFields(const QVector<RecordField> &fields, const Record &newRecord);
    const QVector<RecordField> &fields() const { return m_fields; }
    /// The columns to choose from.
    void setColumns(const ColumnList &columns);
    /// Emits nothing, and keeps what is current.
    void setRecords(const QVector<Record> &records);
    QVector<Record> records() const;
    /// Records can only be edited and moved, neither added nor removed.
    void setFixed(bool on) { m_isFixed = on; }
    void setMovable(bool on) { m_isMovable = on; }
    /// What an empty table says.
    void setEmptyText(const QString &text) { m_emptyText = text; }
    /// What is painted over the table, such as the mark of an option that isn't set.
    void setOverlay(std::function<void(QWidget &viewport)> paint) { m_paintOverlay = std::move(paint); }
    /// The texts of all cells that aren't hidden.
    QVector<QStringList> shownTexts() const;
    /// Puts records behind those that are there, as one edit.
    void appendLines(const QVector<QStringList> &lines);
    QSize sizeHint() const override;

public slots:
    /// Behind the current one; its first cell becomes current.
    void addRecord();
    void removeSelected();
    void duplicateSelected();
    void moveUp() { moveSelected(-1); }
    void moveDown() { moveSelected(1); }
    void moveToTop();
    void moveToBottom();
    void removeAll();
    /// As spreadsheets do: a record a line, cells parted by tabs.
    void copyRecords();
    void pasteRecords();

signals:
    /// A person has changed something.
    void edited();
    void userInteraction();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    QList<int> selectedRows() const;
    /// Puts records in the place of all, as one edit; those in `selected` are selected then.
    void replaceRecords(const QVector<Record> &records, const QList<int> &selected);
    /// A line of pasted cells as a record.
    virtual Record recordOf(const QStringList &cells) const;

private:
    void setRow(int row, const Record &record);
    void onCellChanged(int row, int column);
    void onCellClicked(int row, int column);
    void moveSelected(int step);

    RecordDelegate *m_delegate;
    QVector<RecordField> m_fields;
    Record m_newRecord;
    bool m_isFixed = false;
    bool m_isMovable = true;
    QString m_emptyText;
    std::function<void(QWidget &)> m_paintOverlay;
};
