#include "files/delimiters.h"
#include "outputnode/outputdefaults.h"
#include "outputnode/outputnode.h"
#include "support/scopedsettings.h"

#include <gtest/gtest.h>

TEST(OutputDefaults, DependOnPathAndType)
{
    struct
    {
        const char *what;
        const char *path;
        int type;
        int delimiter;
        int quoting;
        bool mark;
    } const cases[] = {
        {"a comma and quotes as needed", "/x/data.csv", FileType::Delimited, DelimiterKind::Comma, Quoting::AsNeeded,
            true},
        {"tabs never need quotes", "/x/report.tsv", FileType::Delimited, DelimiterKind::Tab, Quoting::Never, true},
        {"so do other extensions with a small t", "/x/a.txt", FileType::PlainText, DelimiterKind::Tab, Quoting::Never,
            true},
        {"a large T is another letter", "/x/A.TSV", FileType::Delimited, DelimiterKind::Comma, Quoting::AsNeeded, true},
        {"JSON has no mark", "/x/a.json", FileType::Json, DelimiterKind::Comma, Quoting::AsNeeded, false},
        {"no path", "", FileType::Delimited, DelimiterKind::Comma, Quoting::AsNeeded, true},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const OutputNode node(QString(c.path), c.type);
        EXPECT_EQ(node.delimiterKind(), c.delimiter);
        EXPECT_EQ(node.options().quoting, c.quoting);
        EXPECT_EQ(node.options().writeBom, c.mark);
        EXPECT_EQ(node.encoding(), QString("UTF-8"));
        EXPECT_EQ(node.options().fileComment, QString(" File created by Quillmere {version} at {date} {time} "));
    }
}

TEST(OutputDefaults, AreThoseRememberedForTypeAndExtension)
{
    ScopedSettings settings;
    OutputNode chosen("/x/a.CSV");
    OutputOptions options = chosen.options();
    options.lineEndings = LineEndings::Windows;
    options.writeBom = false;
    options.fileComment = "by me";
    chosen.setOptions(options);
    chosen.setDelimiterKind(DelimiterKind::Custom);
    chosen.setCustomDelimiter(QChar(0xA7));
    chosen.setEncoding("ISO-8859-1");
    for (const char *key : {"delimiter", "custom_delimiter", "line_endings", "bom", "encoding", "no_such_key"}) {
        OutputDefaults::remember(chosen, key);
    }
    EXPECT_TRUE(settings->isStored("defaults/outputs/Delimited text/csv/bom"));
    EXPECT_FALSE(settings->isStored("defaults/outputs/Delimited text/csv/no_such_key"));

    OutputNode same("/y/b.csv");
    OutputDefaults::apply(same);
    EXPECT_EQ(same.delimiterKind(), DelimiterKind::Custom);
    EXPECT_EQ(same.customDelimiter(), QChar(0xA7));
    EXPECT_EQ(same.encoding(), QString("ISO-8859-1"));
    EXPECT_EQ(same.options().lineEndings, LineEndings::Windows);
    EXPECT_FALSE(same.options().writeBom);
    EXPECT_EQ(same.options().fileComment, OutputOptions().fileComment) << "this one was not remembered";

    OutputNode otherExtension("/y/b.dat");
    OutputDefaults::apply(otherExtension);
    EXPECT_EQ(otherExtension.delimiterKind(), DelimiterKind::Comma);
    OutputNode otherType("/y/b.csv", FileType::Html);
    OutputDefaults::apply(otherType);
    EXPECT_TRUE(otherType.options().writeBom);
}

TEST(OutputDefaults, KnowPathsWithoutExtension)
{
    ScopedSettings settings;
    OutputNode chosen("/x/data");
    chosen.setEncoding("UTF-16");
    OutputDefaults::remember(chosen, "encoding");
    EXPECT_TRUE(settings->isStored("defaults/outputs/Delimited text/(Empty)/encoding"));
}
