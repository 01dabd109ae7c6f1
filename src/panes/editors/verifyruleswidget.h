#pragma once

#include "panes/widgets/recordtablewidget.h"
#include "transforms/options/verifyrules.h"

#include <QWidget>

class Dataset;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;

/// The rules of a verification: the table's own and those of each column. What is changed while several columns are
/// selected is changed in all of them that offer the rule.
class VerifyRulesWidget : public QWidget
{
    Q_OBJECT

public:
    explicit VerifyRulesWidget(QWidget *parent = nullptr);

    /// Emits nothing.
    void setRules(const VerifyRuleSet &rules, const ColumnList &columns);
    const VerifyRuleSet &rules() const { return m_rules; }
    /// Counts of fails beside the rules; `result` is the table with its marks after a run.
    void showFails(const Dataset &result);

signals:
    /// A person has changed something.
    void changed();
    void userInteraction();

private:
    QWidget *columnsSide();
    QWidget *rulesSide();
    void fillColumns();
    void updateColumnTexts();
    void filterColumns(const QString &text);
    void filterRules(const QString &text);
    /// Null ids for the table itself.
    QList<ColumnId> selectedColumns() const;
    ColumnId shownColumn() const;
    void showRules();
    void onRuleEdited();
    void onTypeChosen(int type);
    void storeRule(ColumnId column, const VerifyRule &rule);
    VerifyRule ruleOf(ColumnId column, int ruleId) const;
    QVector<int> offeredRules(ColumnId column) const;
    void lockCells();
    int failsOf(int ruleId) const;

    VerifyRuleSet m_rules;
    ColumnList m_columns;
    QHash<ColumnId, QHash<int, int>> m_fails;
    QLineEdit *m_columnFilter;
    QLabel *m_columnCount;
    QListWidget *m_columnList;
    QLabel *m_heading;
    QComboBox *m_type;
    QLineEdit *m_ruleFilter;
    RecordTableWidget *m_table;
};
