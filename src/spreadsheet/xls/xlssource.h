#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

class QTextCodec;

namespace spreadsheet {

/// What is kept of a loaded .xls file. Forms in which its sheets keep what the book doesn't interpret:
/// - FormulaRecord::stored: whole records as they stand in the stream, headers included: the FORMULA record, its
///   CONTINUE records and the ARRAY, SHRFMLA or TABLE record that goes with it, without the STRING record of the
///   result. The FORMULA record's row, column, format and result stand at the fixed places 4, 6, 8 and 10.
/// - GridRow::otherAttributes: bytes 6 to 15 of the ROW record (height, two unused fields, option flags), kept only
///   when the outline, the spacing, the phonetic mark or an automatic height different from the usual one says more
///   than the row's own fields.
/// - ColumnRecord::otherAttributes: the two bytes of option flags of the COLINFO record, kept when one other than the
///   hidden flag is set.
/// - Hyperlink::stored: the data of the HLINK record without its header.
struct XlsSource
{
    /// BOF to EOF of a sheet, both included, in the workbook stream.
    struct SheetPart
    {
        quint32 offset = 0, size = 0;
    };

    QString path;
    QString streamName;       ///< as the file spells it
    QByteArray workbook;      ///< the workbook stream, no longer encrypted
    quint16 version = 0x0600; ///< that its BOF records state
    /// Of texts, which are bytes before version 97; null from then on, where they tell by themselves.
    const QTextCodec *textCodec = nullptr;
    quint32 globalsEnd = 0;        ///< size of the globals substream, its EOF included
    std::vector<SheetPart> sheets; ///< by SheetEntry::source; all lie behind the globals and don't overlap
    quint32 loadedTexts = 0;    ///< so many texts at the start of the book's table are those of the SST, in its order
    quint32 defaultFormat = 15; ///< the XF that cells without a format of their own have
};

} // namespace spreadsheet
