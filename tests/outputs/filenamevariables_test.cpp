#include "outputs/filenamevariables.h"
#include "support/printers.h"

#include <QSysInfo>
#include <gtest/gtest.h>

TEST(FileNameVariables, AreReplacedInPathAndSheet)
{
    FileNameVariables::Context context;
    context.sources = {{"a", "/data/in put/sales.2024.xlsx", "S1"}, {"f", "/data/north", ""},
        {"a", "/second/of/the/name.csv", ""}, {"top", "/x.csv", ""}};
    context.documentPath = "/docs/flow.v2.transform";
    const QDateTime now(QDate(2024, 3, 9), QTime(7, 5, 2, 41));
    struct
    {
        const char *what;
        const char *path;
        const char *sheet;
        const char *expandedPath;
        const char *expandedSheet;
    } const cases[] = {
        {"no brace, no change", "/out/x.csv", "S", "/out/x.csv", "S"},
        {"the alias gives stem and sheet", "/out/{a}.csv", "{a}", "/out/sales.2024_S1.csv", "sales.2024_S1"},
        {"the parts of a file", "{a.folder}|{a.lastfolder}|{a.fname}|{a.ext}|{a.sheet}", "",
            "/data/in put|in put|sales.2024|xlsx|S1", ""},
        {"the sheet leaves the last folder alone", "x", "{a.lastfolder}-{a.folder}-{a.ext}", "x",
            "{a.lastfolder}-/data/in put-xlsx"},
        {"a folder stands for itself", "{f}|{f.folder}|{f.sheet}|{f.ext}", "", "north|/data||", ""},
        {"a file at the top has no last folder", "{top.folder}{top.lastfolder}{top}", "", "/x", ""},
        {"every occurrence, unknown ones stay", "{a.fname}{a.fname}{b}{a.no}{", "", "sales.2024sales.2024{b}{a.no}{",
            ""},
        {"dates and times", "{date} {time} {datetime}", "{day}-{month}-{year}",
            "2024_03_09 07_05_02_041 2024_03_09_07_05_02_041", "09-03-2024"},
        {"parts of the time", "{hour}{minute}{second}", "", "070502", ""},
        {"the document's base name", "{transformfname}", "{transformfname}", "flow", "flow"},
        {"aliases count case", "{A}{Date}", "", "{A}{Date}", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        QString path = c.path;
        QString sheet = c.sheet;
        FileNameVariables::expand(path, sheet, context, now);
        EXPECT_EQ(path, QString(c.expandedPath));
        EXPECT_EQ(sheet, QString(c.expandedSheet));
    }
}

TEST(FileNameVariables, TellOfProgramAndPlace)
{
    const QByteArray before = qgetenv("USER");
    qputenv("USER", "ann");
    EXPECT_EQ(FileNameVariables::expanded("{version}|{computername}|{username}|{transformfname}", {}),
        QString("v1_0_0|%1|ann|").arg(QSysInfo::machineHostName()));
    qputenv("USER", before);
}

TEST(FileNameVariables, AreAllListedByName)
{
    EXPECT_EQ(FileNameVariables::names().size(), 13);
    for (const QString &name : FileNameVariables::names()) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_FALSE(FileNameVariables::expanded(name, {}).contains('{'));
    }
}
