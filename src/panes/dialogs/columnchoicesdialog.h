#pragma once

#include "panes/widgets/columnlist.h"

#include <QDialog>
#include <QHash>

class QComboBox;
class RecordTableWidget;

/// Gives each column of a table one of a few choices, and many columns the same one at once.
class ColumnChoicesDialog : public QDialog
{
    Q_OBJECT

public:
    struct Texts
    {
        QString title;
        QString heading;
        QString choiceColumn;
        QStringList choices;
        QString quickSetTip;
    };

    /// `columns` of which some have a choice by number; others have 0.
    ColumnChoicesDialog(
        const Texts &texts, const ColumnList &columns, const QHash<ColumnId, int> &choices, QWidget *parent = nullptr);

    /// Those of the columns shown, and of others as they were.
    QHash<ColumnId, int> choices() const;

private:
    void quickSet(int choice);

    const QHash<ColumnId, int> m_first;
    const ColumnList m_columns;
    RecordTableWidget *m_table;
    QComboBox *m_which;
};
