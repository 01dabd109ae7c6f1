#pragma once

#include "panes/widgets/recordtablewidget.h"
#include "transforms/options/records.h"

/// An If option as lines: each branch has one for each of its conditions and one for its value; the last line is the
/// value where no branch holds.
class IfTableWidget : public RecordTableWidget
{
    Q_OBJECT

public:
    explicit IfTableWidget(QWidget *parent = nullptr);

    void setIf(const IfRecord &record);
    IfRecord ifRecord() const;

public slots:
    /// A branch behind the current one.
    void addElseIf();
    /// A condition of the current branch.
    void addAnd();
    /// Branches of which a line is selected, or single conditions.
    void removeLines();
    void moveBranchesUp() { moveBranches(-1); }
    void moveBranchesDown() { moveBranches(1); }

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum Line { If, And, Then, Else };
    enum Column { Logic, Condition, Operator, Value, Kind };

    Record conditionLine(int kind, const FilterTerm &term) const;
    Record valueLine(int kind, const QString &text) const;
    QVector<Record> linesOf(const IfRecord &record) const;
    void takeIf(const IfRecord &record, int branch);
    int branchOf(int row) const;
    QList<int> selectedBranches() const;
    void moveBranches(int step);
    void lockCells();
};
