#include "data/matchoperator.h"
#include "support/grid.h"
#include "support/runon.h"
#include "transforms/options/records.h"
#include "transforms/options/verifyrules.h"

#include <gtest/gtest.h>

namespace {

const QString hardPattern = QStringLiteral("^(a|aa)+$");
constexpr int matchesRegex = static_cast<int>(MatchOperator::MatchesRegex);
constexpr int regexRule = 20;

struct HardCase
{
    const char *kind;
    OptionSettings options;
    int givenUp; ///< values
};

QVariant filterBy(const QString &pattern)
{
    return QVariant::fromValue(FilterRecord{true, true, {FilterTerm{ColumnId(1, 1), matchesRegex, pattern}}});
}

QVariant ifBy(const QString &pattern)
{
    IfBranch branch;
    branch.conditions = {FilterTerm{ColumnId(1, 1), matchesRegex, pattern}};
    branch.thenText = QStringLiteral("yes");
    return QVariant::fromValue(IfRecord{{branch}, QStringLiteral("no")});
}

QVariant splitBy(const QString &pattern)
{
    SplitRowsRecord record;
    record.mode = SplitRowsRecord::ByMatchingNames;
    record.op = matchesRegex;
    record.text = pattern;
    return QVariant::fromValue(record);
}

QVariant verifyBy(const QString &pattern)
{
    VerifyColumn rules;
    rules.rules.append(VerifyRule{regexRule, pattern, VerifyRule::Warning, true});
    VerifyRuleSet set;
    set.columns.insert(ColumnId(1, 1), rules);
    return QVariant::fromValue(set);
}

TEST(HardRegex, EachKindGivesUpHardValuesAndSaysSo)
{
    const QString hard = QString(60, QLatin1Char('a'));
    const QString operation = MatchOperators::labels().at(matchesRegex);
    Dataset table = column({hard + "1!", "aa", hard + "2!"});
    table.appendColumn(table.column(ColumnIndex(0)), hard + "3!", ColumnId(1, 2));
    const Dataset patterns = column(QStringList{hardPattern});
    const HardCase cases[] = {
        {"Replace_Multi", {{"Columns", 1}, {"Replace", QVariant::fromValue(QList<ReplaceTerm>{{2, hardPattern, "x"}})}},
            2},
        {"Extract", {{"Columns", 1}, {"Using", "Regex"}, {"Matching", hardPattern}}, 2},
        {"Split", {{"Columns", 1}, {"Delimiter_Type", "Regex delimiter"}, {"Delimiter", hardPattern}}, 2},
        {"List", {{"Column", 1}, {"Delimiter_Type", "Regex delimiter"}, {"Delimiter", hardPattern}}, 2},
        {"Filter", {{"Columns", filterBy(hardPattern)}}, 2},
        {"If", {{"If", ifBy(hardPattern)}}, 2},
        {"Slice",
            {{"To_Mode", "Last row where"}, {"To_Column", 1}, {"To_Operation", operation}, {"To_Value", hardPattern}},
            1},
        {"New_Rows",
            {{"Number_Const_Name", 1}, {"For_Name", "Rows where"}, {"Match_Column_Name", 1},
                {"Match_Type_Name", operation}, {"Match_Value_Name", hardPattern}},
            2},
        {"Concat_Rows", {{"Mode", "Variable"}, {"Matches", operation}, {"Value", hardPattern}}, 4},
        {"Split_Rows", {{"Split_Rows", splitBy(hardPattern)}}, 1},
        {"Verify", {{"Rules", verifyBy(hardPattern)}}, 2},
        {"Lookup",
            {{"Top_Lookup_Column", 1}, {"Bottom_Lookup_Column", 1}, {"Bottom_Value_Column", 1},
                {"Match_Type", "Top matches bottom regex"}},
            2},
    };
    for (const HardCase &c : cases) {
        SCOPED_TRACE(c.kind);
        QVector<Dataset> inputs{table};
        if (QString(c.kind) == "Lookup") {
            inputs.append(patterns);
        }
        const QStringList warnings = runTransform(c.kind, c.options, inputs).warnings();
        const QString values = c.givenUp == 1 ? "1 value" : QString("%1 values").arg(c.givenUp);
        const QStringList told = warnings.filter("too complex");
        EXPECT_EQ(told.size(), 1) << warnings.join("; ").toStdString();
        EXPECT_TRUE(told.value(0).startsWith(
            QString("Regular expression '%1' is too complex for %2, treated as not matching. E.g. '")
                .arg(hardPattern, values)))
            << told.value(0).toStdString();
    }
}

} // namespace
