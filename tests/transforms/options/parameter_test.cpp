#include "support/fakesource.h"
#include "support/grid.h"
#include "support/scopedlocale.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

namespace {

const ColumnId a(1, 1);
const ColumnId b(1, 2);
const ColumnId c(1, 3);
const ColumnId d(1, 4);
const ColumnId gone(9, 1);

QVariant ids(const QList<ColumnId> &list)
{
    return QVariant::fromValue(list);
}

QVariant sortEntries(const QList<SortColumn> &list)
{
    return QVariant::fromValue(list);
}

QVariant terms(const QList<FilterTerm> &list)
{
    FilterRecord record;
    record.terms = list;
    return QVariant::fromValue(record);
}

QVariant branches(const QList<IfBranch> &list)
{
    IfRecord record;
    record.branches = list;
    return QVariant::fromValue(record);
}

QVariant split(int mode, ColumnId column, const QString &text, int times = 1)
{
    SplitRowsRecord record;
    record.mode = mode;
    record.startColumn = column;
    record.text = text;
    record.times = times;
    return QVariant::fromValue(record);
}

QVariant codes(const QHash<ColumnId, int> &map)
{
    return QVariant::fromValue(map);
}

QVariant replaceTerms(const QList<ReplaceTerm> &list)
{
    return QVariant::fromValue(list);
}

} // namespace

TEST(Parameter, TellsWhenItIsUnset)
{
    struct Case
    {
        const char *what;
        Parameter::Kind kind;
        QVariant value;
        bool unset;
    };
    const Case cases[] = {
        {"no column", Parameter::SingleColumn, QVariant(), true},
        {"a column that has gone", Parameter::SingleColumn, QVariant::fromValue(gone), true},
        {"a column", Parameter::SingleColumn, QVariant::fromValue(a), false},
        {"no columns", Parameter::MultipleColumns, ids({}), true},
        {"one of the columns has gone", Parameter::MultipleColumns, ids({a, gone}), false},
        {"all columns have gone", Parameter::MultipleColumns, ids({gone}), true},
        {"no column of a list", Parameter::MultipleColumns, ids({ColumnId()}), true},
        {"columns", Parameter::MultipleColumns, ids({a}), false},
        {"no sort columns", Parameter::SortColumns, QVariant(), true},
        {"sort columns", Parameter::SortColumns, sortEntries({{a, true}}), false},
        {"no pivot columns", Parameter::PivotColumns, sortEntries({}), true},
        {"no term", Parameter::FilterColumns, terms({}), true},
        {"a term on any column", Parameter::FilterColumns, terms({FilterTerm()}), false},
        {"a term on a column that has gone", Parameter::FilterColumns, terms({{gone, 1, "x"}}), true},
        {"one of two terms on a column that has gone", Parameter::FilterColumns, terms({{gone, 1, "x"}, {a, 1, "x"}}),
            false},
        {"sort columns that have gone", Parameter::SortColumns, sortEntries({{gone, true}}), true},
        {"no branch", Parameter::If, branches({}), true},
        {"an empty branch", Parameter::If, branches({IfBranch()}), false},
        {"any order of columns", Parameter::ReorderColumns, ids({}), false},
        {"no removed columns", Parameter::RemoveColumns, ids({gone}), false},
        {"a flag", Parameter::Bool, false, false},
        {"an empty text", Parameter::Text, "", true},
        {"a blank text", Parameter::Text, " ", false},
        {"an empty long text", Parameter::LongText, "", true},
        {"a blank script", Parameter::Script, " \n", true},
        {"a script", Parameter::Script, "x", false},
        {"the number 0", Parameter::Int, 0, false},
        {"no character", Parameter::Char, QChar(), true},
        {"a blank", Parameter::Char, QChar(' '), false},
        {"no new names", Parameter::RenameColumns, QVariant(), false},
        {"rows split by names that match nothing", Parameter::SplitRows, split(0, ColumnId(), ""), true},
        {"rows split by matching names", Parameter::SplitRows, split(0, ColumnId(), "x"), false},
        {"rows split automatically", Parameter::SplitRows, split(1, ColumnId(), ""), false},
        {"rows split from no column", Parameter::SplitRows, split(2, ColumnId(), "x"), true},
        {"rows split from a column that has gone", Parameter::SplitRows, split(2, gone, ""), true},
        {"rows split from a column", Parameter::SplitRows, split(2, b, ""), false},
        {"no key column", Parameter::UniqueColumns, codes({{a, 1}, {b, 3}}), true},
        {"a key column that has gone", Parameter::UniqueColumns, codes({{gone, 0}, {b, 3}}), true},
        {"a key column", Parameter::UniqueColumns, codes({{a, 1}, {b, 0}}), false},
        {"no replace term", Parameter::ReplaceTerms, replaceTerms({}), true},
        {"a replace term", Parameter::ReplaceTerms, replaceTerms({ReplaceTerm()}), false},
        {"a real", Parameter::Real, 0.0, false},
        {"no rules", Parameter::VerifyRules, QVariant(), false},
        {"a caption", Parameter::Label, QVariant(), false},
        {"no date", Parameter::Date, QVariant(), false},
        {"no locale", Parameter::Locale, QVariant(), false},
    };
    FakeSource source(grid({"a|b|c"}));
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        Parameter parameter(c.kind, "Key", "label", c.value);
        parameter.setNode(&source);
        EXPECT_EQ(parameter.isUnset(), c.unset);
    }
}

