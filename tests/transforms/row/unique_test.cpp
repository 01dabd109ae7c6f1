#include "support/grid.h"
#include "support/randomtext.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "support/scopedsettings.h"
#include "transforms/options/parameter.h"
#include "transforms/row/uniquemodes.h"

#include <QMap>
#include <gtest/gtest.h>

namespace {

using Modes = QVector<UniqueMode>;
constexpr UniqueMode key = UniqueMode::KeepUnique;

/// The option for the first columns of the input, in their order.
QPair<QString, QVariant> columnOptions(const Modes &modes)
{
    QHash<ColumnId, int> chosen;
    for (int i = 0; i < modes.size(); ++i) {
        chosen.insert(ColumnId(1, i + 1), static_cast<int>(modes.at(i)));
    }
    return {"Column_Options", QVariant::fromValue(chosen)};
}

TransformRun unique(const Modes &modes, const OptionSettings &options, const Dataset &input)
{
    return runTransform("Unique", OptionSettings{columnOptions(modes)} + options, {input});
}

/// The one cell that all of `cells` become.
QString aggregated(UniqueMode mode, const QStringList &cells, const OptionSettings &options = {})
{
    Dataset input = grid({"key|value"});
    for (const QString &cell : cells) {
        input.appendRow({"k", cell});
    }
    const Dataset result = unique({key, mode}, options, input).result;
    EXPECT_EQ(result.rowCount(), 1);
    return result.value(RowIndex(0), ColumnIndex(1));
}

QList<int> sources(const Dataset &dataset, int row)
{
    QList<int> rows;
    for (RowIndex source : dataset.drilldownRows(RowIndex(row), ColumnIndex())) {
        rows.append(source.toInt());
    }
    return rows;
}

} // namespace

TEST(TransformUnique, AggregatesByMode)
{
    const QStringList repeated{"a", "", "b", "a", "", "c"};
    const struct
    {
        const char *what;
        UniqueMode mode;
        QStringList cells;
        QString cell;
    } cases[] = {
        {"the first", UniqueMode::KeepFirst, {"", "b", "c"}, ""},
        {"the last", UniqueMode::KeepLast, {"a", "b", "c"}, "c"},
        {"the last, though empty", UniqueMode::KeepLast, {"a", ""}, ""},
        {"the sum of the numbers", UniqueMode::Sum, {"1", "x", "$2.5", "1,000"}, "1003.5"},
        {"the sum of none", UniqueMode::Sum, {"x", ""}, "0"},
        {"the largest as it is written", UniqueMode::Maximum, {"999", "1,000.50", "x"}, "1,000.50"},
        {"by number and not by text", UniqueMode::Maximum, {"9", "10"}, "10"},
        {"the first of equal ones", UniqueMode::Maximum, {"1", "2.0", "2"}, "2.0"},
        {"the largest of negative ones", UniqueMode::Maximum, {"-7", "-3", ""}, "-3"},
        {"the largest of long ones", UniqueMode::Maximum, {"123456789012345678", "123456789012345679"},
            "123456789012345679"},
        {"the smallest of long ones", UniqueMode::Minimum, {"-123456789012345678", "-123456789012345679"},
            "-123456789012345679"},
        {"the largest of none", UniqueMode::Maximum, {"x", "inf", "nan"}, ""},
        {"the smallest", UniqueMode::Minimum, {"10", "9", "x"}, "9"},
        {"the smallest of none", UniqueMode::Minimum, {""}, ""},
        {"the latest date", UniqueMode::Maximum, {"3/2/2024", "14/1/2024", ""}, "3/2/2024"},
        {"the earliest date", UniqueMode::Minimum, {"3/2/2024", "14/1/2024", ""}, "14/1/2024"},
        {"the average of the numbers", UniqueMode::Average, {"1", "x", "2", ""}, "1.5"},
        {"the average of none", UniqueMode::Average, {"x"}, ""},
        {"all joined", UniqueMode::Concat, repeated, "a,,b,a,,c"},
        {"the different ones joined", UniqueMode::ConcatDistinct, repeated, "a,,b,c"},
        {"case tells texts apart", UniqueMode::ConcatDistinct, {"a", "A", "a"}, "a,A"},
        {"the first that isn't empty", UniqueMode::KeepFirstNonEmpty, {"", " ", "b"}, " "},
        {"there is none", UniqueMode::KeepFirstNonEmpty, {"", ""}, ""},
        {"the last that isn't empty", UniqueMode::KeepLastNonEmpty, {"a", "b", ""}, "b"},
        {"no last one", UniqueMode::KeepLastNonEmpty, {"", ""}, ""},
        {"different ones, the empty one too", UniqueMode::CountDistinct, repeated, "4"},
        {"those that come once", UniqueMode::CountUnique, repeated, "2"},
        {"those that come again", UniqueMode::CountDuplicate, repeated, "2"},
        {"empty ones", UniqueMode::CountEmpty, repeated, "2"},
        {"others", UniqueMode::CountNonEmpty, repeated, "4"},
        {"nothing", UniqueMode::SetEmpty, {"a", "b"}, ""},
        {"a mode that isn't known keeps the first", static_cast<UniqueMode>(99), {"a", "b"}, "a"},
    };
    const ScopedSettings settings;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(aggregated(c.mode, c.cells), c.cell);
    }
}

