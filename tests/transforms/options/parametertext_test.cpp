#include "support/fakesource.h"
#include "support/grid.h"
#include "transforms/options/parameter.h"

#include <QUrl>
#include <gtest/gtest.h>
#include <limits>
#include <memory>

namespace {

constexpr int currentVersion = 86;

/// "|" stands for the separator.
QString stored(QString text)
{
    return text.replace('|', QChar(0x1F));
}

/// What the document's reader hands over.
QString decoded(const QString &storedText)
{
    return QUrl::fromPercentEncoding(storedText.toLatin1());
}

QVariant ids(const QList<ColumnId> &list)
{
    return QVariant::fromValue(list);
}

const ColumnId a(1, 1);
const ColumnId b(1, 2);
const ColumnId c(1, 3);
const ColumnId gone(9, 1);

QVariant sortEntries(const QList<SortColumn> &list)
{
    return QVariant::fromValue(list);
}

QVariant filter(bool keep, bool all, const QList<FilterTerm> &terms)
{
    FilterRecord record;
    record.keep = keep;
    record.matchAll = all;
    record.terms = terms;
    return QVariant::fromValue(record);
}

QVariant branches(const QList<IfBranch> &list, const QString &elseText)
{
    IfRecord record;
    record.branches = list;
    record.elseText = elseText;
    return QVariant::fromValue(record);
}

QVariant splitRecord()
{
    SplitRowsRecord record;
    record.mode = SplitRowsRecord::EveryColumns;
    record.times = 3;
    record.every = 4;
    record.startColumn = b;
    record.op = 8;
    record.text = "^x";
    return QVariant::fromValue(record);
}

QVariant verifyRules()
{
    VerifyRuleSet rules;
    rules.datasetRules = {{3, 10, VerifyRule::Error, true}};
    rules.columns.insert(b, {VerifyColumn::Real, {{10, 99.5, VerifyRule::Warning, true}}});
    return QVariant::fromValue(rules);
}

struct StoredCase
{
    const char *what;
    Parameter::Kind kind;
    QVariant value;
    QString text;
};

const QStringList choices{"Left", "Right % ^"};

std::unique_ptr<Parameter> parameterOf(Parameter::Kind kind, DataSource *source)
{
    auto parameter = std::make_unique<Parameter>(
        kind, "Key", "label", QVariant(), kind == Parameter::Selection ? choices : QStringList());
    if (parameter->dependsOnColumns()) {
        parameter->setNode(source, true);
    }
    return parameter;
}

std::vector<StoredCase> storedCases()
{
    return {
        {"a column by its number", Parameter::SingleColumn, QVariant::fromValue(b), "2"},
        {"no column", Parameter::SingleColumn, QVariant::fromValue(ColumnId()), "0"},
        {"columns in their order", Parameter::MultipleColumns, ids({c, a}), "3|1"},
        {"no columns", Parameter::MultipleColumns, ids({}), ""},
        {"sort columns, descending negative", Parameter::SortColumns, sortEntries({{b, false}, {a, true}}), "-2|1"},
        {"pivot columns", Parameter::PivotColumns, sortEntries({{c, true}}), "3"},
        {"filter terms, any column as 0", Parameter::FilterColumns,
            filter(false, true, {{ColumnId(), 0, "a|^%"}, {b, 20, ""}}), "0|1|0|0|a%7C%5E%25|2|20|"},
        {"a filter without terms", Parameter::FilterColumns, filter(true, false, {}), "1|0"},
        {"order of columns", Parameter::ReorderColumns, ids({c, b, a}), "3|2|1"},
        {"on", Parameter::Bool, true, "1"},
        {"off", Parameter::Bool, false, "0"},
        {"a choice by its text", Parameter::Selection, "Right % ^", "Right%20%25%20%5E"},
        {"text", Parameter::Text, QString("a^b\n€%41"), "a%5Eb%0A%E2%82%AC%2541"},
        {"a number", Parameter::Int, -42, "-42"},
        {"a character", Parameter::Char, QChar(' '), "%20"},
        {"no character", Parameter::Char, QChar(), ""},
        {"branches", Parameter::If,
            branches({{{{a, 1, "*EndIf*"}, {ColumnId(), 19, ""}}, "then 1"}, {{{c, 4, "7"}}, ""}}, "e^lse"),
            "*StartIf*|1|1|%2AEndIf%2A|0|19||*EndIf*|then%201|*StartIf*|3|4|7|*EndIf*||e%5Else"},
        {"a lone else-text is no list", Parameter::If, branches({}, "x^y"), "x%5Ey"},
        {"removed columns", Parameter::RemoveColumns, ids({b}), "2"},
        {"a script", Parameter::Script, QString("return $(1) ^ 2;"), "return%20%24%281%29%20%5E%202%3B"},
        {"new names", Parameter::RenameColumns, QVariant::fromValue(QHash<ColumnId, QString>{{a, "x^y"}, {c, "*"}}),
            "x%5Ey|*NORENAME*|%2A"},
        {"where rows are split", Parameter::SplitRows, splitRecord(), "2|3|4|2|8|%5Ex"},
        {"codes of all columns, 1 for those not listed", Parameter::UniqueColumns,
            QVariant::fromValue(QHash<ColumnId, int>{{a, 0}, {b, 1}, {c, 16}}), "0|1|16"},
        {"replace terms", Parameter::ReplaceTerms,
            QVariant::fromValue(QList<ReplaceTerm>{{2, "^a|b$", ""}, {0, " ", "_"}}), "2|%5Ea%7Cb%24||0|%20|_"},
        {"a real with six digits", Parameter::Real, 0.125, "0.125"},
        {"long text", Parameter::LongText, QString("line 1\nline 2"), "line%201%0Aline%202"},
        {"rules of verification", Parameter::VerifyRules, verifyRules(), "1|3|i10|2|1|*Column*|2|2|10|r99.5|1|1"},
        {"a caption has none", Parameter::Label, QVariant(), ""},
        {"a date", Parameter::Date, QDate(2024, 2, 29), "2024-02-29"},
        {"a locale", Parameter::Locale, QLocale("de_AT"), "de-AT"},
    };
}

} // namespace