TEST(Parameter, LetsOptionsBeOptional)
{
    FakeSource source(grid({"a|b"}));
    Parameter column(Parameter::SingleColumn, "Key", "label", &source);
    column.setColumnRequired(false);
    column.setNoneText("<Any>");
    column.fromDocumentText("0", 86);
    EXPECT_FALSE(column.isUnset());
    EXPECT_EQ(column.summary(), "<Any>");

    Parameter text(Parameter::Text, "Key", "label", "");
    text.setTextRequired(false);
    EXPECT_FALSE(text.isUnset());

    Parameter number(Parameter::Int, "Key", "label", QVariant(0));
    number.setNonZeroRequired(true);
    EXPECT_TRUE(number.isUnset());
    number.setValue(-1);
    EXPECT_FALSE(number.isUnset());

    Parameter choice(Parameter::Selection, "Key", "label", "Choose", {"Choose", "A"});
    EXPECT_FALSE(choice.isUnset());
    choice.setFirstChoiceIsUnset(true);
    EXPECT_TRUE(choice.isUnset());
    choice.setValue("B");
    EXPECT_EQ(choice.toSelectionIndex(), 0);
    EXPECT_TRUE(choice.isUnset());
    choice.setValue("A");
    EXPECT_FALSE(choice.isUnset());
}

