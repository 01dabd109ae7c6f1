#include "panes/editors/replacetablewidget.h"

#include "transforms/format/replacechain.h"
#include "transforms/options/optionchecks.h"
#include "transforms/options/records.h"

ReplaceTableWidget::ReplaceTableWidget(QWidget *parent)
    : RecordTableWidget(parent)
{
    const QString variables = QStringLiteral("\nYou can use column variables. e.g. $(1) to reference the first column "
                                             "value.\nSee 'Column variables' in the help.");
    RecordField type;
    type.title = QStringLiteral("Match Type");
    type.kind = RecordField::Choice;
    type.toolTip = QStringLiteral("The match type.");
    type.choices = QStringList{QStringLiteral("Text"), QStringLiteral("Exact text"), QStringLiteral("Regex"),
        QStringLiteral("Empty"), QStringLiteral("Letters"), QStringLiteral("Digits"), QStringLiteral("Punctuation"),
        QStringLiteral("Symbols"), QStringLiteral("Whitespace"), QStringLiteral("Currency"),
        QStringLiteral("Non-ASCII")};
    RecordField find;
    find.title = QStringLiteral("Replace");
    find.toolTip = QStringLiteral("The value to replace.") + variables;
    find.fault = [](const Record &record) {
        return record.at(0).toInt() == ReplaceMode::Regex ? OptionChecks::expression(record.at(1).toString())
                                                          : QString();
    };
    RecordField replace;
    replace.title = QStringLiteral("With");
    replace.toolTip = QStringLiteral("The value to replace it with.") + variables;
    setFields({type, find, replace}, recordOf(ReplaceTerm()));
    setEmptyText(QStringLiteral("Add replace terms"));
}

RecordTableWidget::Record ReplaceTableWidget::recordOf(const ReplaceTerm &term)
{
    return {term.mode, term.find, term.replace};
}

ReplaceTerm ReplaceTableWidget::termOf(const Record &record)
{
    ReplaceTerm term;
    term.mode = record.at(0).toInt();
    term.find = record.at(1).toString();
    term.replace = record.at(2).toString();
    return term;
}

RecordTableWidget::Record ReplaceTableWidget::recordOf(const QStringList &cells) const
{
    constexpr int withoutType = 2;
    const bool hasType = cells.size() > withoutType || fields().first().choices.contains(cells.first());
    return RecordTableWidget::recordOf(
        hasType && cells.size() != 1 ? cells : QStringList(fields().first().choices.first()) + cells);
}