TEST(ParameterText, StoresAndReadsEveryKind)
{
    FakeSource source(grid({"a|b|c"}));
    for (const StoredCase &c : storedCases()) {
        SCOPED_TRACE(c.what);
        const auto written = parameterOf(c.kind, &source);
        written->setValue(c.value);
        EXPECT_EQ(written->toDocumentText(), stored(c.text));

        const auto read = parameterOf(c.kind, &source);
        read->fromDocumentText(decoded(stored(c.text)), currentVersion);
        EXPECT_EQ(read->value(), c.value);
        EXPECT_EQ(read->toDocumentText(), stored(c.text));
    }
}

TEST(ParameterText, LosesDigitsOfReals)
{
    Parameter real(Parameter::Real, "Key", "label", 1234567.0);
    EXPECT_EQ(real.toDocumentText(), "1.23457e+06");
    real.fromDocumentText("1.23457e+06", currentVersion);
    EXPECT_EQ(real.toReal(), 1234570.0);
}

TEST(ParameterText, LeavesOutColumnsThatAreGone)
{
    struct Case
    {
        const char *what;
        Parameter::Kind kind;
        QVariant value;
        QString text;
    };
    const Case cases[] = {
        {"as no column", Parameter::SingleColumn, QVariant::fromValue(gone), "0"},
        {"from a list", Parameter::MultipleColumns, ids({a, gone, b}), "1|2"},
        {"from sort columns, and those without a column", Parameter::SortColumns,
            sortEntries({{gone, true}, {ColumnId(), true}, {b, false}}), "-2"},
        {"with their new names", Parameter::RenameColumns, QVariant::fromValue(QHash<ColumnId, QString>{{gone, "x"}}),
            "*NORENAME*|*NORENAME*|*NORENAME*"},
        {"but a term must not turn into one on any column", Parameter::FilterColumns,
            filter(true, true, {{gone, 1, "x"}}), "1|1|-1|1|x"},
    };
    FakeSource source(grid({"a|b|c"}));
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const auto parameter = parameterOf(c.kind, &source);
        parameter->setValue(c.value);
        EXPECT_EQ(parameter->toDocumentText(), stored(c.text));
    }
}

TEST(ParameterText, StoresNoRecordsWithoutAnInput)
{
    for (Parameter::Kind kind : {Parameter::FilterColumns, Parameter::If, Parameter::RenameColumns,
             Parameter::UniqueColumns, Parameter::VerifyRules}) {
        SCOPED_TRACE(kind);
        EXPECT_EQ(Parameter(kind, "Key", "label", nullptr).toDocumentText(), QString());
    }
}

