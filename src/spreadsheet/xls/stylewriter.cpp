#include "spreadsheet/xls/stylewriter.h"

#include "spreadsheet/numberformats.h"
#include "spreadsheet/xls/biffstrings.h"
#include "spreadsheet/xls/stylerecords.h"

namespace spreadsheet {
namespace {

constexpr unsigned mostCellFormats = 4000;
constexpr unsigned mostFonts = 512;
constexpr int mostNumberFormats = 4000;
constexpr int longestNumberCode = 255;
constexpr unsigned baseFormats = 15;
constexpr unsigned unusedFont = 4;     // the number that no font has
constexpr double heightOfFont = 1.365; // 15 points for one of 11

} // namespace

StyleWriter::StyleWriter(const BookData &book)
    : m_book(book)
    , m_defaultRecord(baseFormats)
    , m_nextNumberFormat(firstCustomNumberFormat)
{
    addBaseFonts();
    addBaseFormats();
}

StyleWriter::StyleWriter(const BookData &book, const GlobalRecords &records, quint32 defaultRecord)
    : m_book(book)
    , m_defaultRecord(defaultRecord)
    , m_nextNumberFormat(firstCustomNumberFormat)
{
    m_palette.freeze();
    for (const Record &record : records) {
        loadRecord(record);
    }
    // Without them the first ones that are added would be those of all cells.
    if (m_fontCount == 0) {
        addBaseFonts();
    }
    if (m_cellFormatCount == 0) {
        m_defaultRecord = baseFormats;
        addBaseFormats();
        return;
    }
    m_records.assign(std::min(book.loadedFormats, m_cellFormatCount), 0);
    for (size_t i = 0; i < m_records.size(); ++i) {
        m_records[i] = static_cast<int>(i);
    }
    if (m_records.empty()) {
        m_records.push_back(0);
    }
    m_records[0] = static_cast<int>(m_defaultRecord);
}

void StyleWriter::addBaseFonts()
{
    FontStyle font;
    font.size = usualFontSize;
    if (const Format *usual = m_book.format(0)) {
        font = usual->style().font;
    }
    const QByteArray usualFont = fontRecord(font, m_palette);
    m_fonts.assign(unusedFont, usualFont); // the file's own first fonts, which the base formats refer to
    m_fontCount = unusedFont;
    m_fontNumbers.insert(usualFont, 0);
    font.bold = true; // one more, since files have at least five
    fontNumber(font);
}

/// And behind them the format of cells that have none of their own.
void StyleWriter::addBaseFormats()
{
    for (unsigned i = 0; i < baseFormats; ++i) {
        m_cellFormats.push_back(baseFormatRecord(0, i == 0));
    }
    m_cellFormatCount = baseFormats;
    addRecordOf(0);
}

void StyleWriter::loadRecord(const Record &record)
{
    const QByteArray data(reinterpret_cast<const char *>(record.data), static_cast<int>(record.size));
    switch (record.id) {
    case RecordId::Font:
        if (!m_fontNumbers.contains(data)) {
            m_fontNumbers.insert(data, m_fontCount < unusedFont ? m_fontCount : m_fontCount + 1);
        }
        ++m_fontCount;
        break;
    case RecordId::NumberFormat: {
        const int number = record.u16(0);
        m_numberFormatNumbers.insert(textAt(record, 2), number);
        m_nextNumberFormat = std::max(m_nextNumberFormat, number + 1);
        break;
    }
    case RecordId::ExtendedFormat:
        if (!m_cellFormatNumbers.contains(data)) {
            m_cellFormatNumbers.insert(data, m_cellFormatCount);
        }
        ++m_cellFormatCount;
        break;
    case RecordId::Palette:
        m_palette.load(record);
        break;
    default:
        break;
    }
}

unsigned StyleWriter::addRecordOf(quint32 format)
{
    const Format *found = m_book.format(format);
    unsigned number = m_defaultRecord;
    if (found) {
        const CellStyle &style = found->style();
        const int codeNumber = numberFormat(style);
        bool isLost = codeNumber == 0;
        const QByteArray data = cellFormatRecord(
            style, fontNumber(style.font), static_cast<unsigned>(codeNumber), m_palette);
        const auto known = m_cellFormatNumbers.constFind(data);
        if (known != m_cellFormatNumbers.constEnd()) {
            number = *known;
        } else if (m_cellFormatCount < mostCellFormats) {
            number = m_cellFormatCount++;
            m_cellFormatNumbers.insert(data, number);
            m_cellFormats.push_back(data);
        } else {
            m_isFull = isLost = true;
        }
        m_losesDates = m_losesDates || (isLost && found->isDate());
    }
    if (m_records.size() <= format && found) {
        m_records.resize(format + 1, -1);
    }
    if (found) {
        m_records[format] = static_cast<int>(number);
    }
    return number;
}

unsigned StyleWriter::fontNumber(const FontStyle &font)
{
    const QByteArray data = fontRecord(font, m_palette);
    const auto known = m_fontNumbers.constFind(data);
    if (known != m_fontNumbers.constEnd()) {
        return *known;
    }
    if (m_fontCount >= mostFonts) {
        m_isFull = true;
        return 0;
    }
    const unsigned number = m_fontCount < unusedFont ? m_fontCount : m_fontCount + 1;
    ++m_fontCount;
    m_fonts.push_back(data);
    m_fontNumbers.insert(data, number);
    return number;
}

int StyleWriter::numberFormat(const CellStyle &style)
{
    if (style.numberCode.isEmpty()) {
        return style.numberFormat >= 0 && style.numberFormat < firstCustomNumberFormat ? style.numberFormat : 0;
    }
    const auto known = m_numberFormatNumbers.constFind(style.numberCode);
    if (known != m_numberFormatNumbers.constEnd()) {
        return *known;
    }
    if (style.numberCode.size() > longestNumberCode
        || m_nextNumberFormat >= firstCustomNumberFormat + mostNumberFormats) {
        m_isFull = true;
        return 0;
    }
    const int number = m_nextNumberFormat++;
    m_numberFormatNumbers.insert(style.numberCode, number);
    m_numberFormats.push_back(numberFormatRecord(number, style.numberCode));
    return number;
}

double StyleWriter::usualRowHeight() const
{
    constexpr double smallest = 12.75; // for the font that workbooks of this kind usually have
    const Format *usual = m_book.format(0);
    const double size = usual ? usual->style().font.size : usualFontSize;
    return size > usualFontSize ? size * heightOfFont : smallest;
}

double StyleWriter::rowHeight(quint32 format) const
{
    const Format *found = m_book.format(format);
    const double size = found ? found->style().font.size : 0.0;
    const Format *usual = m_book.format(0);
    return usual && size > usual->style().font.size ? size * heightOfFont : 0.0;
}

} // namespace spreadsheet
