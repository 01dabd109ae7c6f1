#include "app/flowreport/flowdescription.h"
#include "app/flowreport/flowreport.h"
#include "app/programinfo.h"
#include "support/printers.h"
#include "support/scopedlocale.h"

#include <gtest/gtest.h>

namespace {

FlowDescription flow()
{
    FlowItem input;
    input.id = 7;
    input.kind = QStringLiteral("Input");
    input.name = QStringLiteral("a_b.csv");
    input.description = QStringLiteral("Input from a_b.csv.");
    input.hasRun = true;
    input.rowsAfter = 12345;
    input.columnsAfter = 3;
    FlowItem stack;
    stack.id = 3;
    stack.sourceIds = QList<int>{7, 9};
    stack.kind = QStringLiteral("Transform");
    stack.name = QStringLiteral("Stack");
    stack.description = QStringLiteral("Puts tables below each other.");
    stack.comment = QStringLiteral("two <b>lines</b>\nhere");
    stack.sources = QStringList{QStringLiteral("a_b.csv"), QStringLiteral("c.csv")};
    stack.options = {{QStringLiteral("Align by"), QStringLiteral("a|b")}};
    stack.hasRun = true;
    stack.rowsBefore = {12345, 5};
    stack.columnsBefore = {3, 3};
    stack.rowsAfter = 12350;
    stack.columnsAfter = 3;
    stack.warnings = QStringList(QStringLiteral("1 row is short"));
    FlowItem other = input;
    other.id = 9;
    other.name = QStringLiteral("c.csv");
    FlowItem waiting;
    waiting.kind = QStringLiteral("Output");
    waiting.name = QStringLiteral("out.csv");
    waiting.description = QStringLiteral("Output to a file.");
    waiting.state = QStringLiteral("Needs updating");
    FlowDescription described;
    described.name = QStringLiteral("x.transform");
    described.noteTexts = QStringList(QStringLiteral("Ask Ann."));
    described.items = {input, other, stack, waiting};
    return described;
}

TEST(FlowReport, Markdown)
{
    const ScopedLocale locale(QStringLiteral("en_US"));
    EXPECT_EQ(FlowReport::markdown(flow()),
        QString::fromUtf8("# Flow: x.transform\n\n"
                          "## 1. Input: a\\_b.csv\n\nInput from a\\_b.csv.\n\nRows: 12,345. Columns: 3.\n\n"
                          "## 2. Input: c.csv\n\nInput from a\\_b.csv.\n\nRows: 12,345. Columns: 3.\n\n"
                          "## 3. Transform: Stack\n\nPuts tables below each other.\n\n"
                          "Comment: two \\<b\\>lines\\</b\\><br>here\n\nReads: 1. a\\_b.csv, 2. c.csv\n\n"
                          "| Option | Value |\n|---|---|\n| Align by | a\\|b |\n\n"
                          "Rows: 12,345 + 5 \u2192 12,350. Columns: 3 + 3 \u2192 3.\n\n"
                          "**Warning:** 1 row is short\n\n"
                          "## 4. Output: out.csv\n\nOutput to a file.\n\n"
                          "**Warning:** This item is in the state 'Needs updating'.\n\n"
                          "## Notes on the canvas\n\nAsk Ann.\n\n")
            + QStringLiteral("Written by %1.\n\n").arg(ProgramInfo::nameAndVersion()));
}

TEST(FlowReport, Html)
{
    const ScopedLocale locale(QStringLiteral("en_US"));
    FlowDescription described = flow();
    described.picture = QByteArray("png");
    const QString html = FlowReport::html(described);
    EXPECT_TRUE(html.startsWith(QStringLiteral("<!DOCTYPE html>\n<html lang=\"en\">")));
    const char *const parts[] = {"<title>Flow: x.transform</title>",
        "<h1>Flow: x.transform</h1>\n<p><img alt=\"The flow\" src=\"data:image/png;base64,cG5n\"></p>\n"
        "<h2>1. Input: a_b.csv</h2>\n<p>Input from a_b.csv.</p>\n<p>Rows: 12,345. Columns: 3.</p>\n",
        "<p>Comment: two &lt;b&gt;lines&lt;/b&gt;<br>\nhere</p>\n",
        "<table>\n<tr><td>Align by</td><td>a|b</td></tr>\n</table>\n",
        "<p class=\"warning\"><b>Warning:</b> 1 row is short</p>\n"};
    for (const char *part : parts) {
        EXPECT_TRUE(html.contains(QString::fromUtf8(part))) << part << "\nis not in\n" << html.toStdString();
    }
    EXPECT_TRUE(html.endsWith(QStringLiteral("</body>\n</html>\n")));
}

} // namespace
