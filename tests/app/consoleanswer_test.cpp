#include "app/commandline.h"
#include "app/consoleanswer.h"
#include "support/printers.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

TEST(ConsoleAnswer, WhatIsAskedFor)
{
    const QString usage = consoleAnswer({QStringLiteral("--help")});
    const QString version = consoleAnswer({QStringLiteral("--version")});
    EXPECT_TRUE(usage.startsWith(QStringLiteral("Usage: quillmere "))) << usage.toStdString();
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^Quillmere \\d+\\.\\d+\\.\\d+\n$")).match(version).hasMatch())
        << version.toStdString();
    const struct
    {
        const char *what;
        QStringList arguments;
        QString answer;
    } cases[] = {
        {"nothing", {}, QString()},
        {"one letter", {"-h"}, usage},
        {"one dash, any case", {"-HELP"}, usage},
        {"help comes first", {"-cli", "no.transform", "-bad", "--version", "--help"}, usage},
        {"the version in a run is a line of its report", {"-cli", "a.transform", "-version"}, QString()},
        {"and before it", {"-version", "-cli", "a.transform"}, QString()},
        {"the version with a document", {"a.transform", "-version"}, version},
        {"a value isn't an option", {"-log", "--help"}, QString()},
        {"a file isn't one", {"help", "h", "version"}, QString()},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(consoleAnswer(c.arguments), c.answer);
    }
}

TEST(ConsoleAnswer, UsageNamesOptionsThatThereAre)
{
    const QString usage = consoleAnswer({QStringLiteral("-h")});
    int count = 0;
    for (const QString &line : usage.split(QLatin1Char('\n'))) {
        EXPECT_LE(line.size(), 80) << line.toStdString();
        const QString option = line.trimmed().section(QLatin1Char(' '), 0, 0);
        if (!option.startsWith(QLatin1Char('-')) || option.startsWith(QStringLiteral("-help"))) {
            continue;
        }
        ++count;
        const QString error = parseCommandLine({QStringLiteral("quillmere"), option}).error;
        EXPECT_FALSE(error.startsWith(QStringLiteral("Unrecognized"))) << error.toStdString();
        EXPECT_EQ(takesValue(optionName(option)), error.startsWith(QStringLiteral("No value")));
    }
    EXPECT_GE(count, 11);
}

} // namespace