TEST(ParameterText, KeepsWhatStandsForBadText)
{
    struct Case
    {
        const char *what;
        Parameter::Kind kind;
        QVariant before;
        QString text;
        QVariant after;
    };
    const QVariant defaultFilter = QVariant::fromValue(FilterRecord());
    const Case cases[] = {
        {"a column that isn't a number", Parameter::SingleColumn, QVariant::fromValue(a), "x", QVariant::fromValue(a)},
        {"a flag that isn't a number", Parameter::Bool, true, "yes", true},
        {"a number that isn't one", Parameter::Int, 5, "five", 5},
        {"a number that doesn't fit", Parameter::Int, 5, "99999999999", 5},
        {"a real that isn't one", Parameter::Real, 2.5, "x", 2.5},
        {"an infinite real", Parameter::Real, 2.5, "inf", 2.5},
        {"an unknown locale", Parameter::Locale, QLocale("de_AT"), "xx", QLocale("de_AT")},
        {"no locale", Parameter::Locale, QVariant(), "", QVariant()},
        {"an unknown choice", Parameter::Selection, "Left", "Top", "Left"},
        {"numbers among the columns that aren't", Parameter::MultipleColumns, ids({}), "1|x|0|-2|3", ids({a, c})},
        {"no filter at all", Parameter::FilterColumns, defaultFilter, "", defaultFilter},
        {"an unknown operator drops the term", Parameter::FilterColumns, defaultFilter, "1|1|1|21|x|2|20|",
            filter(true, true, {{b, 20, ""}})},
        {"half a term", Parameter::FilterColumns, defaultFilter, "1|0|1|2", filter(true, false, {})},
        {"a branch without its end", Parameter::If, QVariant(), "*StartIf*|1|1|x", branches({{{{a, 1, "x"}}, ""}}, "")},
        {"an unknown aggregation", Parameter::UniqueColumns, QVariant(), "0|17|x|4",
            QVariant::fromValue(QHash<ColumnId, int>{{a, 0}, {b, 1}, {c, 1}})},
        {"a term of two parts", Parameter::ReplaceTerms, QVariant(), "0|a|b|1|c",
            QVariant::fromValue(QList<ReplaceTerm>{{0, "a", "b"}})},
        {"an unknown way to split", Parameter::SplitRows, splitRecord(), "7|3|4|2|8|^x", splitRecord()},
        {"rules of a later layout", Parameter::VerifyRules, QVariant(), "2|3|i10|2|1",
            QVariant::fromValue(VerifyRuleSet())},
    };
    FakeSource source(grid({"a|b|c"}));
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const auto parameter = parameterOf(c.kind, &source);
        parameter->setValue(c.before);
        parameter->fromDocumentText(stored(c.text), currentVersion);
        EXPECT_EQ(parameter->value(), c.after);
    }
}

TEST(ParameterText, ReadsOldDocuments)
{
    struct Case
    {
        const char *what;
        Parameter::Kind kind;
        int version;
        QString text;
        QVariant value;
    };
    const Case cases[] = {
        {"parts joined by ^", Parameter::MultipleColumns, 40, "1^3", ids({a, c})},
        {"is empty had number 14", Parameter::FilterColumns, 56, "1^1^1^14^x^2^15^y^3^13^z",
            filter(true, true, {{a, 19, "x"}, {b, 20, "y"}, {c, 13, "z"}})},
        {"no longer from version 57", Parameter::FilterColumns, 57, "1|1|1|14|x", filter(true, true, {{a, 14, "x"}})},
        {"in branches too, but not their texts", Parameter::If, 56, "*StartIf*|1|14|15|*EndIf*|14|15",
            branches({{{{a, 19, "15"}}, "14"}}, "15")},
    };
    FakeSource source(grid({"a|b|c"}));
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const auto parameter = parameterOf(c.kind, &source);
        parameter->fromDocumentText(stored(c.text), c.version);
        EXPECT_EQ(parameter->value(), c.value);
    }
}

TEST(ParameterText, ReadsTheOnlyNewNameWhole)
{
    FakeSource source(grid({"a"}));
    const auto parameter = parameterOf(Parameter::RenameColumns, &source);
    parameter->fromDocumentText("x^y", currentVersion);
    EXPECT_EQ(parameter->toRenames(), (QHash<ColumnId, QString>{{a, "x^y"}}));
}

