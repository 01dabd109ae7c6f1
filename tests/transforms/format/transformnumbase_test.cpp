#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

namespace {

struct BaseCase
{
    const char *what;
    int from;
    int to;
    QString cell;
    QString written;
};

} // namespace

TEST(TransformNumBase, RewritesWholeNumbers)
{
    const BaseCase cases[] = {
        {"decimal to hexadecimal", 10, 16, "255", "ff"},
        {"hexadecimal to decimal, in either case", 16, 10, "Ff", "255"},
        {"with a prefix", 16, 10, "0x1F", "31"},
        {"binary", 2, 10, "101", "5"},
        {"the largest base", 10, 32, "31", "v"},
        {"a negative number is unsigned in other bases", 10, 16, "-1", "ffffffffffffffff"},
        {"but not in base ten", 16, 10, "-ff", "-255"},
        {"the largest number", 10, 2, "9223372036854775807", QString(63, '1')},
        {"a larger one stays", 10, 2, "9223372036854775808", "9223372036854775808"},
        {"blanks around", 10, 16, " 10 ", "a"},
        {"decimals stay", 10, 16, "1.0", "1.0"},
        {"digits beyond the base stay", 8, 10, "18", "18"},
        {"an empty cell stays", 10, 16, "", ""},
    };
    for (const BaseCase &c : cases) {
        SCOPED_TRACE(c.what);
        const OptionSettings options{{"Columns", 1}, {"From", c.from}, {"To", c.to}};
        EXPECT_EQ(rows(runOn("Num_Base", options, plainGrid({c.cell}))), QStringList(c.written));
    }
}

TEST(TransformNumBase, GuessesTheBaseOfAColumn)
{
    struct GuessCase
    {
        const char *what;
        QStringList cells;
        int base;
    };
    const GuessCase cases[] = {
        {"a prefix means sixteen", {"0x10", "0X20"}, 16},
        {"zeros and ones mean two", {"101", "", "11"}, 2},
        {"an equal count leaves the smaller", {"17", "7"}, 8},
        {"digits mean ten", {"19", "7"}, 10},
        {"letters mean sixteen", {"19", "7f"}, 16},
        {"nothing that reads means ten", {"x", ""}, 10},
        {"only 25 rows count",
            QStringList(QVector<QString>(25, "9").toList()) + QStringList(QVector<QString>(30, "f").toList()), 10},
    };
    for (const GuessCase &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Num_Base", {{"Columns", 1}, {"To", 3}}, {column(c.cells)});
        EXPECT_EQ(run.infos(), QStringList(QString("Guessing base %1 for column 1 ('Value')").arg(c.base)));
    }
}

TEST(TransformNumBase, TellsWhatHappened)
{
    const ScopedLocale locale("en_US");
    const TransformRun run = runTransform("Num_Base", {{"From", 10}, {"To", 16}, {"Non_Numeric", "Change to NaN"}},
        {column({"-1", "1", "1,000", "1.5", "12"})});
    EXPECT_EQ(rows(run.result), QStringList({"ffffffffffffffff", "1", "NaN", "NaN", "c"}));
    EXPECT_EQ(run.resultText(), "2 changed, 1 unchanged, 2 non-integer");
    EXPECT_EQ(run.warnings(), QStringList({"Negative input values are shown as unsigned when converted to base 16",
                                  "Input values should not contain ',' or '.' characters", "2 non-integer values:",
                                  "'1,000' at column 'Value' row 3", "'1.5' at column 'Value' row 4"}));

    const TransformRun same = runTransform("Num_Base", {{"From", 16}}, {column("1f")});
    EXPECT_EQ(same.resultText(), "No changes");
    EXPECT_EQ(same.warnings(), QStringList("'Base from' and 'Base to' values are the same"));
    EXPECT_EQ(runTransform("Num_Base", {{"From", 16}, {"To", 10}}, {column({"-1", "x"})}).warnings(),
        QStringList({"1 non-integer value:", "'x' at column 'Value' row 2"}));
    EXPECT_EQ(runTransform("Num_Base", {}, {column({"x"})}).resultText(), "No changes");
    EXPECT_EQ(same.transform->parameter("From")->summary(), "16");
    EXPECT_EQ(runTransform("Num_Base", {}, {column("1")}).transform->parameter("From")->summary(), "Guess");
}
