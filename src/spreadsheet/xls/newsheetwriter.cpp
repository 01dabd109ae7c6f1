#include "spreadsheet/xls/beginrecord.h"
#include "spreadsheet/xls/celltablewriter.h"
#include "spreadsheet/xls/sheetlayoutwriter.h"
#include "spreadsheet/xls/xlssheetwriter.h"

namespace spreadsheet {
namespace {

/// How the sheet is calculated and printed, as a new workbook has it.
void writeSettings(const StyleWriter &styles, RecordWriter &out)
{
    constexpr unsigned usualOptions = 0x04C1; // page breaks and outline symbols are shown
    constexpr double twipsInPoint = 20.0;
    const auto height = static_cast<unsigned>(qRound(styles.usualRowHeight() * twipsInPoint));
    out.write(RecordId::CalcMode, {1});
    out.write(RecordId::CalcCount, {100});
    out.write(RecordId::RefMode, {1});
    out.write(RecordId::Iteration, {0});
    out.begin(RecordId::Delta);
    out.buffer().f64(0.001);
    out.end();
    out.write(RecordId::SaveRecalc, {1});
    out.write(RecordId::PrintHeaders, {0});
    out.write(RecordId::PrintGridlines, {0});
    out.write(RecordId::GridSet, {1});
    out.write(RecordId::Guts, {0, 0, 0, 0});
    out.write(RecordId::DefaultRowHeight, {0, height});
    out.write(RecordId::SheetOptions, {usualOptions});
    out.write(RecordId::Header, QByteArray());
    out.write(RecordId::Footer, QByteArray());
    out.write(RecordId::HorizontalCenter, {0});
    out.write(RecordId::VerticalCenter, {0});
}

void writePageSetup(RecordWriter &out)
{
    constexpr unsigned usualScale = 100, firstPage = 1, notSet = 0x0004, resolution = 600;
    constexpr double edge = 0.5; // inches of header and footer
    out.begin(RecordId::Setup);
    for (const unsigned word : {0u, usualScale, firstPage, 1u, 1u, notSet, resolution, resolution}) {
        out.buffer().u16(word);
    }
    out.buffer().f64(edge);
    out.buffer().f64(edge);
    out.buffer().u16(1);
    out.end();
}

void writeWindow(bool isFirst, RecordWriter &out)
{
    constexpr unsigned usual = 0x00B6, selectedAndShown = 0x0600; // grid lines, headings, zeros, automatic colour
    constexpr unsigned gridColor = 0x40;
    out.write(RecordId::Window2, {usual | (isFirst ? selectedAndShown : 0), 0, 0, gridColor, 0, 0, 0, 0, 0});
    constexpr unsigned onlyPane = 3;
    out.begin(RecordId::Selection);
    out.buffer().u8(onlyPane);
    for (const unsigned word : {0u, 0u, 0u, 1u, 0u, 0u}) { // the cell and, as a list of one, its range
        out.buffer().u16(word);
    }
    out.buffer().u16(0);
    out.end();
}

} // namespace

void writeNewSheet(SaveContext &context, const Sheet &sheet, bool isFirst, RecordWriter &out)
{
    constexpr unsigned usualWidth = 8; // characters
    CellTableWriter cells(context, sheet, SharedFormulas(), out);
    writeBegin(SubstreamType::Worksheet, out);
    writeSettings(context.styles, out);
    writePageSetup(out);
    out.write(RecordId::DefaultColumnWidth, {usualWidth});
    writeColumns(sheet.layout(), context.styles, out);
    cells.writeDimensions();
    cells.writeCells();
    writeWindow(isFirst, out);
    writeMerges(sheet.layout(), out);
    writeHyperlinks(sheet.layout(), {}, out);
    out.write(RecordId::Eof, QByteArray());
}

} // namespace spreadsheet
