#include "panes/editors/iftablewidget.h"

#include "data/matchoperator.h"
#include "panes/editors/filtercolumnstablewidget.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <algorithm>

IfTableWidget::IfTableWidget(QWidget *parent)
    : RecordTableWidget(parent)
{
    RecordField logic;
    logic.title = QStringLiteral("Logic");
    logic.kind = RecordField::Label;
    RecordField column;
    column.title = QStringLiteral("Column");
    column.kind = RecordField::Column;
    column.noneText = QStringLiteral("<Any>");
    RecordField op;
    op.title = QStringLiteral("Matches");
    op.kind = RecordField::Choice;
    op.choices = MatchOperators::labels();
    RecordField value;
    value.title = QStringLiteral("Value");
    value.toolTip = QStringLiteral("You can use column variables. e.g. $(1) to reference the first column value.\nSee "
                                   "'Column variables' in the help.");
    value.fault = [](const Record &record) {
        return record.at(Kind).toInt() >= Then
                   ? QString()
                   : FilterColumnsTableWidget::matchFault(record.at(Operator).toInt(), record.at(Value).toString());
    };
    RecordField kind;
    kind.kind = RecordField::Label;
    setFields({logic, column, op, value, kind}, conditionLine(If, FilterTerm()));
    setColumnHidden(Kind, true);
    setMovable(false);
    setDragDropMode(QAbstractItemView::NoDragDrop);
}

RecordTableWidget::Record IfTableWidget::conditionLine(int kind, const FilterTerm &term) const
{
    return {kind == And ? QStringLiteral("  AND") : QStringLiteral("ELSE IF"), QVariant::fromValue(term.column),
        term.op, term.text, kind};
}

RecordTableWidget::Record IfTableWidget::valueLine(int kind, const QString &text) const
{
    return {kind == Then ? QStringLiteral("  THEN=") : QStringLiteral("  ELSE="), QVariant::fromValue(ColumnId()), 0,
        text, kind};
}

QVector<RecordTableWidget::Record> IfTableWidget::linesOf(const IfRecord &record) const
{
    QVector<Record> lines;
    for (const IfBranch &branch : record.branches) {
        int kind = If;
        for (const FilterTerm &term : branch.conditions) {
            lines.append(conditionLine(kind, term));
            kind = And;
        }
        lines.append(valueLine(Then, branch.thenText));
    }
    if (!lines.isEmpty() && lines.first().at(Kind).toInt() == If) {
        lines.first()[Logic] = QStringLiteral("IF");
    }
    lines.append(valueLine(Else, record.elseText));
    return lines;
}

void IfTableWidget::setIf(const IfRecord &record)
{
    setRecords(linesOf(record));
    lockCells();
}

void IfTableWidget::lockCells()
{
    const QSignalBlocker blocker(this);
    for (int row = 0; row < rowCount(); ++row) {
        const bool isValue = item(row, Kind)->data(Qt::UserRole).toInt() >= Then;
        for (const int column : {Condition, Operator}) {
            if (isValue) {
                item(row, column)->setText(QString());
                item(row, column)->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
            }
        }
    }
}

IfRecord IfTableWidget::ifRecord() const
{
    IfRecord record;
    record.branches.clear();
    IfBranch branch;
    branch.conditions.clear();
    for (const Record &line : records()) {
        switch (line.at(Kind).toInt()) {
        case If:
        case And: {
            FilterTerm term;
            term.column = line.at(Condition).value<ColumnId>();
            term.op = line.at(Operator).toInt();
            term.text = line.at(Value).toString();
            branch.conditions.append(term);
            break;
        }
        case Then:
            branch.thenText = line.at(Value).toString();
            record.branches.append(branch);
            branch = IfBranch();
            branch.conditions.clear();
            break;
        default:
            record.elseText = line.at(Value).toString();
        }
    }
    return record;
}

int IfTableWidget::branchOf(int row) const
{
    int branch = 0;
    for (int line = 0; line < row && line < rowCount(); ++line) {
        branch += item(line, Kind)->data(Qt::UserRole).toInt() == Then ? 1 : 0;
    }
    return branch;
}

QList<int> IfTableWidget::selectedBranches() const
{
    QList<int> branches;
    const int last = ifRecord().branches.size() - 1;
    for (const int row : selectedRows()) {
        const int branch = branchOf(row);
        if (branch <= last && !branches.contains(branch)) {
            branches.append(branch);
        }
    }
    return branches;
}

void IfTableWidget::takeIf(const IfRecord &record, int branch)
{
    setIf(record);
    int row = 0;
    while (row + 1 < rowCount() && branchOf(row) < branch) {
        ++row;
    }
    setCurrentCell(row, Value);
    emit edited();
}

void IfTableWidget::addElseIf()
{
    IfRecord record = ifRecord();
    const int last = record.branches.size();
    const int place = currentRow() >= 0 ? qMin(branchOf(currentRow()) + 1, last) : last;
    record.branches.insert(place, IfBranch());
    takeIf(record, place);
    setFocus();
}

void IfTableWidget::addAnd()
{
    IfRecord record = ifRecord();
    if (record.branches.isEmpty()) {
        addElseIf();
        return;
    }
    const int branch = qMin(branchOf(qMax(0, currentRow())), record.branches.size() - 1);
    record.branches[branch].conditions.append(FilterTerm());
    takeIf(record, branch);
    setFocus();
}

void IfTableWidget::removeLines()
{
    IfRecord record = ifRecord();
    QList<QPair<int, int>> conditions;
    QSet<int> branches;
    int branch = 0;
    int condition = 0;
    const QList<int> rows = selectedRows();
    for (int row = 0; row < rowCount(); ++row) {
        const int kind = item(row, Kind)->data(Qt::UserRole).toInt();
        condition = kind == And ? condition + 1 : 0;
        if (rows.contains(row) && kind == And) {
            conditions.prepend({branch, condition});
        } else if (rows.contains(row) && kind != Else) {
            branches.insert(branch);
        }
        branch += kind == Then ? 1 : 0;
    }
    for (const QPair<int, int> &place : qAsConst(conditions)) {
        record.branches[place.first].conditions.removeAt(place.second);
    }
    for (int i = record.branches.size() - 1; i >= 0; --i) {
        if (branches.contains(i)) {
            record.branches.removeAt(i);
        }
    }
    if (!(record == ifRecord())) {
        takeIf(record, rows.isEmpty() ? 0 : qMin(branchOf(rows.first()), record.branches.size()));
    }
}

void IfTableWidget::moveBranches(int step)
{
    QList<int> branches = selectedBranches();
    IfRecord record = ifRecord();
    if (branches.isEmpty() || branches.first() + step < 0 || branches.last() + step >= record.branches.size()) {
        return;
    }
    if (step > 0) {
        std::reverse(branches.begin(), branches.end());
    }
    for (const int branch : qAsConst(branches)) {
        record.branches.move(branch, branch + step);
    }
    takeIf(record, branches.first() + step);
}

void IfTableWidget::keyPressEvent(QKeyEvent *event)
{
    const bool alt = event->modifiers() == Qt::AltModifier;
    switch (event->key()) {
    case Qt::Key_Insert:
        event->modifiers() == Qt::ShiftModifier ? addAnd() : addElseIf();
        return;
    case Qt::Key_Delete:
        removeLines();
        return;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (alt) {
            moveBranches(event->key() == Qt::Key_Up ? -1 : 1);
            return;
        }
        break;
    default:
        break;
    }
    if (!event->matches(QKeySequence::Paste)) {
        RecordTableWidget::keyPressEvent(event);
    }
}
