#pragma once

#include "panes/editors/parameterwidget.h"

#include <QWidget>

class QVBoxLayout;
class RecordTableWidget;
class RecordTools;

/// What editors of options that are lists of records share: a table, a row of buttons above it, and the way back into
/// the option.
class RecordParameterWidget : public QWidget, public ParameterWidget
{
    Q_OBJECT

public:
    RecordParameterWidget(Parameter &parameter, Node &node, RecordTableWidget &table, QWidget *parent);

    RecordTableWidget &table() const { return m_table; }

public slots:
    void onChanged();

signals:
    void parameterValueChanged(bool startTimer);
    void processNow();
    void userInteraction();

protected:
    RecordTools &tools() const { return *m_tools; }
    QVBoxLayout &contents() const { return *m_layout; }
    /// Words in tips, such as "sort column"; "Add a sort column. (Insert)".
    void addEditButtons(const QString &addTip, const QString &removeTip);
    void addMoveButtons(const QString &upTip, const QString &downTip);
    void addClipboardButtons(const QString &copyTip, const QString &pasteTip);
    /// Shows the columns upstream.
    void takeColumns();
    void onRefreshed();

private:
    RecordTableWidget &m_table;
    RecordTools *m_tools;
    QVBoxLayout *m_layout;
};
