#pragma once

namespace spreadsheet {

/// The two kinds of workbook.
enum class FileKind { Xlsx, Xls };

/// Rows and columns that a sheet of a kind can have.
constexpr int maxRows(FileKind kind)
{
    return kind == FileKind::Xlsx ? 1048576 : 65536;
}
constexpr int maxColumns(FileKind kind)
{
    return kind == FileKind::Xlsx ? 16384 : 256;
}

constexpr int maxSheetNameLength = 31; ///< UTF-16 units
constexpr int maxTextLength = 32767;   ///< UTF-16 units in a cell
constexpr int maxHyperlinks = 65530;   ///< on a sheet
constexpr int maxHyperlinkLength = 2079;

} // namespace spreadsheet
