#include "support/grid.h"
#include "support/runon.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>
#include <random>

namespace {

struct FillingCase
{
    const char *what;
    QStringList input;
    OptionSettings options;
    QStringList expected;
    QString text;
};

OptionSettings all(const QString &direction)
{
    return {{"Columns", QStringList{"k", "a", "b"}}, {"Direction", direction}};
}

OptionSettings keyed(const QString &direction, const QStringList &columns)
{
    return {{"Columns", columns}, {"Direction", direction}, {"For", "Rows with same key value"}, {"Key_Column", "k"}};
}

void expectCases(const QString &kind, const QVector<FillingCase> &cases)
{
    for (const FillingCase &c : cases) {
        SCOPED_TRACE(c.what);
        const Dataset input = grid(c.input);
        const TransformRun run = runTransform(kind, c.options, {input});
        EXPECT_EQ(rows(run.result), c.expected);
        EXPECT_EQ(run.resultText(), c.text);
        EXPECT_EQ(rows(input), c.input.mid(1));
    }
}

TEST(TransformFillDown, FillsFromNeighbours)
{
    const QString longText = "a text that doesn't lie in its cell";
    expectCases("Fill",
        {
            {"down through a stretch; the first cell stays empty", {"k|a|b", "1||x", "2|7|", "3||", "4||y"},
                all("Down"), {"1||x", "2|7|x", "3|7|x", "4|7|y"}, "4 changed, 8 unchanged"},
            {"up", {"k|a|b", "1||x", "2|7|", "3||", "4||y"}, all("Up"), {"1|7|x", "2|7|y", "3||y", "4||y"},
                "3 changed, 9 unchanged"},
            {"right through several columns", {"k|a|b", "1||", "|2|"}, all("Right"), {"1|1|1", "|2|2"},
                "3 changed, 3 unchanged"},
            {"left begins at the right-most column", {"k|a|b", "||3", "1||"}, all("Left"), {"3|3|3", "1||"},
                "2 changed, 4 unchanged"},
            {"the source of right needn't be selected", {"k|a|b", "1||", longText + "||"},
                {{"Columns", "a"}, {"Direction", "Right"}}, {"1|1|", longText + "|" + longText + "|"},
                "2 changed, 0 unchanged"},
            {"blanks are no emptiness", {"k|a|b", "1|x|", "1| |"}, {{"Columns", "a"}}, {"1|x|", "1| |"}, "No changes"},
            {"no column selected", {"k|a|b", "1|x|", "1||"}, {}, {"1|x|", "1||"}, "No changes"},
            {"not over a change of key", {"k|a|b", "1|x|", "1||", "2||", "2||", "1||"}, keyed("Down", {"a"}),
                {"1|x|", "1|x|", "2||", "2||", "1||"}, "1 changed, 4 unchanged"},
            {"the key is that of the input though it is filled too", {"k|a|b", "1|x|", "||", "||"},
                keyed("Down", {"k", "a"}), {"1|x|", "||", "||"}, "No changes"},
            {"up with keys", {"k|a|b", "1||", "2||", "2|x|"}, keyed("Up", {"a"}), {"1||", "2|x|", "2|x|"},
                "1 changed, 2 unchanged"},
            {"to the right keys don't matter", {"k|a|b", "1|x|", "2|y|"}, keyed("Right", {"b"}), {"1|x|x", "2|y|y"},
                "2 changed, 0 unchanged"},
            {"no key column acts as all rows", {"k|a|b", "1|x|", "2||"},
                {{"Columns", "a"}, {"For", "Rows with same key value"}}, {"1|x|", "2|x|"}, "1 changed, 1 unchanged"},
        });
}

TEST(TransformUnfill, ClearsRepeatedValues)
{
    expectCases(
        "Unfill", {
                      {"of a run only the first stays", {"k|a|b", "1|A|x", "2|A|y", "3|A|x"}, all("Down"),
                          {"1|A|x", "2||y", "3||x"}, "2 changed, 7 unchanged"},
                      {"the last stays upward", {"k|a|b", "1|A|x", "2|A|x", "3|A|y"}, all("Up"),
                          {"1||", "2||x", "3|A|y"}, "3 changed, 6 unchanged"},
                      {"case counts", {"k|a|b", "1|A|", "1|a|"}, {{"Columns", "a"}}, {"1|A|", "1|a|"}, "No changes"},
                      {"right keeps the left-most", {"k|a|b", "1|1|1", "1|2|2"}, all("Right"), {"1||", "1|2|"},
                          "3 changed, 3 unchanged"},
                      {"left keeps the right-most", {"k|a|b", "1|1|1", "1|1|2"}, all("Left"), {"||1", "|1|2"},
                          "3 changed, 3 unchanged"},
                      {"only within a key", {"k|a|b", "1|A|", "2|A|", "2|A|"}, keyed("Down", {"a"}),
                          {"1|A|", "2|A|", "2||"}, "1 changed, 2 unchanged"},
                      {"the key's own repeats count as they were", {"k|a|b", "1|A|", "1|A|", "1|A|"},
                          keyed("Up", {"k", "a"}), {"||", "||", "1|A|"}, "4 changed, 2 unchanged"},
                  });
}

TEST(TransformUnfill, IsUndoneByFill)
{
    const Dataset input = grid({"k|a|b", "1|A|A", "1|A|B", "2|B|B", "1|B|B"});
    for (const char *direction : {"Down", "Right", "Up", "Left"}) {
        SCOPED_TRACE(direction);
        EXPECT_EQ(rows(runOn("Fill", all(direction), runOn("Unfill", all(direction), input))), rows(input));
    }
}

TEST(TransformSlide, MovesValuesIntoEmptyCells)
{
    const QString longText = "a text that doesn't lie in its cell";
    expectCases("Slide",
        {
            {"right", {"k|a|b", "a||b", longText + "||", "x|y|z"}, all("Right"), {"|a|b", "||" + longText, "x|y|z"},
                "2 rows changed"},
            {"right up to a wall", {"k|a|b", "a||b"}, {{"Columns", QStringList{"k", "b"}}, {"Direction", "Right"}},
                {"a||b"}, "No changes"},
            {"on both sides of a wall", {"k|a|b|c|d", "a||w|b|"},
                {{"Columns", QStringList{"k", "a", "c", "d"}}, {"Direction", "Right"}}, {"|a|w||b"}, "1 row changed"},
            {"left", {"k|a|b", "||b", "a||b"}, all("Left"), {"b||", "a|b|"}, "2 rows changed"},
            {"up", {"k|a|b", "1||x", "2|a|", "3||", "4|b|"}, all("Up"), {"1|a|x", "2|b|", "3||", "4||"},
                "1 column changed"},
            {"down", {"k|a|b", "1|a|", "2||x", "3|b|"}, all("Down"), {"1||", "2|a|", "3|b|x"}, "2 columns changed"},
            {"up within runs of a key", {"k|a|b", "1||", "1|x|", "2||", "2||", "2|y|", "1|z|"}, keyed("Up", {"a"}),
                {"1|x|", "1||", "2|y|", "2||", "2||", "1|z|"}, "1 column changed"},
            {"down within runs of a key, which slides too", {"k|a|b", "1|x|", "1||", "|y|", "||"},
                keyed("Down", {"k", "a"}), {"1||", "1|x|", "||", "|y|"}, "1 column changed"},
            {"nothing to move", {"k|a|b", "1|x|", "2||"}, all("Up"), {"1|x|", "2||"}, "No changes"},
        });
}

/// Moves values up one row at a time for as long as any moves.
QStringList bubbledUp(QStringList cells, const QStringList &keys)
{
    for (bool moved = true; moved;) {
        moved = false;
        for (int row = 0; row + 1 < cells.size(); ++row) {
            if (cells.at(row).isEmpty() && !cells.at(row + 1).isEmpty() && keys.at(row) == keys.at(row + 1)) {
                std::swap(cells[row], cells[row + 1]);
                moved = true;
            }
        }
    }
    return cells;
}

TEST(TransformSlide, MovesAsFarAsStepByStep)
{
    std::mt19937 random(3);
    for (int round = 0; round < 100; ++round) {
        SCOPED_TRACE(round);
        QStringList lines("k|a");
        QStringList keys;
        QStringList cells;
        for (int row = 0, count = static_cast<int>(random() % 30); row < count; ++row) {
            keys.append(QString::number(random() % 2));
            cells.append(random() % 2 ? QString() : QString::number(row));
            lines.append(keys.last() + '|' + cells.last());
        }
        EXPECT_EQ(runOn("Slide", keyed("Up", {"a"}), grid(lines)).columnValues(ColumnIndex(1)), bubbledUp(cells, keys));
        std::reverse(lines.begin() + 1, lines.end());
        QStringList down = runOn("Slide", keyed("Down", {"a"}), grid(lines)).columnValues(ColumnIndex(1));
        std::reverse(down.begin(), down.end());
        EXPECT_EQ(down, bubbledUp(cells, keys));
    }
}

TEST(TransformOffset, ShiftsColumns)
{
    expectCases("Offset",
        {
            {"down without wrap, the last is lost", {"k|a", "1|x", "2|y", "3|"},
                {{"Columns", "a"}, {"Offset_Amount", 1}, {"New_Value", "the new value of a cell"}},
                {"1|the new value of a cell", "2|x", "3|y"}, "3 changed, 0 unchanged"},
            {"up", {"k|a", "1|x", "2|y", "3|z"}, {{"Columns", "a"}, {"Offset_Amount", 2}, {"Offset_Direction", "Up"}},
                {"1|z", "2|", "3|"}, "3 changed, 0 unchanged"},
            {"an empty cell that stays empty isn't changed", {"k|a", "1|", "2|y"},
                {{"Columns", "a"}, {"Offset_Amount", 1}}, {"1|", "2|"}, "1 changed, 1 unchanged"},
            {"more than the table has rows", {"k|a", "1|x", "2|y"},
                {{"Columns", "a"}, {"Offset_Amount", 999999999}, {"New_Value", "-"}}, {"1|-", "2|-"},
                "2 changed, 0 unchanged"},
            {"wrap of 5 on 3 rows is one of 2", {"k|a", "1|x", "2|y", "3|z"},
                {{"Columns", "a"}, {"Offset_Amount", 5}, {"Wraparound", true}, {"New_Value", "-"}},
                {"1|y", "2|z", "3|x"}, "3 changed, 0 unchanged"},
            {"wrap upward", {"k|a", "1|x", "2|y", "3|z"},
                {{"Columns", "a"}, {"Offset_Amount", 1}, {"Offset_Direction", "Up"}, {"Wraparound", true}},
                {"1|y", "2|z", "3|x"}, "3 changed, 0 unchanged"},
            {"a whole turn", {"k|a", "1|x", "2|y"}, {{"Columns", "a"}, {"Offset_Amount", 4}, {"Wraparound", true}},
                {"1|x", "2|y"}, "No changes"},
            {"no offset", {"k|a", "1|x"}, {{"Columns", "a"}, {"New_Value", "-"}}, {"1|x"}, "No changes"},
            {"no rows", {"k|a"}, {{"Columns", "a"}, {"Offset_Amount", 1}, {"Wraparound", true}}, {}, "No changes"},
        });
}

TEST(Filling, KeyOptionsApplyUpAndDown)
{
    const struct
    {
        const char *what;
        const char *direction;
        const char *rows;
        bool forActive;
        bool keyActive;
    } cases[] = {
        {"down for all rows", "Down", "All rows", true, false},
        {"up with keys", "Up", "Rows with same key value", true, true},
        {"to the right", "Right", "Rows with same key value", false, false},
        {"to the left", "Left", "Rows with same key value", false, false},
    };
    for (const char *kind : {"Fill", "Unfill", "Slide"}) {
        for (const auto &c : cases) {
            SCOPED_TRACE(c.what);
            const TransformRun run = runTransform(kind, {{"Direction", c.direction}, {"For", c.rows}}, {column("x")});
            const QList<QPair<QString, bool>> expected{{"For", c.forActive}, {"Key_Column", c.keyActive}};
            EXPECT_EQ(run.transform->parameterStates(), expected);
            run.transform->clearMessages();
            run.transform->checkOptions();
            EXPECT_EQ(run.warnings().size(), c.keyActive ? 1 : 0);
        }
    }
}

} // namespace
