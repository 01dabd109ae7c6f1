#include "data/textsimilarity.h"
#include "support/grid.h"
#include "support/randomtext.h"
#include "support/runon.h"
#include "transforms/row/dedupeprogress.h"
#include "transforms/row/duplicates.h"

#include <gtest/gtest.h>

namespace {

const char *const keepOnly = "Keep only duplicates";
const char *const addInformation = "Add duplicate information";

TEST(TransformDedupe, RemovesRepeatedRows)
{
    const struct
    {
        const char *what;
        OptionSettings options;
        QStringList input;
        QStringList rows;
        QString text;
    } cases[] = {
        {"the first of each stays", {}, {"a", "b", "a", "a"}, {"a", "b"}, "2 rows removed"},
        {"nothing repeats", {}, {"a", "b"}, {"a", "b"}, "No changes"},
        {"empty cells are equal", {}, {"", "a", ""}, {"", "a"}, "1 row removed"},
        {"also when alike will do", {{"Match_Type", "Fuzzy"}}, {"", "a", ""}, {"", "a"}, "1 row removed"},
        {"case counts", {}, {"Ab", "aB"}, {"Ab", "aB"}, "No changes"},
        {"or doesn't, and the first text stays", {{"Case_Sensitive", false}}, {"ÄB", "äb", "c"}, {"ÄB", "c"},
            "1 row removed"},
        {"blanks count", {}, {"a b", "ab"}, {"a b", "ab"}, "No changes"},
        {"or don't", {{"Ignore_Spaces", true}}, {"a b", "ab", "a\u00A0\tb"}, {"a b"}, "2 rows removed"},
        {"punctuation counts", {}, {"a.b", "ab"}, {"a.b", "ab"}, "No changes"},
        {"or doesn't", {{"Ignore_Punctuation", true}}, {"a.b", "ab", "(a-„b“)", "a$b"}, {"a.b", "a$b"},
            "2 rows removed"},
        {"blanks stay when only punctuation goes", {{"Ignore_Punctuation", true}}, {"a. b", "a b", "ab"},
            {"a. b", "ab"}, "1 row removed"},
        {"the others", {{"Dedupe_Mode", keepOnly}}, {"a", "b", "a", "c", "a", "b"}, {"a", "a", "b"}, "3 rows removed"},
        {"no others", {{"Dedupe_Mode", keepOnly}}, {"a", "b"}, {}, "2 rows removed"},
        {"alike by 75 %, but only to the first of a group", {{"Match_Type", "Fuzzy"}, {"Fuzziness", 75}},
            {"aaaa", "aaab", "aabb"}, {"aaaa", "aabb"}, "1 row removed"},
        {"alike, the others", {{"Match_Type", "Fuzzy"}, {"Fuzziness", 75}, {"Dedupe_Mode", keepOnly}},
            {"aaaa", "aaab", "aabb", "aaab"}, {"aaab", "aaab"}, "2 rows removed"},
        {"the closeness counts for alike only", {{"Fuzziness", 40}}, {"aaaa", "aaab"}, {"aaaa", "aaab"}, "No changes"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Dedupe", c.options, {column(c.input)});
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.resultText(), c.text);
        EXPECT_EQ(run.result.columnNames(), QStringList("Value"));
    }
}

TEST(TransformDedupe, ComparesTheSelectedColumns)
{
    const Dataset input = grid({"id|name|city", "1|Ann|Ulm", "2|Ann|Bonn", "3|Ann|Ulm"});
    EXPECT_EQ(rows(runOn("Dedupe", {{"Columns", "name"}}, input)), QStringList("1|Ann|Ulm"));
    EXPECT_EQ(rows(runOn("Dedupe", {{"Columns", QStringList{"city", "name"}}}, input)),
        (QStringList{"1|Ann|Ulm", "2|Ann|Bonn"}));
    const Dataset shifted = grid({"a|b", "xy|z", "x|yz"});
    EXPECT_EQ(rows(runOn("Dedupe", {{"Columns", QStringList{"a", "b"}}}, shifted)), rows(shifted));
}

TEST(TransformDedupe, AddsInformation)
{
    const OptionSettings exact{{"Dedupe_Mode", addInformation}, {"Columns", "Value"}};
    const TransformRun run = runTransform("Dedupe", exact, {column({"b", "a", "b", "c", "a", "b"})});
    EXPECT_EQ(run.result.columnNames(), (QStringList{"Value", "Group", "Row", "Closeness", "Duplicate", "Duplicates"}));
    EXPECT_EQ(rows(run.result), (QStringList{"b|1|1||false|2", "b|1|3|100|true|", "b|1|6|100|true|", "a|2|2||false|1",
                                    "a|2|5|100|true|", "c|3|4||false|0"}));
    EXPECT_EQ(run.resultText(), "Duplicate information added");

    const OptionSettings fuzzy = exact + OptionSettings{{"Match_Type", "Fuzzy"}, {"Fuzziness", 50}};
    EXPECT_EQ(rows(runOn("Dedupe", fuzzy, column({"abcd", "axyz", "axcd", "aqcz", "abcd"}))),
        (QStringList{
            "abcd|1|1||false|3", "abcd|1|5|100|true|", "axcd|1|3|75|true|", "aqcz|1|4|50|true|", "axyz|2|2||false|0"}))
        << "axcd is closer to abcd, aqcz as close to both";
}

TEST(TransformDedupe, DoesNothingWithoutColumns)
{
    const Dataset input = grid({"a|b", "1|2", "1|2"});
    EXPECT_EQ(runTransform("Dedupe", {}, {input}).resultText(), "No changes");
    const TransformRun run = runTransform("Dedupe", {{"Dedupe_Mode", addInformation}}, {input});
    EXPECT_EQ(rows(run.result), (QStringList{"1|2|||||", "1|2|||||"}));
    EXPECT_EQ(run.resultText(), "Duplicate information added");
}

TEST(TransformDedupe, RecordsTheRowsBehindEachRow)
{
    const OptionSettings options{{"Columns", "Value"}, {"Drilldown", true}};
    const Dataset result = runOn("Dedupe", options, column({"a", "b", "a"}));
    QList<RowIndex> sources = result.drilldownRows(RowIndex(0), ColumnIndex(0));
    std::sort(sources.begin(), sources.end());
    EXPECT_TRUE((sources == QList<RowIndex>{RowIndex(0), RowIndex(2)}));
    EXPECT_TRUE((result.drilldownRows(RowIndex(1), ColumnIndex()) == QList<RowIndex>{RowIndex(1)}));
    EXPECT_FALSE(runOn("Dedupe", {{"Columns", "Value"}}, column({"a"})).hasDrilldown());
    const OptionSettings fuzzy = options + OptionSettings{{"Match_Type", "Fuzzy"}};
    EXPECT_FALSE(runOn("Dedupe", fuzzy, column({"a", "a"})).hasDrilldown());
}

TEST(TransformDedupe, OffersWhatApplies)
{
    const auto states = [](const OptionSettings &options) {
        return runTransform("Dedupe", options, {column("a")}).transform->parameterStates();
    };
    EXPECT_EQ(states({}), (QList<QPair<QString, bool>>{{"Fuzziness", false}, {"Drilldown", true}}));
    EXPECT_EQ(
        states({{"Match_Type", "Fuzzy"}}), (QList<QPair<QString, bool>>{{"Fuzziness", true}, {"Drilldown", false}}));
    EXPECT_EQ(
        states({{"Dedupe_Mode", keepOnly}}), (QList<QPair<QString, bool>>{{"Fuzziness", false}, {"Drilldown", false}}));
}

TEST(TransformDedupe, NamesTheOptionsThatTheExplorerSets)
{
    const TransformRun run = runTransform("Dedupe", {}, {column("a")});
    const Transform &dedupe = *run.transform;
    EXPECT_TRUE(dedupe.hasDuplicateColumns());
    for (const QString &name :
        {dedupe.caseSensitiveParameterName(), dedupe.dedupeColumnsParameterName(), dedupe.matchTypeParameterName(),
            dedupe.ignoreSpacesParameterName(), dedupe.ignorePunctuationParameterName(),
            dedupe.fuzzinessParameterName(), dedupe.dedupeModeParameterName()}) {
        EXPECT_TRUE(dedupe.parameter(name)) << qPrintable(name);
    }
}

// The engine

TEST(FindDuplicates, CanBeStopped)
{
    Dataset input = column(QStringList());
    for (int i = 0; i < 200; ++i) {
        input.appendRow({"a"});
    }
    DedupeProgress progress;
    int lastDuplicates = -1;
    QObject::connect(&progress, QOverload<qreal, int, int>::of(&DedupeProgress::processed), &progress,
        [&](qreal fraction, int, int duplicates) {
            lastDuplicates = duplicates;
            if (fraction == 0.25) {
                progress.stop();
            }
        });
    int groups = 0;
    int duplicates = 0;
    const DuplicateRules rules{{ColumnIndex(0)}, KeyFolding(), 80, DedupeMode::AddInformation};
    const Dataset result = findDuplicates(&progress, input, rules, &groups, &duplicates);
    EXPECT_EQ(result.rowCount(), 51) << "the row at hand is finished";
    EXPECT_EQ(groups, 1);
    EXPECT_EQ(duplicates, 50);
    EXPECT_EQ(lastDuplicates, 50);
    EXPECT_EQ(result.value(RowIndex(0), ColumnIndex(5)), "50");
}

TEST(FindDuplicates, FoldsKeys)
{
    const Dataset input = grid({"a|b", "Ä. b|C\t-d"});
    const QVector<ColumnIndex> columns{ColumnIndex(1), ColumnIndex(0)};
    EXPECT_EQ(rowKey(input, RowIndex(0), columns, true, false, false), (QStringList{"Ä. b", "C\t-d"}));
    EXPECT_EQ(rowKey(input, RowIndex(0), columns, false, true, true), (QStringList{"äb", "cd"}));
}

TEST(FindDuplicates, KeysAreNoLongerFoldedOnceItIsStopped)
{
    constexpr int rows = 20000;
    Dataset input = grid({"a"});
    for (int row = 0; row < rows; ++row) {
        input.appendRow({"A"});
    }
    KeyFolding folding;
    folding.caseSensitive = false;
    int looks = 0;
    const CellColumn keys = folding.folded(input.column(ColumnIndex(0)), [&looks] { return ++looks > 1; });
    EXPECT_EQ(keys.at(0).text(), "a");
    EXPECT_EQ(keys.at(rows - 1).text(), "A");
    EXPECT_EQ(looks, 2) << "it looks again and again";
    EXPECT_EQ(folding.folded(input.column(ColumnIndex(0))).at(rows - 1).text(), "a");
}

/// Rows in groups as defined, each row compared with the first of every group.
QStringList plainInformation(
    const Dataset &input, const QVector<ColumnIndex> &columns, int closeness, const QVector<bool> &flags)
{
    QList<QStringList> firsts;
    QVector<int> places;
    QStringList result;
    QVector<QPair<int, int>> found;
    for (int row = 0; row < input.rowCount(); ++row) {
        const QStringList key = rowKey(input, RowIndex(row), columns, flags.at(0), flags.at(1), flags.at(2));
        int best = -1;
        int bestCloseness = -1;
        for (int group = 0; group < firsts.size(); ++group) {
            const int here = closeness == 100 ? (key == firsts.at(group) ? 100 : -1)
                                              : keyCloseness(key, firsts.at(group), closeness);
            if (here >= closeness && here > bestCloseness) {
                best = group;
                bestCloseness = here;
            }
        }
        if (best < 0) {
            firsts.append(key);
            best = firsts.size() - 1;
        }
        found.append({best, bestCloseness});
    }
    for (int row = 0; row < found.size(); ++row) {
        const bool isFirst = found.at(row).second < 0;
        const auto joined = [&](const QPair<int, int> &place) { return place.first == found.at(row).first; };
        const auto members = std::count_if(found.cbegin(), found.cend(), joined);
        result.append(QStringLiteral("%1|%2|%3|%4|%5")
                          .arg(found.at(row).first + 1)
                          .arg(row + 1)
                          .arg(isFirst ? QString() : QString::number(found.at(row).second),
                              isFirst ? QStringLiteral("false") : QStringLiteral("true"),
                              isFirst ? QString::number(members - 1) : QString()));
    }
    return result;
}

TEST(FindDuplicates, AgreesWithComparingAllRows)
{
    RandomText random(17);
    for (int round = 0; round < 24; ++round) {
        Dataset input = grid({"a|b"});
        for (int row = 0; row < 120; ++row) {
            const bool fresh = input.isEmpty() || random.chance(30);
            const RowIndex source(fresh ? 0 : random.below(input.rowCount()));
            const QString from = fresh ? random.text(12) : input.value(source, ColumnIndex(0));
            input.appendRow({random.edited(from, 2), random.text(1)});
        }
        const int closeness = round % 3 == 0 ? 100 : 50 + random.below(50);
        const QVector<bool> flags{random.chance(50), random.chance(50), random.chance(50)};
        const QVector<ColumnIndex> columns = round % 2 == 0 ? QVector<ColumnIndex>{ColumnIndex(0)}
                                                            : QVector<ColumnIndex>{ColumnIndex(1), ColumnIndex(0)};
        SCOPED_TRACE(testing::Message() << "round " << round << " at " << closeness << " %");
        const QStringList expected = plainInformation(input, columns, closeness, flags);

        DedupeProgress progress;
        int groups = 0;
        int duplicates = 0;
        const auto find = [&](DedupeMode mode) {
            const DuplicateRules rules{columns, {flags.at(0), flags.at(1), flags.at(2)}, closeness, mode};
            return findDuplicates(&progress, input, rules, &groups, &duplicates);
        };
        QVector<QString> information(input.rowCount());
        const Dataset described = find(DedupeMode::AddInformation);
        for (int row = 0; row < described.rowCount(); ++row) {
            const QStringList cells = described.row(RowIndex(row));
            const int source = cells.at(3).toInt() - 1;
            EXPECT_EQ(cells.mid(0, 2), input.row(RowIndex(source)));
            information[source] = cells.mid(2).join('|');
        }
        EXPECT_EQ(QStringList(information.toList()), expected);
        EXPECT_EQ(groups + duplicates, input.rowCount());

        QStringList firsts;
        QStringList others;
        for (int row = 0; row < input.rowCount(); ++row) {
            (expected.at(row).contains("|false|") ? firsts : others).append(input.row(RowIndex(row)).join('|'));
        }
        EXPECT_EQ(rows(find(DedupeMode::RemoveDuplicates)), firsts);
        EXPECT_EQ(rows(find(DedupeMode::KeepDuplicates)), others);
    }
}

} // namespace
