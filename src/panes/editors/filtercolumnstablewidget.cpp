#include "panes/editors/filtercolumnstablewidget.h"

#include "data/matchoperator.h"
#include "transforms/options/optionchecks.h"
#include "transforms/options/records.h"

FilterColumnsTableWidget::FilterColumnsTableWidget(QWidget *parent)
    : RecordTableWidget(parent)
{
    RecordField column;
    column.title = QStringLiteral("Column");
    column.kind = RecordField::Column;
    column.noneText = QStringLiteral("<Any>");
    column.toolTip = QStringLiteral("The column to match, or any of them.");
    RecordField op;
    op.title = QStringLiteral("Matches");
    op.kind = RecordField::Choice;
    op.choices = MatchOperators::labels();
    op.toolTip = QStringLiteral("The match operation.");
    RecordField value;
    value.title = QStringLiteral("Value");
    value.toolTip = QStringLiteral(
        "The value to match.\nYou can use column variables. e.g. $(1) to reference the first "
        "column value.\nSee 'Column variables' in the help.");
    value.fault = [](const Record &record) { return matchFault(record.at(1).toInt(), record.at(2).toString()); };
    setFields({column, op, value}, recordOf(FilterTerm()));
    setEmptyText(QStringLiteral("Add filter terms"));
}

QString FilterColumnsTableWidget::matchFault(int op, const QString &text)
{
    const auto match = static_cast<MatchOperator>(op);
    const bool isExpression = match == MatchOperator::MatchesRegex || match == MatchOperator::DoesntMatchRegex;
    return isExpression ? OptionChecks::expression(text) : QString();
}

RecordTableWidget::Record FilterColumnsTableWidget::recordOf(const FilterTerm &term)
{
    return {QVariant::fromValue(term.column), term.op, term.text};
}

FilterTerm FilterColumnsTableWidget::termOf(const Record &record)
{
    FilterTerm term;
    term.column = record.at(0).value<ColumnId>();
    term.op = record.at(1).toInt();
    term.text = record.at(2).toString();
    return term;
}
