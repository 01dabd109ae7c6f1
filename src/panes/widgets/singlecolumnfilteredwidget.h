#pragma once

#include "panes/widgets/columnlist.h"

#include <QComboBox>

class FilteredPopup;
class QStringListModel;

/// Chooses a column, or none. The list that drops down has a box to filter it by; typing on the closed list opens it
/// with what was typed. Quick for 100,000 columns.
class SingleColumnFilteredWidget : public QComboBox
{
    Q_OBJECT

public:
    explicit SingleColumnFilteredWidget(QWidget *parent = nullptr);

    /// What stands for no column, the first entry.
    void setNoneText(const QString &text);
    void setColumns(const ColumnList &columns);
    /// Shows a column; one that isn't there is kept, and shown as none, until another is chosen. Emits nothing.
    void setColumn(ColumnId id);
    ColumnId column() const { return m_column; }

    void showPopup() override;

signals:
    /// A person has chosen another column.
    void columnChanged();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void fill();
    void popUp(const QString &filter);
    void onIndexChanged(int index);

    QStringListModel *m_names;
    FilteredPopup *m_popup = nullptr;
    ColumnList m_columns;
    QString m_noneText = QStringLiteral("<None selected>");
    ColumnId m_column;
};
