#include "data/textsimilarity.h"
#include "support/grid.h"
#include "support/runon.h"
#include "transforms/analysis/clusterterms.h"
#include "transforms/options/parameter.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace {

QString misspelt(const QString &text, std::mt19937 &random)
{
    QString changed = text;
    changed[static_cast<int>(random() % static_cast<unsigned>(text.size()))] = QLatin1Char('x');
    return changed;
}

/// Rows of a few names, a quarter of them with a wrong letter.
QStringList spellings(const QStringList &names, int rowCount)
{
    std::mt19937 random(3);
    QStringList cells;
    for (int row = 0; row < rowCount; ++row) {
        const QString &name = names.at(row % names.size());
        cells.append(random() % 4 == 0 ? misspelt(name, random) : name);
    }
    return cells;
}

QStringList clusters(const Dataset &dataset)
{
    QStringList texts = dataset.columnValues(ColumnIndex(dataset.columnCount() - 2));
    texts.removeDuplicates();
    texts.sort();
    return texts;
}

} // namespace

TEST(TransformCluster, AssignsRowsToGivenTerms)
{
    const struct
    {
        const char *what;
        OptionSettings options;
        QStringList rows;
    } cases[] = {
        {"the closest term", {{"Terms", "Red\n Blue \n"}},
            {" RED|Red|100", "rad|Red|66", "blue|Blue|100", "zzzz|<None>|", "|<None>|"}},
        {"with case", {{"Terms", "Red\r\nBlue"}, {"Case_Sensitive", true}},
            {" RED|<None>|", "rad|<None>|", "blue|Blue|75", "zzzz|<None>|", "|<None>|"}},
        {"everything to the nearest", {{"Terms", "Red\nBlue"}, {"Fuzziness", 0}},
            {" RED|Red|100", "rad|Red|66", "blue|Blue|100", "zzzz|Red|0", "|Red|0"}},
        {"only equal texts", {{"Terms", "Red\nBlue"}, {"Fuzziness", 100}},
            {" RED|Red|100", "rad|<None>|", "blue|Blue|100", "zzzz|<None>|", "|<None>|"}},
        {"the first of equally close terms", {{"Terms", "rid\nrod\nRED"}, {"Fuzziness", 60}},
            {" RED|RED|100", "rad|rid|66", "blue|<None>|", "zzzz|<None>|", "|<None>|"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Cluster", c.options, {column({" RED", "rad", "blue", "zzzz", ""})});
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.result.header(), (QStringList{"Value", "Cluster", "Closeness"}));
    }
}

TEST(TransformCluster, ReportsTermsAndRows)
{
    const TransformRun run = runTransform("Cluster", {{"Terms", "red\nBlue"}},
        {column({"blue", "zzzz", "red", "blue", "zzzz", "q1", "q2", "q3", "q4", "q5"})});
    EXPECT_EQ(run.infos(), (QStringList{"2 clustering term(s)", "Clustering term(s) alphabetically:", "Blue  - 2",
                               "red  - 1", "Clustering term(s) by count:", "Blue  - 2", "red  - 1",
                               "Values not clustered:", "'zzzz'", "'q1'", "'q2'", "'q3'", "'q4'", "+ 1 more"}));
    EXPECT_EQ(run.warnings(), QStringList{"7 row(s) not assigned a cluster"});
    EXPECT_EQ(run.resultText(), "3 clustered from 10 row(s)");
    const TransformRun none = runTransform("Cluster", {{"Terms", " \n"}, {"Fuzziness", 0}}, {column({"a"})});
    EXPECT_EQ(rows(none.result), QStringList{"a|<None>|"});
    EXPECT_EQ(none.warnings().first(), "No terms to cluster on");
}

TEST(TransformCluster, AddsEmptyColumnsWithoutAColumn)
{
    const TransformRun run = runTransform("Cluster", {{"Terms", "a"}}, {grid({"x|y", "1|2"})});
    EXPECT_EQ(rows(run.result), QStringList{"1|2||"});
    EXPECT_EQ(run.resultText(), "0 clustered from 1 row(s)");
    EXPECT_EQ(runOn("Cluster", {{"Terms", "a"}}, grid({"x"})).header(), (QStringList{"x", "Cluster", "Closeness"}));
}

TEST(TransformCluster, FindsTheTermOfAPlainSearch)
{
    std::mt19937 random(5);
    const auto word = [&random] {
        QString text;
        for (unsigned i = random() % 7; i > 0; --i) {
            text.append(QLatin1Char(static_cast<char>('a' + random() % 3)));
        }
        return text;
    };
    for (int i = 0; i < 2000; ++i) {
        std::vector<ClusterTerm> terms;
        for (int term = 0; term < 6; ++term) {
            const QString text = word();
            terms.push_back({text, text});
        }
        const QString text = word();
        const int fuzziness = static_cast<int>(random() % 101);
        NearestTerm expected;
        for (int term = 0; term < 6; ++term) {
            const int score = fuzzyScore(text, terms[static_cast<size_t>(term)].compared, fuzziness);
            if (score >= fuzziness && score > expected.closeness) {
                expected = {term, score};
            }
        }
        const NearestTerm nearest = nearestTerm(text, terms, fuzziness);
        ASSERT_EQ(nearest.term, expected.term) << text.toStdString() << fuzziness;
        ASSERT_EQ(nearest.closeness, expected.closeness) << text.toStdString() << fuzziness;
    }
}

TEST(TransformCluster, FindsTermsByItself)
{
    const QStringList names{"london", "new york", "rio de janeiro", "paris"};
    const Dataset input = column(spellings(names, 400));
    QStringList sorted = names;
    sorted.sort();
    const TransformRun run = runTransform("Cluster", {{"Clustering", "Automatic"}, {"Max_Auto_Clusters", 8}}, {input});
    EXPECT_EQ(clusters(run.result), sorted);
    EXPECT_TRUE(run.warnings().isEmpty()) << run.warnings().join('\n').toStdString();
    EXPECT_TRUE(run.infos().first().startsWith("Tried ")) << run.infos().first().toStdString();
    EXPECT_EQ(run.infos().at(1), "4 clustering term(s)");
    EXPECT_EQ(run.resultText(), "400 clustered from 400 row(s)");
    EXPECT_TRUE(std::is_sorted(run.progress.cbegin(), run.progress.cend()));
    EXPECT_EQ(rows(run.result), rows(runOn("Cluster", {{"Clustering", "Automatic"}, {"Max_Auto_Clusters", 8}}, input)))
        << "another run gives the same";
}

TEST(TransformCluster, KeepsToTheNumberOfClusters)
{
    const QStringList cells = spellings({"london", "new york", "rio de janeiro", "paris"}, 200);
    const TransformRun two = runTransform(
        "Cluster", {{"Clustering", "Automatic"}, {"Max_Auto_Clusters", 2}}, {column(cells)});
    EXPECT_TRUE(two.infos().contains("2 clustering term(s)"));
    const TransformRun guided = runTransform("Cluster",
        {{"Clustering", "Guided"}, {"Terms", "London\nNew York"}, {"Max_Auto_Clusters", 3}, {"Fuzziness", 0}},
        {column(cells)});
    EXPECT_TRUE(guided.infos().contains("3 clustering term(s)"));
    EXPECT_TRUE(clusters(guided.result).contains("London")) << "a given term that fits stays as it is written";
    EXPECT_EQ(guided.resultText(), "200 clustered from 200 row(s)");
}

TEST(TransformCluster, HasNothingToFindTermsIn)
{
    const TransformRun run = runTransform("Cluster", {{"Clustering", "Automatic"}}, {column({"", "--", " "})});
    EXPECT_EQ(rows(run.result), (QStringList{"|<None>|", "--|<None>|", " |<None>|"}));
    EXPECT_EQ(run.warnings(),
        (QStringList{"Insufficient data for clustering", "No terms to cluster on", "3 row(s) not assigned a cluster"}));
}

TEST(TransformCluster, OptionsFollowTheWayOfClustering)
{
    const TransformRun run = runTransform("Cluster", {}, {column("a")});
    const auto states = [&run](const char *mode) {
        setOption(*run.transform, "Clustering", mode);
        QString active;
        for (const auto &state : run.transform->parameterStates()) {
            active += QStringLiteral("%1=%2 ").arg(state.first).arg(state.second);
        }
        return active;
    };
    EXPECT_EQ(states("Manual"), "Terms=1 Max_Auto_Clusters=0 Max_Auto_Time=0 ");
    EXPECT_EQ(states("Guided"), "Terms=1 Max_Auto_Clusters=1 Max_Auto_Time=1 ");
    EXPECT_EQ(states("Automatic"), "Terms=0 Max_Auto_Clusters=1 Max_Auto_Time=1 ");
}
