#pragma once

#include "spreadsheet/bookdata.h"
#include "spreadsheet/xls/globalrecords.h"
#include "spreadsheet/xls/xlspalette.h"

#include <QHash>

namespace spreadsheet {

/// Fonts, number formats and cell formats of a workbook that is written: those of the loaded file and, behind them,
/// those that its cells use beyond them. Equal ones are written once.
class StyleWriter
{
public:
    /// With the fonts and formats that a new workbook begins with.
    explicit StyleWriter(const BookData &book);
    /// With those of a loaded file; cells without a format of their own have the `defaultRecord`.
    StyleWriter(const BookData &book, const GlobalRecords &records, quint32 defaultRecord);

    /// What cells of a format of the book hold: the number of an XF record.
    unsigned recordOf(quint32 format)
    {
        const bool isKnown = format < m_records.size() && m_records[format] >= 0;
        return isKnown ? static_cast<unsigned>(m_records[format]) : addRecordOf(format);
    }
    /// Height in points of rows of a new sheet, by the usual font.
    double usualRowHeight() const;
    /// Height in points that a row needs for the font of a format; 0 where the usual height will do.
    double rowHeight(quint32 format) const;

    // What was added to the loaded file, or all of a new one
    const std::vector<QByteArray> &fonts() const { return m_fonts; }
    const std::vector<QByteArray> &numberFormats() const { return m_numberFormats; }
    const std::vector<QByteArray> &cellFormats() const { return m_cellFormats; }
    const XlsPalette &palette() const { return m_palette; }
    /// True when the workbook had more formats than it can hold, and some got the usual one.
    bool isFull() const { return m_isFull; }
    /// True when one of them shows dates or times, which the usual format shows as numbers.
    bool losesDates() const { return m_losesDates; }

private:
    void addBaseFonts();
    void addBaseFormats();
    void loadRecord(const Record &record);
    unsigned addRecordOf(quint32 format);
    unsigned fontNumber(const FontStyle &font);
    int numberFormat(const CellStyle &style);

    const BookData &m_book;
    unsigned m_defaultRecord;
    XlsPalette m_palette;
    std::vector<int> m_records; // XF by format of the book; below 0 when not yet known
    std::vector<QByteArray> m_fonts, m_numberFormats, m_cellFormats;
    QHash<QByteArray, unsigned> m_fontNumbers, m_cellFormatNumbers;
    QHash<QString, int> m_numberFormatNumbers;
    unsigned m_fontCount = 0, m_cellFormatCount = 0;
    int m_nextNumberFormat;
    bool m_isFull = false, m_losesDates = false;
};

} // namespace spreadsheet