TEST(Parameter, SumsItsValueUp)
{
    struct Case
    {
        const char *what;
        Parameter::Kind kind;
        QVariant value;
        QString summary;
    };
    const Case cases[] = {
        {"a column", Parameter::SingleColumn, QVariant::fromValue(b), "b"},
        {"none", Parameter::SingleColumn, QVariant(), "<None selected>"},
        {"one that has gone", Parameter::SingleColumn, QVariant::fromValue(gone), "<None selected>"},
        {"columns, at most three", Parameter::MultipleColumns, ids({a, b, c, d}), "a, b, c, ..."},
        {"sort columns with arrows", Parameter::SortColumns, sortEntries({{a, true}, {b, false}}),
            "2 column(s) (▲a, ▼b)"},
        {"more than three of them", Parameter::SortColumns, sortEntries({{a, true}, {b, true}, {c, true}, {d, true}}),
            "4 column(s) (▲a, ▲b, ▲c, ...)"},
        {"no sort columns", Parameter::PivotColumns, sortEntries({}), "0 column(s)"},
        {"terms", Parameter::FilterColumns, terms({FilterTerm(), FilterTerm()}), "2 term(s)"},
        {"an order of columns", Parameter::ReorderColumns, ids({b, a}), "b, a"},
        {"checked", Parameter::Bool, true, "Yes"},
        {"not checked", Parameter::Bool, false, "No"},
        {"a choice", Parameter::Selection, "Left", "Left"},
        {"a text", Parameter::Text, "a b", "a b"},
        {"a grouped number", Parameter::Int, 1234567, "1,234,567"},
        {"a space", Parameter::Char, QChar(' '), "<Space>"},
        {"a tab", Parameter::Char, QChar('\t'), "<Tab>"},
        {"a character", Parameter::Char, QChar('0'), "0"},
        {"branches", Parameter::If, branches({IfBranch(), IfBranch()}), "2 if/elseif + else"},
        {"removed columns", Parameter::RemoveColumns, ids({a}), "a"},
        {"a script", Parameter::Script, "return 1", "return 1"},
        {"new names", Parameter::RenameColumns, QVariant::fromValue(QHash<ColumnId, QString>{{a, "x"}}),
            "1 column(s) renamed"},
        {"split by matching names", Parameter::SplitRows, split(0, ColumnId(), "x"), "By matching column names"},
        {"split automatically", Parameter::SplitRows, split(1, ColumnId(), ""), "Automatically by column names"},
        {"split once", Parameter::SplitRows, split(2, a, "", 1), "1 time"},
        {"split more than once", Parameter::SplitRows, split(2, a, "", 3), "every 2 column(s), 3 times"},
        {"key columns", Parameter::UniqueColumns, codes({{a, 0}, {b, 1}, {c, 0}}), "2 unique column(s)"},
        {"replace terms", Parameter::ReplaceTerms, replaceTerms({ReplaceTerm()}), "1 term(s)"},
        {"a real", Parameter::Real, 1234.5, "1234.5"},
        {"a long text", Parameter::LongText, "a\nb", "a\nb"},
        {"rules", Parameter::VerifyRules, QVariant(), "0 dataset rule(s) and 0 column rule(s)."},
        {"a caption", Parameter::Label, QVariant(), ""},
        {"a date", Parameter::Date, QDate(2024, 3, 1), "Friday, March 1, 2024"},
        {"no date", Parameter::Date, QVariant(), "Saturday, January 1, 2000"},
        {"a locale", Parameter::Locale, QLocale(QLocale::German, QLocale::Austria), "German/Austria"},
    };
    FakeSource source(grid({"a|b|c|d"}));
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        Parameter parameter(c.kind, "Key", "label", c.value);
        parameter.setNode(&source);
        EXPECT_EQ(parameter.summary(), c.summary);
    }
}

TEST(Parameter, GivesColumnNumbersByTheTableOfNow)
{
    FakeSource source(grid({"a|b|c"}));
    Parameter columns(Parameter::MultipleColumns, "Key", "label", &source);
    columns.setValue(ids({c, gone, a}));
    EXPECT_EQ(columns.toColumnNumbers(false), (QList<ColumnNumber>{ColumnNumber(3), ColumnNumber(1)}));
    EXPECT_EQ(columns.toColumnNumbers(true), (QList<ColumnNumber>{ColumnNumber(1), ColumnNumber(3)}));
    EXPECT_EQ(columns.columnNamesFor({c, gone, a}), (QStringList{"c", "a"}));

    source.dataset().removeColumn(ColumnIndex(0));
    EXPECT_EQ(columns.toColumnNumbers(true), (QList<ColumnNumber>{ColumnNumber(2)}));
    columns.clearNode();
    EXPECT_EQ(columns.toColumnNumbers(true), QList<ColumnNumber>());
}