TEST(ParameterText, KeepsNumbersOfColumnsThatTheTableLacks)
{
    struct Case
    {
        const char *what;
        Parameter::Kind kind;
        QString text;
        bool unset;
    };
    const Case cases[] = {
        {"one column", Parameter::SingleColumn, "7", true},
        {"one of several", Parameter::MultipleColumns, "1|7", false},
        {"descending", Parameter::SortColumns, "-7|2", false},
        {"in a term", Parameter::FilterColumns, "1|1|7|1|x", true},
        {"in a branch", Parameter::If, "*StartIf*|7|1|x|*EndIf*|then|else", true},
    };
    FakeSource source(grid({"a|b|c"}));
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const auto parameter = parameterOf(c.kind, &source);
        parameter->fromDocumentText(stored(c.text), currentVersion);
        EXPECT_EQ(parameter->isUnset(), c.unset);
        const QString lost = QStringLiteral("Column 7 of '%1' has gone").arg(parameter->label());
        EXPECT_EQ(parameter->lostColumnWarnings(), c.unset ? QStringList() : QStringList(lost));
        EXPECT_FALSE(parameter->referencedColumns().contains(ColumnId()));
        EXPECT_EQ(parameter->toDocumentText(), stored(c.text));
    }
}

TEST(ParameterText, ReadsDatesOutOfRangeAs2000)
{
    Parameter date(Parameter::Date, "Key", "label", QDate(2024, 1, 1));
    date.fromDocumentText("-9999999-01-01", currentVersion);
    EXPECT_EQ(date.toDate(), QDate(2000, 1, 1));
    EXPECT_EQ(date.toDocumentText(), "2000-01-01");
    date.setValue(QDate::fromJulianDay(std::numeric_limits<qint64>::min() / 2));
    EXPECT_EQ(date.toDate(), QDate(2000, 1, 1));
}

TEST(ParameterText, WaitsForItsColumns)
{
    FakeSource source(grid({"a|b|c"}));
    source.setReady(false);
    Parameter columns(Parameter::MultipleColumns, "Key", "label", &source);
    columns.setDeferredText(stored("3|1"), currentVersion);
    EXPECT_EQ(columns.summary(), "Needs updating");
    columns.resolveDeferred();
    EXPECT_TRUE(columns.hasDeferredText());
    EXPECT_EQ(columns.toDocumentText(), stored("3|1"));

    source.setReady(true);
    columns.resolveDeferred();
    EXPECT_FALSE(columns.hasDeferredText());
    EXPECT_EQ(columns.value(), ids({c, a}));
    columns.setValue(ids({b}));
    columns.resolveDeferred();
    EXPECT_EQ(columns.value(), ids({b}));
}

TEST(ParameterText, WaitsOnlyForColumns)
{
    Parameter flag(Parameter::Bool, "Key", "label", false);
    flag.setDeferredText("1", currentVersion);
    EXPECT_FALSE(flag.hasDeferredText());
    EXPECT_TRUE(flag.toBool());

    Parameter unconnected(Parameter::MultipleColumns, "Key", "label", nullptr);
    unconnected.setDeferredText(stored("3|1"), currentVersion);
    EXPECT_TRUE(unconnected.hasDeferredText());
    unconnected.resolveDeferred();
    EXPECT_FALSE(unconnected.hasDeferredText());
    EXPECT_EQ(unconnected.toDocumentText(), stored("3|1"));
}

TEST(ParameterText, LetsAPersonsChoiceGoBeforeTextThatWaits)
{
    FakeSource source(grid({"a|b|c"}));
    source.setReady(false);
    Parameter columns(Parameter::MultipleColumns, "Key", "label", &source);
    columns.setDeferredText(stored("3|1"), currentVersion);
    columns.setValue(ids({b}));
    source.setReady(true);
    columns.resolveDeferred();
    EXPECT_EQ(columns.value(), ids({b}));
}

TEST(ParameterText, WritesUnresolvedTextBackAsItWas)
{
    FakeSource source(grid({"a|b|c"}));
    source.setReady(false);
    for (const StoredCase &c : storedCases()) {
        SCOPED_TRACE(c.what);
        const auto parameter = parameterOf(c.kind, &source);
        parameter->setDeferredText(decoded(stored(c.text)), currentVersion);
        EXPECT_EQ(decoded(parameter->toDocumentText()), decoded(stored(c.text)));
        EXPECT_EQ(parameter->toDocumentText().count(QChar(0x1F)), stored(c.text).count(QChar(0x1F)));
    }
}

TEST(ParameterText, BringsUnresolvedTextOfOldDocumentsUpToDate)
{
    FakeSource source(grid({"a|b|c"}));
    source.setReady(false);
    Parameter terms(Parameter::FilterColumns, "Key", "label", &source);
    terms.setDeferredText("1^0^2^14^x", 40);
    EXPECT_EQ(terms.toDocumentText(), stored("1|0|2|19|x"));
}