TEST(TransformUnique, JoinsTexts)
{
    const OptionSettings ignoring{{"Concat_Ignore_Empty", true}, {"Delim", " / "}};
    EXPECT_EQ(aggregated(UniqueMode::Concat, {"", "a", "", "b", "a"}, ignoring), "a / b / a");
    EXPECT_EQ(aggregated(UniqueMode::ConcatDistinct, {"", "a", "", "b", "a"}, ignoring), "a / b");
    EXPECT_EQ(aggregated(UniqueMode::Concat, {"", ""}, ignoring), "");
    EXPECT_EQ(aggregated(UniqueMode::Concat, {QString(QChar(0xD83D)), QString(QChar(0xDE00))}, {{"Delim", ""}}),
        QString::fromUtf8("\U0001F600"))
        << "two halves of a character";
}

TEST(TransformUnique, GroupsByTheKeyColumns)
{
    const Dataset input = grid({"a|b|n", "x|1|1", "X|1|2", "|1|4", "x|1|8", "x|2|16", "|1|32"});
    const TransformRun run = unique({key, key, UniqueMode::Sum}, {}, input);
    EXPECT_EQ(rows(run.result), (QStringList{"x|1|9", "X|1|2", "|1|36", "x|2|16"}));
    EXPECT_EQ(run.resultText(), "2 row(s) removed");
    EXPECT_EQ(run.result.columnNames(), input.columnNames());
    EXPECT_EQ(run.result.columnIds(), run.sources.front()->datasetConst().columnIds());

    const TransformRun folded = unique({key, key, UniqueMode::Sum}, {{"Case_Sensitive", false}}, input);
    EXPECT_EQ(rows(folded.result), (QStringList{"x|1|11", "|1|36", "x|2|16"}));

    EXPECT_EQ(rows(unique({key}, {}, input).result), (QStringList{"x|1|1", "X|1|2", "|1|4"}))
        << "other columns keep the first";
}

TEST(TransformUnique, AddsACount)
{
    const TransformRun run = unique({key}, {{"Count", true}}, plainGrid({"a|1", "b|2", "a|3"}));
    EXPECT_EQ(rows(run.result), (QStringList{"a|1|2", "b|2|1"}));
    EXPECT_EQ(run.result.header(), (QStringList{"1", "2", "Count"}));
    EXPECT_TRUE(run.result.columnId(ColumnIndex(2)).isNull());
    EXPECT_EQ(unique({key}, {{"Count", true}}, grid({"k|", "a|1"})).result.header(), (QStringList{"k", "2", "Count"}));
    EXPECT_EQ(rows(unique({key}, {{"Count", true}}, grid({"k|v"})).result), QStringList());
}

