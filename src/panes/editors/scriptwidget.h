#pragma once

#include "panes/widgets/columnlist.h"

#include <QWidget>

class CodeEdit;
class QComboBox;

/// A script in Javascript, with the columns to put into it and a button to run it.
class ScriptWidget : public QWidget
{
    Q_OBJECT

public:
    explicit ScriptWidget(QWidget *parent = nullptr);

    CodeEdit &edit() const { return *m_edit; }
    QString script() const;
    /// Emits nothing.
    void setScript(const QString &text);
    void setColumns(const ColumnList &columns);

signals:
    void scriptChanged();
    void evaluateClicked();
    void userInteraction();

private:
    void insertVariable(int index);
    /// The script in a window of its own, for more room.
    void expand();

    CodeEdit *m_edit;
    QComboBox *m_variables;
    ColumnList m_columns;
};
