#pragma once

#include "panes/widgets/columnlist.h"
#include "transforms/options/records.h"

#include <QWidget>

class LineEditWithInsertControlChars;
class QComboBox;
class QSpinBox;
class QStackedWidget;
class SingleColumnFilteredWidget;

/// Where a row is cut into several: by the names of columns, or every few columns.
class SplitRowsWidget : public QWidget
{
    Q_OBJECT

public:
    explicit SplitRowsWidget(QWidget *parent = nullptr);

    /// Emits nothing.
    void setRecord(const SplitRowsRecord &record);
    SplitRowsRecord record() const;
    void setColumns(const ColumnList &columns);

signals:
    /// A person has changed something.
    void changed();

private:
    QWidget *matchPage();
    QWidget *everyPage();
    void showPage();

    QComboBox *m_mode;
    QStackedWidget *m_pages;
    QComboBox *m_op;
    LineEditWithInsertControlChars *m_text;
    QSpinBox *m_every;
    QSpinBox *m_times;
    SingleColumnFilteredWidget *m_start;
};
