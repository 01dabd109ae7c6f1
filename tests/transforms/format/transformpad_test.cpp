#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedsettings.h"

#include <gtest/gtest.h>

namespace {

struct PadCase
{
    const char *what;
    const char *cell;
    OptionSettings options;
    QString padded;
};

} // namespace

TEST(TransformPad, PadsOnlyShortCells)
{
    const PadCase cases[] = {
        {"an empty cell is padded too", "", {{"Length", 3}}, "000"},
        {"on the left with 0 unless told otherwise", "7", {}, "0000000007"},
        {"on the right, with a dot", "7", {{"Length", 3}, {"Left_Right", "Right"}, {"Pad_With", "."}}, "7.."},
        {"a longer cell stays", "1234", {{"Length", 3}}, "1234"},
        {"a cell of that length stays", "123", {{"Length", 3}}, "123"},
        {"length counts characters, not bytes", "é", {{"Length", 2}}, "0é"},
        {"any character will do", "7", {{"Length", 2}, {"Pad_With", QChar(0x2022)}}, "•7"},
        {"no character, no padding", "7", {{"Length", 2}, {"Pad_With", QChar()}}, "7"},
        {"a length of 0 pads nothing", "7", {{"Length", 0}}, "7"},
    };
    for (const PadCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(runOn("Pad", c.options, column(c.cell)).value(RowIndex(0), ColumnIndex(0)), c.padded);
    }
}

TEST(TransformPad, AsksForALength)
{
    EXPECT_EQ(runTransform("Pad", {{"Length", 0}}, {column("7")}).warnings(),
        QStringList("1 option not set ('Minimum length')"));
}

TEST(TransformPad, RefusesLengthsThatMemoryCannotHold)
{
    const ScopedSettings settings;
    const TransformRun run = runTransform("Pad", {{"Columns", 1}, {"Length", 720000000}}, {column({"a", "b"})});
    EXPECT_EQ(rows(run.result), (QStringList{"a", "b"}));
    EXPECT_EQ(run.warnings(), QStringList{"'Minimum length' is too long (720,000,000 characters in 2 values)"});
    EXPECT_EQ(run.resultText(), "No changes");
}
