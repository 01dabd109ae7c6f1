#pragma once

#include "spreadsheet/cellstyle.h"
#include "spreadsheet/xls/record.h"

#include <QHash>
#include <vector>

class QTextCodec;

namespace spreadsheet {

struct BookData;

/// Collects the records of a workbook that say how cells look, and makes the book's formats of them.
class XlsStyles
{
public:
    /// For a workbook before version 97, whose texts are in this encoding; before anything is added.
    void setOlder(const QTextCodec *codec) { m_codec = codec; }
    /// Takes FONT, FORMAT, PALETTE and XF records; ignores any other.
    void add(const Record &record);
    /// A format for each XF, under its number.
    void makeFormats(BookData &book) const;
    /// The XF of cells without a format of their own: the 16th, or else the first one made for cells.
    quint32 defaultFormat() const;

private:
    struct Font
    {
        FontStyle style;
        quint16 color = 0;
    };
    static bool isCellFormat(const Record &xf);
    void addFont(const Record &record);
    void addNumberFormat(const Record &record);
    void setPalette(const Record &record);
    StyleColor color(quint32 index) const;
    StyleColor fillColor(quint32 index, quint32 usual) const;
    CellStyle style(const Record &xf) const;
    CellStyle olderStyle(const Record &xf) const;
    FontStyle font(quint32 index) const;
    BorderStyle border(const Record &xf) const;

    const QTextCodec *m_codec = nullptr; // null from version 97 on
    std::vector<Font> m_fonts;
    QHash<int, QString> m_numberCodes;
    std::vector<QRgb> m_palette;
    std::vector<Record> m_formats; // XF records, in the stream
};

} // namespace spreadsheet
