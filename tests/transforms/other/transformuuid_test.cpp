#include "support/grid.h"
#include "support/runon.h"

#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

TEST(TransformUUID, FillsAColumn)
{
    struct FormCase
    {
        const char *format;
        const char *pattern;
    };
    const FormCase cases[] = {
        {"Standard", "^\\{[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}\\}$"},
        {"Without braces", "^[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}$"},
        {"Without braces or dashes", "^[0-9a-f]{12}4[0-9a-f]{3}[89ab][0-9a-f]{15}$"},
    };
    for (const FormCase &c : cases) {
        SCOPED_TRACE(c.format);
        const TransformRun run = runTransform("UUID", {{"Format", c.format}}, {column({"a", "a", "b"})});
        EXPECT_EQ(run.result.header(), QStringList({"Value", "UUID"}));
        EXPECT_EQ(run.resultText(), "1 col added");
        const QStringList ids = run.result.columnValues(ColumnIndex(1));
        for (const QString &id : ids) {
            EXPECT_TRUE(QRegularExpression(c.pattern).match(id).hasMatch()) << id.toStdString();
        }
        EXPECT_EQ(QSet<QString>(ids.cbegin(), ids.cend()).size(), 3) << "each is another";
    }
    EXPECT_EQ(runOn("UUID", {{"New_Name", "Key"}}, column("a")).header().last(), "Key");
    EXPECT_EQ(runOn("UUID", {{"New_Name", ""}}, column("a")).header().last(), "") << "unnamed";
}
