#include "spreadsheet/xlsx/stylecolors.h"
#include "spreadsheet/xlsx/xlsxtestbook.h"

#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

const QByteArray theme =
    "<a:theme xmlns:a=\"x\"><a:themeElements><a:clrScheme name=\"n\"><a:dk1><a:sysClr val=\"windowText\" "
    "lastClr=\"010101\"/></a:dk1><a:lt1><a:sysClr val=\"window\" lastClr=\"FEFEFE\"/></a:lt1><a:dk2><a:srgbClr "
    "val=\"112233\"/></a:dk2><a:lt2><a:srgbClr val=\"DDEEFF\"/></a:lt2><a:accent1><a:srgbClr "
    "val=\"4472C4\"/></a:accent1>"
    "</a:clrScheme></a:themeElements></a:theme>";

/// The style of cell format 1 of a book with these styles.
CellStyle styleOf(const QByteArray &styles)
{
    LoadedXlsx loaded(XlsxTestBook().styles(styles).part("xl/theme/theme.xml", theme));
    const Format *format = loaded.book().format(1);
    EXPECT_TRUE(format) << loaded.book().errorMessage().toStdString();
    return format ? format->style() : CellStyle();
}

TEST(XlsxStyles, ResolvesColors)
{
    struct
    {
        const char *what;
        QByteArray color;
        QRgb rgb; // 0 for unset
    } const cases[] = {
        {"stated with opacity", "rgb=\"80FF0102\"", 0xFFFF0102},
        {"stated without", "rgb=\"FF0102\"", 0xFFFF0102},
        {"no number", "rgb=\"red\"", 0},
        {"the program's choice", "auto=\"1\"", 0},
        {"of the palette", "indexed=\"12\"", 0xFF0000FF},
        {"a system colour", "indexed=\"64\"", 0},
        {"of the theme, where light stands before dark", "theme=\"0\"", 0xFFFEFEFE},
        {"dark one", "theme=\"1\"", 0xFF010101},
        {"second light one", "theme=\"2\"", 0xFFDDEEFF},
        {"second dark one", "theme=\"3\"", 0xFF112233},
        {"one that this theme leaves to the usual one", "theme=\"10\"", 0xFF0000FF},
        {"none that a theme has", "theme=\"12\"", 0},
        {"made lighter", "theme=\"4\" tint=\"0.3999\"", 0xFF8EA9DB},
        {"made darker", "theme=\"4\" tint=\"-0.2499\"", 0xFF305496},
        {"white that is made darker is grey", "rgb=\"FFFFFFFF\" tint=\"-0.5\"", 0xFF808080},
        {"all the way", "rgb=\"FF123456\" tint=\"7\"", 0xFFFFFFFF},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const StyleColor color = styleOf(
            "<fonts><font/><font><color " + c.color + "/></font></fonts><cellXfs><xf/><xf fontId=\"1\"/></cellXfs>")
                                     .font.color;
        EXPECT_EQ(color.isSet, c.rgb != 0);
        // Programs differ by a step in how they round.
        EXPECT_NEAR(qRed(color.rgb), qRed(c.rgb), 1);
        EXPECT_NEAR(qGreen(color.rgb), qGreen(c.rgb), 1);
        EXPECT_NEAR(qBlue(color.rgb), qBlue(c.rgb), 1);
    }
}

TEST(XlsxStyles, TakesThePaletteOfTheFile)
{
    const QByteArray start =
        "<fonts><font><color indexed=\"1\"/></font><font><color indexed=\"2\"/></font></fonts><cellXfs>"
        "<xf/><xf fontId=\"";
    const QByteArray rest =
        "\"/></cellXfs><colors><indexedColors><rgbColor rgb=\"00010101\"/><rgbColor rgb=\"000A0B0C\"/>"
        "</indexedColors></colors>";
    EXPECT_EQ(styleOf(start + "0" + rest).font.color.rgb, 0xFF0A0B0C);
    EXPECT_EQ(styleOf(start + "1" + rest).font.color.rgb, 0xFFFF0000) << "behind its end the usual one goes on";
}

