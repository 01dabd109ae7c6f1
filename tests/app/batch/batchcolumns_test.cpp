#include "app/batch/batchcolumns.h"
#include "outputs/outputenums.h"
#include "support/printers.h"

#include <gtest/gtest.h>

namespace {

CommandLineItem input(const char *alias, bool feedsFile = true, bool isFolder = false)
{
    CommandLineItem item;
    item.alias = QString::fromLatin1(alias);
    item.path = QStringLiteral("/d/") + item.alias;
    item.isFolder = isFolder;
    item.isConnected = feedsFile;
    item.feedsFile = feedsFile;
    return item;
}

CommandLineItem output(const char *alias, int writeMode = WriteMode::Overwrite, bool isConnected = true)
{
    CommandLineItem item;
    item.kind = CommandLineItem::Output;
    item.alias = QString::fromLatin1(alias);
    item.path = QStringLiteral("/d/") + item.alias;
    item.writeMode = writeMode;
    item.isConnected = isConnected;
    return item;
}

CommandLineItem chart(const char *alias, bool isConnected = true)
{
    CommandLineItem item = output(alias, WriteMode::Overwrite, isConnected);
    item.kind = CommandLineItem::Chart;
    item.chartType = QStringLiteral("Line");
    return item;
}

struct ObstacleCase
{
    const char *what;
    QList<CommandLineItem> items;
    const char *obstacle;
};

TEST(BatchColumns, ChecksOfTheStart)
{
    const CommandLineItem folder = input("f", true, true);
    const ObstacleCase cases[] = {
        {"a document that will do", {input("in"), output("out"), chart("pic")}, ""},
        {"an input without alias", {input("in"), input(""), output("out")},
            "All Input items must have an alias for batch processing."},
        {"a file and a folder with one alias", {input("f"), folder, input("e"), input("e", true, true), output("out")},
            "Cannot use an alias for both file inputs and folder inputs.\nCommon alias(es): e, f"},
        {"two files with one alias", {input("in"), input("in"), output("out")}, ""},
        {"folders alone", {folder, output("out")}, "There must be at least 1 file input for batch processing."},
        {"nothing that writes", {input("in"), output("out", WriteMode::Disabled)},
            "There must be at least 1 Output/Chart item that is writing to a file."},
        {"a chart that writes", {input("in"), chart("pic")}, ""},
        {"two outputs with one alias", {input("in"), output("out"), output("out", WriteMode::Disabled)},
            "Cannot have more than 1 Output item with the same alias ('out')."},
        {"an output without alias", {input("in"), output("out"), output("")},
            "All Output items must have an alias for batch processing."},
        {"one without alias that writes nothing", {input("in"), output("out"), output("", WriteMode::Disabled)}, ""},
        {"an output and a chart with one alias", {input("in"), output("o"), chart("o")},
            "Cannot have more than 1 Chart or Output item with the same alias ('o')."},
        {"two charts with one alias", {input("in"), chart("c"), chart("c")},
            "Cannot have more than 1 Chart or Output item with the same alias ('c')."},
        {"a chart without alias", {input("in"), output("out"), chart("")},
            "All Chart items written to file must have an alias for batch processing."},
        {"an input and an output with one alias", {input("x"), output("x")},
            "Input and Output items cannot have the same alias for batch processing ('x')."},
        {"an input and a chart with one alias", {input("x"), output("out"), chart("x")},
            "Input and Chart items cannot have the same alias for batch processing ('x')."},
        {"a file that feeds nothing", {input("in", false), folder, output("out")},
            "At least 1 file input must be connected to a Output/Chart writing to a file."},
        {"the first of several obstacles", {input(""), output("out"), output("out")},
            "All Input items must have an alias for batch processing."},
    };
    for (const ObstacleCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(batchObstacle(c.items), QString::fromLatin1(c.obstacle));
    }
}

TEST(BatchColumns, InputsThenOutputsThenChartsEachByAlias)
{
    CommandLineItem many = output("m", WriteMode::Append);
    many.isMultiFile = true;
    const BatchColumns result = batchColumns({input("z"), input("a"), input("z"), many, output("b"), chart("c")});
    QStringList headers;
    for (const BatchColumn &column : result.columns) {
        headers.append(column.header);
    }
    EXPECT_EQ(headers, (QStringList{"Input alias=a", "Input alias=z", "Output alias='b' (Overwrite)",
                           "Output alias='m' (Append)", "Chart alias='c' (Line)"}));
    EXPECT_EQ(result.columns[1].ownPath, QStringLiteral("/d/z"));
    EXPECT_TRUE(result.columns[2].takesPath);
    EXPECT_FALSE(result.columns[3].takesPath) << "its files are named by a column";
    EXPECT_EQ(result.leftOut, QStringList());
}

TEST(BatchColumns, WhatGetsNoColumnIsTold)
{
    const BatchColumns result = batchColumns({input("in"), input("idle", false), output("out"),
        output("off", WriteMode::Disabled), output("loose", WriteMode::New, false), chart("pic", false)});
    EXPECT_EQ(result.columns.size(), 2);
    EXPECT_EQ(
        result.leftOut, (QStringList{"Input with alias 'idle' is not connected to an Output/Chart and will be ignored.",
                            "Output with alias 'off' has 'Write mode'='Disabled' and will be ignored.",
                            "Output with alias 'loose' is not connected to an input and will be ignored.",
                            "Chart with alias 'pic' is not connected to an input and will be ignored."}));
}

} // namespace