TEST(TransformUnique, DoesNothingWithoutKeys)
{
    Dataset input = grid({"a|b", "1|2", "1|2"});
    input.addDrilldownRow(RowIndex(0), ColumnIndex(), RowIndex(0));
    const TransformRun run = unique({UniqueMode::Sum}, {{"Count", true}, {"Drilldown", true}}, input);
    EXPECT_EQ(rows(run.result), rows(input));
    EXPECT_EQ(run.result.columnCount(), 2);
    EXPECT_FALSE(run.result.hasDrilldown());
    EXPECT_EQ(run.resultText(), "No changes");
    EXPECT_EQ(run.warnings(), QStringList("1 option not set ('Column options')"));

    QHash<ColumnId, int> gone{{ColumnId(9, 1), static_cast<int>(key)}};
    EXPECT_EQ(rows(runOn("Unique", {{"Column_Options", QVariant::fromValue(gone)}}, input)), rows(input))
        << "the key column has gone";
    EXPECT_EQ(unique({key}, {}, grid({"a|b", "1|2", "2|2"})).resultText(), "No changes") << "no row repeats";
}

TEST(TransformUnique, RecordsTheRowsBehindEachRow)
{
    const Dataset input = grid({"k", "a", "b", "a"});
    const Dataset result = unique({key}, {{"Drilldown", true}}, input).result;
    EXPECT_EQ(sources(result, 0), (QList<int>{0, 2}));
    EXPECT_EQ(sources(result, 1), (QList<int>{1}));
    EXPECT_FALSE(unique({key}, {}, input).result.hasDrilldown());
}

TEST(TransformUnique, OffersWhatApplies)
{
    const auto active = [](UniqueMode mode) {
        return unique({key, mode}, {}, grid({"a|b"})).transform->parameterStates();
    };
    const auto states = [](bool on) { return QList<QPair<QString, bool>>{{"Delim", on}, {"Concat_Ignore_Empty", on}}; };
    EXPECT_EQ(active(UniqueMode::Concat), states(true));
    EXPECT_EQ(active(UniqueMode::ConcatDistinct), states(true));
    EXPECT_EQ(active(UniqueMode::Sum), states(false));
    const TransformRun run = unique({key}, {}, grid({"a|b"}));
    EXPECT_EQ(run.transform->parameter("Delim")->toolTip(),
        "The delimiter to use between concatenated terms for 'Concat' or 'Concat distinct'.");
    EXPECT_EQ(
        run.transform->parameter("Case_Sensitive")->toolTip(), "Check for case sensitive 'Keep unique' matching.");
}

TEST(TransformUnique, ReportsItsProgress)
{
    const ScopedLocale american("en_US");
    Dataset input = column(QStringList());
    for (int row = 0; row < 2500; ++row) {
        input.appendRow({"a"});
    }
    const TransformRun run = unique({key}, {}, input);
    EXPECT_EQ(run.progress, (QVector<qreal>{0, 0.2, 0.4, 0.5}));
    EXPECT_EQ(run.resultText(), "2,499 row(s) removed");
}

TEST(TransformUnique, GroupsAsAMapOfListsDoes)
{
    RandomText random(3);
    Dataset input = grid({"a|b|n"});
    QMap<QStringList, QStringList> groups;
    QList<QStringList> order;
    for (int row = 0; row < 2000; ++row) {
        const QStringList cells{random.text(2), random.chance(30) ? "a longer text " + random.text(1) : random.text(1),
            QString::number(random.below(1000))};
        input.appendRow(cells);
        const QStringList groupKey{cells.at(0), cells.at(1)};
        if (!groups.contains(groupKey)) {
            order.append(groupKey);
        }
        groups[groupKey].append(cells.at(2));
    }
    const Dataset result = unique({key, key, UniqueMode::Concat}, {{"Count", true}}, input).result;
    ASSERT_EQ(result.rowCount(), order.size());
    for (int row = 0; row < order.size(); ++row) {
        const QStringList &values = groups[order.at(row)];
        EXPECT_EQ(
            result.row(RowIndex(row)), order.at(row) + (QStringList{values.join(","), QString::number(values.size())}));
    }
}