TEST(XlsxStyles, ReadsAllOfAFormat)
{
    const CellStyle style = styleOf(
        "<numFmts><numFmt numFmtId=\"170\" formatCode=\"yyyy&quot;x&quot;\"/></numFmts>"
        "<fonts><font/><font><b/><i val=\"0\"/><strike val=\"true\"/><u val=\"doubleAccounting\"/><vertAlign "
        "val=\"subscript\"/><sz val=\"9.5\"/><name val=\"Caf\xC3\xA9\"/><family val=\"2\"/><charset "
        "val=\"204\"/></font></fonts>"
        "<fills><fill><patternFill/></fill><fill><patternFill patternType=\"darkTrellis\"><fgColor "
        "rgb=\"FF000001\"/><bgColor "
        "rgb=\"FF000002\"/></patternFill></fill></fills>"
        "<borders><border/><border diagonalDown=\"1\"><left style=\"thin\"><color rgb=\"FF000003\"/></left><right "
        "style=\"slantDashDot\"/><top style=\"odd\"/><bottom/><diagonal style=\"double\"/></border></borders>"
        "<cellStyleXfs><xf numFmtId=\"9\"/></cellStyleXfs>"
        "<cellXfs><xf/><xf numFmtId=\"170\" fontId=\"1\" fillId=\"1\" borderId=\"1\"><alignment "
        "horizontal=\"centerContinuous\" "
        "vertical=\"justify\" wrapText=\"1\" textRotation=\"255\" indent=\"3\" readingOrder=\"2\" "
        "shrinkToFit=\"1\"/><protection "
        "locked=\"0\" hidden=\"1\"/></xf></cellXfs>");
    EXPECT_EQ(style.numberFormat, 170);
    EXPECT_EQ(style.numberCode, "yyyy\"x\"");
    EXPECT_TRUE(style.font.bold && !style.font.italic && style.font.strikeOut);
    EXPECT_EQ(style.font.underline, 34);
    EXPECT_EQ(style.font.script, 2);
    EXPECT_EQ(style.font.size, 9.5);
    EXPECT_EQ(style.font.name, QString("Caf") + QChar(0xE9));
    EXPECT_EQ(style.font.family, 2);
    EXPECT_EQ(style.font.charset, 204);
    EXPECT_EQ(style.fill.pattern, 10);
    EXPECT_EQ(style.fill.foreground.rgb, 0xFF000001);
    EXPECT_EQ(style.fill.background.rgb, 0xFF000002);
    EXPECT_EQ(style.border.left.style, 1);
    EXPECT_EQ(style.border.left.color.rgb, 0xFF000003);
    EXPECT_EQ(style.border.right.style, 13);
    EXPECT_EQ(style.border.top.style, 0);
    EXPECT_EQ(style.border.diagonal.style, 6);
    EXPECT_TRUE(style.border.diagonalDown && !style.border.diagonalUp);
    EXPECT_EQ(style.alignment.horizontal, 6);
    EXPECT_EQ(style.alignment.vertical, 3);
    EXPECT_TRUE(style.alignment.wrap && style.alignment.shrink);
    EXPECT_EQ(style.alignment.rotation, 255);
    EXPECT_EQ(style.alignment.indent, 3);
    EXPECT_EQ(style.alignment.readingOrder, 2);
    EXPECT_TRUE(!style.locked && style.hiddenFormula);
}

TEST(XlsxStyles, ReadsHostileStyles)
{
    struct
    {
        const char *what;
        QByteArray styles;
    } const cases[] = {
        {"parts that aren't there",
            "<cellXfs><xf/><xf numFmtId=\"999\" fontId=\"7\" fillId=\"-1\" borderId=\"99999999999\"/>"
            "</cellXfs>"},
        {"elements in each other",
            "<fonts><font><font><b/></font></font></fonts><fills><fill><fill/></fill></fills><borders>"
            "<border><left><left/></left></border></borders><cellXfs><xf><xf/></xf><xf/></cellXfs>"},
        {"no cell formats", "<fonts><font/></fonts>"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        LoadedXlsx loaded(XlsxTestBook().styles(c.styles));
        ASSERT_TRUE(loaded.isLoaded());
        ASSERT_TRUE(loaded.book().format(0));
        const Format *second = loaded.book().format(1);
        EXPECT_TRUE(!second || second->style().numberFormat == 0);
        EXPECT_FALSE(loaded.book().format(2));
    }
}

TEST(XlsxStyles, RefusesMoreFormatsThanAnyProgramWrites)
{
    LoadedXlsx loaded(XlsxTestBook().styles("<cellXfs>" + QByteArray("<xf/>").repeated(70000) + "</cellXfs>"));
    EXPECT_FALSE(loaded.isLoaded());
    EXPECT_EQ(loaded.book().errorMessage(), "The workbook has too many formats");
}

} // namespace