TEST(Parameter, ReadsNullValuesAsDefaults)
{
    const ScopedLocale german("de_DE");
    EXPECT_EQ(Parameter(Parameter::Locale, "Key", "label").toLocale(), QLocale("de_DE"));
    EXPECT_EQ(Parameter(Parameter::SingleColumn, "Key", "label").toColumnNumber(), ColumnNumber());
    EXPECT_EQ(Parameter(Parameter::FilterColumns, "Key", "label", nullptr).toFilterTerms(), FilterRecord());
    EXPECT_EQ(Parameter(Parameter::If, "Key", "label", nullptr).toIfBranches().branches.size(), 1);
}

TEST(Parameter, PreselectsColumns)
{
    FakeSource one(grid({"a"}));
    FakeSource two(grid({"a|b"}));
    struct Case
    {
        const char *what;
        Parameter::Kind kind;
        DataSource *source;
        QVariant chosen;
    };
    const Case cases[] = {
        {"the only column", Parameter::SingleColumn, &one, QVariant::fromValue(a)},
        {"in a list", Parameter::MultipleColumns, &one, ids({a})},
        {"not of two", Parameter::MultipleColumns, &two, QVariant()},
        {"not without an input", Parameter::SingleColumn, nullptr, QVariant()},
        {"not in other kinds", Parameter::ReorderColumns, &one, QVariant()},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        Parameter parameter(c.kind, "Key", "label", c.source);
        parameter.preselectSingleColumn();
        EXPECT_EQ(parameter.value(), c.chosen);
    }
    Parameter removed(Parameter::RemoveColumns, "Key", "label", &two);
    removed.selectAllColumns();
    EXPECT_EQ(removed.value(), ids({a, b}));
}

TEST(Parameter, TakesOnlySensibleDefaultsOfTheUser)
{
    struct Case
    {
        const char *what;
        Parameter::Kind kind;
        QVariant before;
        QVariant saved;
        QVariant after;
    };
    const Case cases[] = {
        {"a flag as a settings file gives it back", Parameter::Bool, false, "true", true},
        {"a number as text", Parameter::Int, 5, "7", 7},
        {"a number beyond the limits", Parameter::Int, 5, -3, 0},
        {"no number", Parameter::Int, 5, "x", 5},
        {"a real", Parameter::Real, 1.0, "2.5", 2.5},
        {"a real that isn't one", Parameter::Real, 1.0, "nan", 1.0},
        {"a choice", Parameter::Selection, "A", "B", "B"},
        {"a choice that is no more", Parameter::Selection, "A", "C", "A"},
        {"a text", Parameter::Text, "a", "b", "b"},
        {"a character", Parameter::Char, QChar('0'), QChar('x'), QChar('x')},
        {"a character as text", Parameter::Char, QChar('0'), "x", QChar('x')},
        {"no character", Parameter::Char, QChar('0'), "", QChar('0')},
        {"a date", Parameter::Date, QDate(2000, 1, 1), QDate(2024, 1, 1), QDate(2024, 1, 1)},
        {"no date", Parameter::Date, QDate(2000, 1, 1), "x", QDate(2000, 1, 1)},
        {"a locale", Parameter::Locale, QVariant(), QLocale("fr"), QLocale("fr")},
        {"terms", Parameter::ReplaceTerms, replaceTerms({}), replaceTerms({{1, "a", "b"}}),
            replaceTerms({{1, "a", "b"}})},
        {"something else for terms", Parameter::ReplaceTerms, replaceTerms({}), 3, replaceTerms({})},
        {"nothing", Parameter::Text, "a", QVariant(), "a"},
        {"columns have none", Parameter::SingleColumn, QVariant::fromValue(a), QVariant::fromValue(b),
            QVariant::fromValue(a)},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        Parameter parameter(c.kind, "Key", "label", c.before, {"A", "B"});
        EXPECT_EQ(parameter.setUserDefault(c.saved), c.before != c.after);
        EXPECT_EQ(parameter.value(), c.after);
    }
}
