#include "spreadsheet/xlsx/xlsxtestbook.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>
#include <iterator>

using namespace spreadsheet;

namespace {

/// A book with something of everything.
XlsxTestBook richBook()
{
    XlsxTestBook book;
    book.texts("<si><t>a</t></si><si><r><t>b</t></r><rPh><t>x</t></rPh><r><t>_x0041_</t></r></si>");
    book.styles(
        "<numFmts><numFmt numFmtId=\"165\" formatCode=\"yyyy\"/></numFmts><fonts><font><b/><color theme=\"1\" "
        "tint=\"0.5\"/></font></fonts><fills><fill><patternFill patternType=\"solid\"><fgColor indexed=\"9\"/>"
        "</patternFill></fill></fills><borders><border><left style=\"thin\"><color rgb=\"FF000000\"/></left></border>"
        "</borders><cellXfs><xf/><xf numFmtId=\"165\"><alignment horizontal=\"left\"/></xf></cellXfs>");
    book.part("xl/theme/theme.xml",
        "<a:theme><a:themeElements><a:clrScheme><a:dk1><a:srgbClr val=\"112233\"/></a:dk1></a:clrScheme>"
        "</a:themeElements></a:theme>");
    book.relations("xl/worksheets/_rels/data.xml.rels",
        "<Relationship Id=\"l\" Type=\"x/hyperlink\" Target=\"http://x\" "
        "TargetMode=\"External\"/>");
    book.sheet(
        "<sheetFormatPr zeroHeight=\"0\"/><cols><col min=\"1\" max=\"3\" width=\"9\"/><col min=\"5\" max=\"6\"/></cols>"
        "<sheetData><row r=\"1\" s=\"1\" customFormat=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" "
        "s=\"1\"><v>2.5</v>"
        "</c><c r=\"C1\" t=\"s\"><v>1</v></c><c r=\"D1\" t=\"b\"><v>1</v></c></row><row r=\"3\" ht=\"20\" "
        "customHeight=\"1\">"
        "<c r=\"A3\" t=\"str\"><f t=\"shared\" si=\"0\">B1&amp;\"\xC3\xA9\"</f><v>r</v></c><c r=\"B3\" "
        "t=\"inlineStr\"><is><t>i</t>"
        "</is></c><c t=\"e\"><v>#N/A</v></c><c r=\"D3\" t=\"d\"><v>2024-01-31T10:00:00</v></c></row></sheetData>"
        "<mergeCells><mergeCell ref=\"A1:B2\"/></mergeCells><hyperlinks><hyperlink ref=\"A1\" "
        "r:id=\"l\"/></hyperlinks>");
    return book;
}

void mutate(QByteArray *bytes, QRandomGenerator *random)
{
    static const char telling[] = "<>/\"'&;= 0123456789-:cvrstfAXD!\x00\xFF\x80";
    for (int edits = 1 + random->bounded(4); edits > 0 && !bytes->isEmpty(); --edits) {
        const int at = random->bounded(bytes->size());
        switch (random->bounded(5)) {
        case 0:
            (*bytes)[at] = static_cast<char>(random->bounded(256));
            break;
        case 1:
            (*bytes)[at] = telling[random->bounded(static_cast<int>(sizeof(telling) - 1))];
            break;
        case 2:
            bytes->remove(at, 1 + random->bounded(12));
            break;
        case 3:
            bytes->insert(at, bytes->mid(random->bounded(bytes->size()), random->bounded(40)));
            break;
        default:
            bytes->insert(at, telling[random->bounded(static_cast<int>(sizeof(telling) - 1))]);
        }
    }
}

/// Reads all there is; an error must have a text.
QString readAll(const QByteArray &file)
{
    LoadedXlsx loaded(file);
    if (!loaded.isLoaded()) {
        EXPECT_FALSE(loaded.book().errorMessage().isEmpty());
        return "not loaded";
    }
    loaded.book().sheetHasCells(0);
    for (int i = 0; i < loaded.book().sheetCount(); ++i) {
        const bool isRead = loaded.book().getSheet(i);
        EXPECT_TRUE(isRead || loaded.book().sheetType(i) != 0 || !loaded.book().errorMessage().isEmpty());
    }
    return loaded.book().sheetCount() > 0 && loaded.first() ? loaded.cells() : QString("not read");
}

TEST(XlsxFuzz, SurvivesDamagedParts)
{
    QRandomGenerator random(51);
    const XlsxTestBook good = richBook();
    const QList<QByteArray> names = good.parts().keys();
    int readCount = 0;
    for (int i = 0; i < 1500; ++i) {
        XlsxTestBook book = good;
        const QByteArray &name = names[random.bounded(names.size())];
        QByteArray content = good.parts()[name];
        mutate(&content, &random);
        book.part(name, content);
        SCOPED_TRACE(i);
        readCount += readAll(book.zip(false)).startsWith("not") ? 0 : 1;
    }
    EXPECT_GT(readCount, 200) << "most damage must lie deeper than the first check";
}

/// A cell of pieces that fit together more often than not.
QByteArray randomCell(QRandomGenerator *random)
{
    static const char *const starts[] = {
        "<c", "<c", "<c ", "<!-- x --><c", "\n<c", "<x/><c", "<c>", "<![CDATA[<c>]]><c"};
    static const char *const attributes[] = {" r=\"B2\"", " r=\"C7\"", " r=\"AAA1\"", " r='D1'", " s=\"1\"", " s=\"7\"",
        " t=\"s\"", " t=\"str\"", " t=\"b\"", " t=\"e\"", " t=\"d\"", " t=\"inlineStr\"", " t=\"\"", " cm=\"1\"",
        " r=\"&#66;2\"", " s = \"1\"", " y:t=\"s\""};
    static const char *const contents[] = {"><v>1</v></c>", "><v>0</v></c>", "><v>-2.5e3</v></c>", "/>", "></c>",
        "><v></v></c>", "><v>a &amp; b</v></c>", "><f>A1</f><v>1</v></c>", "><is><t>x</t></is></c>",
        "><v>1</v><v>2</v></c>", "><is><t>_x0042_</t></is></c>", "><is><t>y</t><t>z</t></is></c>", "><v>]</v></c>",
        "><v>2024-01-31</v></c>", " ><v>1</v ></c >", "><v/></c>", "><v>1<!-- --></v></c>", "><v>\xC3\xA9</v></c>",
        "><y><c><v>5</v></c></y></c>", "><v>]]></v></c>", "><v>1</c>"};
    const auto pick = [random](const auto &list) {
        return QByteArray(list[random->bounded(static_cast<int>(std::size(list)))]);
    };
    const QByteArray start = pick(starts);
    QByteArray cell = start;
    for (int count = start.endsWith('>') ? 0 : random->bounded(3); count > 0; --count) {
        cell += pick(attributes);
    }
    // The rare ones at the end of the list are not well formed.
    const int last = random->bounded(20) == 0 ? static_cast<int>(std::size(contents))
                                              : static_cast<int>(std::size(contents)) - 2;
    const QByteArray content = contents[random->bounded(last)];
    return start.endsWith('>') ? cell + "</c>" : cell + content;
}

TEST(XlsxFuzz, ReadsPlainCellsLikeAllOthers)
{
    QRandomGenerator random(52);
    int readCount = 0;
    for (int i = 0; i < 800; ++i) {
        QByteArray rows;
        for (int row = random.bounded(3); row >= 0; --row) {
            rows += "<row>";
            for (int cell = random.bounded(4); cell >= 0; --cell) {
                rows += randomCell(&random);
            }
            rows += "</row>";
        }
        if (i % 10 == 0) {
            mutate(&rows, &random);
        }
        QByteArray spaced = rows;
        spaced.replace("<c r", "<c  r")
            .replace("<c s", "<c  s")
            .replace("<c t", "<c  t")
            .replace("<c><v>1", "<c ><v>1");
        SCOPED_TRACE(rows.toStdString());
        const QString cells = readAll(richBook().rows(rows).zip(false));
        ASSERT_EQ(cells, readAll(richBook().rows(spaced).zip(false)));
        readCount += cells.startsWith("not") ? 0 : 1;
    }
    EXPECT_GT(readCount, 200);
}

TEST(XlsxFuzz, SurvivesDamagedArchives)
{
    QRandomGenerator random(53);
    const QByteArray good = richBook().zip();
    for (int i = 0; i < 1500; ++i) {
        QByteArray file = good;
        if (random.bounded(4) == 0) {
            file.truncate(random.bounded(file.size()));
        } else {
            mutate(&file, &random);
        }
        SCOPED_TRACE(i);
        readAll(file);
    }
}

} // namespace
