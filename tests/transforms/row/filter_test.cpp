#include "data/matchoperator.h"
#include "support/grid.h"
#include "support/randomtext.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "transforms/options/records.h"

#include <gtest/gtest.h>

namespace {

enum Op {
    Contains,
    Equal,
    Starts,
    Ends,
    Greater,
    Less,
    GreaterEqual,
    LessEqual,
    Regex,
    NotContains,
    NotEqual,
    Fuzzy80 = 15,
    Empty = 19,
    NotEmpty = 20
};
constexpr bool matchingAll = true;
constexpr bool matchingAny = false;

FilterTerm term(int column, int op, const QString &text)
{
    return {column > 0 ? ColumnId(1, column) : ColumnId(), op, text};
}

TransformRun filtered(const FilterRecord &record, const Dataset &input, const OptionSettings &more = {})
{
    OptionSettings options{{"Columns", QVariant::fromValue(record)}};
    return runTransform("Filter", options + more, {input});
}

TEST(TransformFilter, KeepsRowsByTheirTerms)
{
    const Dataset input = grid({"name|city|price|day|limit", "Ann|Ulm|10|1/2/2023|9", "Bob||9|12/1/2023|9",
        "Cleo|Köln|$1,000.50|3/4/2022|2000", "ann|Bonn|||5"});
    const struct
    {
        const char *what;
        FilterRecord record;
        QString rows; // their names
        QString text;
    } cases[] = {
        {"the default record asks for nothing", {}, "Ann Bob Cleo ann", "No changes"},
        {"nor does a term without text", {true, true, {term(1, Contains, "")}}, "Ann Bob Cleo ann", "No changes"},
        {"removing by nothing keeps everything", {false, true, {term(1, Contains, "")}}, "Ann Bob Cleo ann",
            "No changes"},
        {"no terms at all", {false, true, {}}, "Ann Bob Cleo ann", "No changes"},
        {"contains", {true, true, {term(1, Contains, "nn")}}, "Ann ann", "2 rows removed"},
        {"removes instead", {false, true, {term(1, Contains, "nn")}}, "Bob Cleo", "2 rows removed"},
        {"an operator that needs no text", {true, true, {term(2, Empty, "")}}, "Bob", "3 rows removed"},
        {"its opposite", {true, true, {term(2, NotEmpty, "")}}, "Ann Cleo ann", "1 row removed"},
        {"equal to no text", {true, true, {term(3, Equal, "")}}, "ann", "3 rows removed"},
        {"numbers by value", {true, true, {term(3, Greater, "9")}}, "Ann Cleo", "2 rows removed"},
        {"dates by day", {true, true, {term(4, Greater, "5/6/2022")}}, "Ann Bob", "2 rows removed"},
        {"both terms", {true, matchingAll, {term(1, Contains, "nn"), term(3, Equal, "10")}}, "Ann", "3 rows removed"},
        {"either term", {true, matchingAny, {term(1, Equal, "Bob"), term(3, Equal, "10")}}, "Ann Bob",
            "2 rows removed"},
        {"an inactive term is left out of all", {true, matchingAll, {term(1, Contains, ""), term(3, Equal, "10")}},
            "Ann", "3 rows removed"},
        {"and of any", {true, matchingAny, {term(1, Contains, ""), term(3, Equal, "10")}}, "Ann", "3 rows removed"},
        {"any column", {true, true, {term(0, Equal, "9")}}, "Ann Bob", "2 rows removed"},
        {"any column that lacks the text", {true, true, {term(0, NotContains, "n")}}, "Ann Bob Cleo ann", "No changes"},
        {"a column that has gone fails", {true, true, {term(7, Equal, "9")}}, "", "4 rows removed"},
        {"and so do all terms with it", {true, true, {term(7, Equal, "9"), term(1, Contains, "n")}}, "",
            "4 rows removed"},
        {"but not any of them", {true, matchingAny, {term(7, Equal, "9"), term(1, Contains, "B")}}, "Bob",
            "3 rows removed"},
        {"another column's value", {true, true, {term(3, Greater, "$(limit)")}}, "Ann", "3 rows removed"},
        {"by its number", {true, true, {term(3, Equal, "$(5)")}}, "Bob", "3 rows removed"},
        {"a regular expression", {true, true, {term(1, Regex, "^[AB]")}}, "Ann Bob", "2 rows removed"},
        {"one with another column's value", {true, true, {term(2, Regex, "n+$|$(1)")}}, "Cleo ann", "2 rows removed"},
        {"fuzzy", {true, true, {term(1, Fuzzy80, "Cleox")}}, "Cleo", "3 rows removed"},
        {"an unknown operator holds nowhere", {true, true, {term(1, 40, "Ann")}}, "", "4 rows removed"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = filtered(c.record, input);
        EXPECT_EQ(run.result.columnValues(ColumnIndex(0)).join(' '), c.rows);
        EXPECT_EQ(run.resultText(), c.text);
        EXPECT_EQ(run.result.header(), input.header());
        EXPECT_EQ(run.result.columnId(ColumnIndex(1)), ColumnId(1, 2));
    }
}

TEST(TransformFilter, IgnoresCaseWhenTold)
{
    const Dataset input = column({"Ann", "ANNA", "Bob"});
    const FilterRecord record{true, true, {term(1, Starts, "ann")}};
    EXPECT_EQ(rows(filtered(record, input).result), QStringList());
    EXPECT_EQ(rows(filtered(record, input, {{"Case_Sensitive", false}}).result), (QStringList{"Ann", "ANNA"}));
}

TEST(TransformFilter, CanBeDisabled)
{
    const Dataset input = column({"Ann", "Bob"});
    const TransformRun run = filtered({true, true, {term(1, Equal, "Ann")}}, input, {{"Disable", true}});
    EXPECT_EQ(rows(run.result), (QStringList{"Ann", "Bob"}));
    EXPECT_EQ(run.warnings(), QStringList("Filtering is disabled"));
    EXPECT_EQ(run.resultText(), "No changes");
    for (const auto &state : run.transform->parameterStates()) {
        EXPECT_EQ(state.second, state.first == "Disable") << qPrintable(state.first);
    }
}

TEST(TransformFilter, ReportsEveryThousandRows)
{
    Dataset input = column(QStringList());
    for (int i = 0; i < 2001; ++i) {
        input.appendRow({QString::number(i % 7)});
    }
    const TransformRun run = filtered({true, true, {term(1, Equal, "3")}}, input);
    EXPECT_EQ(run.progress, (QVector<qreal>{0, 1000.0 / 2001, 2000.0 / 2001}));
    EXPECT_EQ(run.resultText(), "1,715 rows removed");
    EXPECT_TRUE(filtered({true, true, {term(1, Equal, "3")}}, column(QStringList())).progress.isEmpty());
}

TEST(TransformFilter, AgreesWithTestingEachCell)
{
    RandomText random(11);
    for (int round = 0; round < 60; ++round) {
        Dataset input = grid({"a|b"});
        const QString dates[] = {"%1/2/2023", "%1", "$%1", "%1/13/2023", "x%1"};
        const int dirt = round % 3 == 0 ? 5 : round % 3;
        for (int row = 0; row < 70; ++row) {
            input.appendRow({dates[random.below(qMax(1, dirt))].arg(1 + random.below(12)), random.text(5)});
        }
        const int op = random.below(MatchOperators::count);
        const int column = random.below(3);
        const bool caseSensitive = random.chance(50);
        const QString text = random.chance(40)   ? input.value(RowIndex(random.below(70)), ColumnIndex(random.below(2)))
                             : random.chance(30) ? QStringLiteral("$(b)")
                                                 : QStringLiteral("7/2/2023");
        QString format;
        const bool isDate = input.isColumnDate(ColumnIndex(0), {"M/d/yyyy", "d/M/yyyy"}, &format, 50);
        QStringList expected;
        for (int row = 0; row < 70; ++row) {
            const QStringList cells = input.row(RowIndex(row));
            const QString expanded = text == "$(b)" ? cells.at(1) : text;
            const QString firstFormat = isDate ? format : QString();
            const bool first = matchValue(op, cells.at(0), expanded, firstFormat, firstFormat, caseSensitive);
            const bool second = matchValue(op, cells.at(1), expanded, QString(), QString(), caseSensitive);
            if (column == 0 ? first || second : column == 1 ? first : second) {
                expected.append(cells.join('|'));
            }
        }
        if (text.isEmpty() && !MatchOperators::worksWithEmptyText(op)) {
            continue;
        }
        const TransformRun run = filtered(
            {true, true, {term(column, op, text)}}, input, {{"Case_Sensitive", caseSensitive}});
        EXPECT_EQ(rows(run.result), expected) << "operator " << op << " with " << qPrintable(text);
    }
}

} // namespace
