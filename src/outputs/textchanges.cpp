#include "outputs/textchanges.h"

#include "data/numberlocale.h"
#include "data/numberscan.h"
#include "data/values.h"
#include "outputs/excelformats.h"
#include "text/cappedlist.h"
#include "transforms/frame/messages.h"

namespace {

/// Digits that spreadsheet programs keep of a number.
constexpr int keptDigits = 15;

/// True for a text of few digits, without any that needn't be there: a number has exactly one such text.
bool isCanonical(const char *at, const char *end, char decimalPoint)
{
    const bool isNegative = at < end && *at == '-';
    at += isNegative;
    const char *const whole = at;
    while (at < end && NumberScan::isDigit(*at)) {
        ++at;
    }
    const auto wholeDigits = at - whole;
    if (wholeDigits == 0 || (*whole == '0' && wholeDigits > 1)) {
        return false;
    }
    if (at == end) {
        return wholeDigits <= keptDigits && !(isNegative && *whole == '0');
    }
    const char *const fraction = at + 1;
    if (*at != decimalPoint || fraction == end || end[-1] == '0') {
        return false;
    }
    for (at = fraction; at < end; ++at) {
        if (!NumberScan::isDigit(*at)) {
            return false;
        }
    }
    return wholeDigits + (end - fraction) <= keptDigits;
}

/// Digits from the first to the last that isn't 0.
int significantDigits(const QString &text)
{
    int first = -1;
    int last = -1;
    int digits = 0;
    for (const QChar c : text) {
        if (!c.isDigit()) {
            continue;
        }
        if (c.digitValue() != 0) {
            first = first < 0 ? digits : first;
            last = digits;
        }
        ++digits;
    }
    return first < 0 ? 0 : last - first + 1;
}

} // namespace

TextChanges::TextChanges(const ExcelFormats &formats, int columnCount)
    : m_decimalPoint(NumberLocale::of(m_locale)->asciiDecimalPoint)
    , m_columns(static_cast<size_t>(columnCount))
{
    for (const int column : formats.automatic) {
        m_columns[static_cast<size_t>(column)].isWatched = true;
    }
}

/// True when reading the sheet gives the text again, and spreadsheet programs show all its digits.
bool TextChanges::keepsText(const Cell &cell, double value) const
{
    if (isCanonical(cell.bytes(), cell.bytes() + cell.size(), m_decimalPoint)) {
        return true;
    }
    const QString text = cell.text();
    return significantDigits(text) <= keptDigits
           && m_locale.toString(value, 'f', QLocale::FloatingPointShortest).remove(m_locale.groupSeparator()) == text;
}

bool TextChanges::isTrueOrFalse(const Cell &cell)
{
    const QString text = cell.text();
    return text.compare(boolText(true), Qt::CaseInsensitive) == 0
           || text.compare(boolText(false), Qt::CaseInsensitive) == 0;
}

void TextChanges::note(int column, const Cell &cell, const char *kind)
{
    Column &changed = m_columns[static_cast<size_t>(column)];
    changed.isWatched = false;
    changed.kind = kind;
    changed.firstText = cell.text();
}

QString TextChanges::line(const QStringList &columnNames) const
{
    constexpr int namedColumns = 50;
    constexpr int shownLength = 50;
    CappedList columns(namedColumns);
    for (size_t i = 0; i < m_columns.size(); ++i) {
        const Column &column = m_columns[i];
        if (column.kind) {
            columns.add([&] {
                return QStringLiteral("'%1' ('%2' to a %3)")
                    .arg(ellipsized(columnNames.at(static_cast<int>(i)), shownLength),
                        ellipsized(column.firstText, shownLength), QLatin1String(column.kind));
            });
        }
    }
    return columns.isEmpty()
               ? QString()
               : QStringLiteral("Automatic formats change texts in %1 %2: %3")
                     .arg(Messages::count(columns.count()), Messages::word(columns.count(), "column", "columns"),
                         columns.lines().join(QStringLiteral(", ")));
}
