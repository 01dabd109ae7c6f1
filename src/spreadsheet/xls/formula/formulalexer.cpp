#include "spreadsheet/xls/formula/formulalexer.h"

#include "spreadsheet/cellerror.h"
#include "spreadsheet/sizes.h"

namespace spreadsheet {
namespace {

constexpr int lastRow = maxRows(FileKind::Xls) - 1;
constexpr int lastColumn = maxColumns(FileKind::Xls) - 1;
constexpr int tooLarge = 10000000; // where counting rows and columns stops

constexpr const char *errorNames[] = {"#NULL!", "#DIV/0!", "#VALUE!", "#REF!", "#NAME?", "#NUM!", "#N/A"};

bool isLetter(QChar c)
{
    return (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) || (c >= QLatin1Char('a') && c <= QLatin1Char('z'));
}

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isSpace(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QLatin1Char('\t');
}

bool isNamePart(QChar c)
{
    return isLetter(c) || isDigit(c) || c == QLatin1Char('_') || c == QLatin1Char('.') || c == QLatin1Char('\\')
           || c == QLatin1Char('?') || (c.unicode() > 0x7F && !c.isSpace());
}

FormulaSymbol symbolOf(QChar c)
{
    switch (c.unicode()) {
    case '+':
        return FormulaSymbol::Plus;
    case '-':
        return FormulaSymbol::Minus;
    case '*':
        return FormulaSymbol::Times;
    case '/':
        return FormulaSymbol::Divide;
    case '^':
        return FormulaSymbol::Power;
    case '%':
        return FormulaSymbol::Percent;
    case '&':
        return FormulaSymbol::Join;
    case '<':
        return FormulaSymbol::Less;
    case '=':
        return FormulaSymbol::Equal;
    case '>':
        return FormulaSymbol::Greater;
    case ':':
        return FormulaSymbol::Colon;
    case ',':
        return FormulaSymbol::Comma;
    case ';':
        return FormulaSymbol::Semicolon;
    case '(':
        return FormulaSymbol::OpenParenthesis;
    case ')':
        return FormulaSymbol::CloseParenthesis;
    case '{':
        return FormulaSymbol::OpenBrace;
    case '}':
        return FormulaSymbol::CloseBrace;
    default:
        return FormulaSymbol::None;
    }
}

} // namespace

bool FormulaLexer::fail(const QString &error)
{
    m_error = error;
    return false;
}

bool FormulaLexer::next(FormulaToken *token)
{
    *token = FormulaToken();
    const int before = m_place;
    while (isSpace(at(m_place))) {
        ++m_place;
    }
    token->isAfterSpace = m_place > before;
    if (m_place >= m_text.size()) {
        return true;
    }
    const bool scanned = scanOperand(token);
    m_isAfterSheet = token->kind == FormulaTokenKind::Sheet;
    return scanned;
}

bool FormulaLexer::scanOperand(FormulaToken *token)
{
    const QChar first = at(m_place);
    if (first == QLatin1Char('"')) {
        return scanText(token);
    }
    if (first == QLatin1Char('\'')) {
        return scanQuotedSheet(token);
    }
    if (first == QLatin1Char('#')) {
        return scanError(token);
    }
    if (first == QLatin1Char('[')) {
        return fail(QStringLiteral("it refers to another workbook"));
    }
    if (symbolOf(first) != FormulaSymbol::None) {
        return scanSymbol(token);
    }
    if (scanReference(token) || !m_error.isEmpty()) {
        return m_error.isEmpty();
    }
    const bool isNumber = isDigit(first) || (first == QLatin1Char('.') && isDigit(at(m_place + 1)));
    if (isNumber && at(nameEnd(m_place)) != QLatin1Char('!')) {
        return scanNumber(token);
    }
    return scanName(token);
}

bool FormulaLexer::scanNumber(FormulaToken *token)
{
    int end = m_place;
    const auto skipDigits = [&] {
        while (isDigit(at(end))) {
            ++end;
        }
    };
    skipDigits();
    if (at(end) == QLatin1Char('.')) {
        ++end;
        skipDigits();
    }
    if (at(end).toLower() == QLatin1Char('e')) {
        const bool isSigned = at(end + 1) == QLatin1Char('+') || at(end + 1) == QLatin1Char('-');
        const int exponent = end + (isSigned ? 2 : 1);
        if (isDigit(at(exponent))) {
            end = exponent;
            skipDigits();
        }
    }
    bool isNumber = false;
    token->number = m_text.midRef(m_place, end - m_place).toDouble(&isNumber);
    if (!isNumber || !qIsFinite(token->number) || isNamePart(at(end))) {
        return fail(QStringLiteral("'%1' is not a number").arg(m_text.mid(m_place, nameEnd(m_place) - m_place)));
    }
    token->kind = FormulaTokenKind::Number;
    m_place = end;
    return true;
}

bool FormulaLexer::scanText(FormulaToken *token)
{
    for (int i = m_place + 1; i < m_text.size(); ++i) {
        if (at(i) == QLatin1Char('"')) {
            if (at(i + 1) != QLatin1Char('"')) {
                token->kind = FormulaTokenKind::Text;
                m_place = i + 1;
                return true;
            }
            ++i; // a doubled quote stands for one
        }
        token->text.append(at(i));
    }
    return fail(QStringLiteral("a quote is not closed"));
}

bool FormulaLexer::scanQuotedSheet(FormulaToken *token)
{
    const QChar quote = QLatin1Char('\'');
    int i = m_place + 1;
    for (; i < m_text.size(); ++i) {
        if (at(i) == quote) {
            if (at(i + 1) != quote) {
                break;
            }
            ++i;
        }
        token->text.append(at(i));
    }
    if (at(i) != quote || at(i + 1) != QLatin1Char('!')) {
        return fail(QStringLiteral("an apostrophe is not closed"));
    }
    if (token->text.contains(QLatin1Char('[')) || token->text.contains(QLatin1Char('\\'))) {
        return fail(QStringLiteral("it refers to another workbook"));
    }
    if (token->text.contains(QLatin1Char(':'))) {
        return fail(QStringLiteral("it refers to several sheets at once"));
    }
    token->kind = FormulaTokenKind::Sheet;
    m_place = i + 2;
    return true;
}

bool FormulaLexer::scanError(FormulaToken *token)
{
    for (const char *error : errorNames) {
        const QLatin1String name(error);
        if (m_text.midRef(m_place, name.size()).compare(name, Qt::CaseInsensitive) == 0) {
            token->kind = FormulaTokenKind::Error;
            token->number = errorCode(error);
            m_place += name.size();
            return true;
        }
    }
    return fail(QStringLiteral("unexpected '#'"));
}

bool FormulaLexer::scanSymbol(FormulaToken *token)
{
    token->kind = FormulaTokenKind::Symbol;
    token->symbol = symbolOf(at(m_place++));
    const QChar second = at(m_place);
    if (token->symbol == FormulaSymbol::Less && second == QLatin1Char('>')) {
        token->symbol = FormulaSymbol::NotEqual;
        ++m_place;
    } else if (token->symbol == FormulaSymbol::Less && second == QLatin1Char('=')) {
        token->symbol = FormulaSymbol::LessOrEqual;
        ++m_place;
    } else if (token->symbol == FormulaSymbol::Greater && second == QLatin1Char('=')) {
        token->symbol = FormulaSymbol::GreaterOrEqual;
        ++m_place;
    }
    return true;
}

/// A function, a sheet or a boolean; any other name is one that the workbook defines.
bool FormulaLexer::scanName(FormulaToken *token)
{
    const int end = nameEnd(m_place);
    if (end == m_place) {
        return fail(QStringLiteral("unexpected '%1'").arg(at(m_place)));
    }
    const QString name = m_text.mid(m_place, end - m_place);
    if (at(end) == QLatin1Char('!')) {
        token->kind = FormulaTokenKind::Sheet;
        token->text = name;
        m_place = end + 1;
        return true;
    }
    int next = end;
    while (isSpace(at(next))) {
        ++next;
    }
    if (at(next) == QLatin1Char('(')) {
        token->kind = FormulaTokenKind::Function;
        token->text = name.toUpper();
        m_place = end;
        return true;
    }
    const bool isTrue = name.compare(QLatin1String("TRUE"), Qt::CaseInsensitive) == 0;
    if (!isTrue && name.compare(QLatin1String("FALSE"), Qt::CaseInsensitive) != 0) {
        return fail(QStringLiteral("it uses the name '%1'").arg(name));
    }
    token->kind = FormulaTokenKind::Boolean;
    token->number = isTrue ? 1.0 : 0.0;
    m_place = end;
    return true;
}

/// A cell, or whole rows or columns. False without an error for anything else.
bool FormulaLexer::scanReference(FormulaToken *token)
{
    // A colon between two names with a "!" behind the second joins sheets.
    const int end = nameEnd(m_place);
    if (!m_isAfterSheet && end > m_place && at(end) == QLatin1Char(':')) {
        const int secondEnd = nameEnd(end + 1);
        if (secondEnd > end + 1 && at(secondEnd) == QLatin1Char('!')) {
            return fail(QStringLiteral("it refers to several sheets at once"));
        }
    }
    FormulaArea area;
    const int columnEnd = readColumn(m_place, &area.first);
    const int cellEnd = columnEnd > 0 ? readRow(columnEnd, &area.first) : 0;
    if (cellEnd > 0 && isReferenceEnd(cellEnd)) {
        area.last = area.first;
        return setReference(token, area, cellEnd);
    }
    area.isCell = false;
    const int rowEnd = readRow(m_place, &area.first);
    const bool isRows = rowEnd > 0;
    const int firstEnd = isRows ? rowEnd : columnEnd;
    if (firstEnd <= 0 || at(firstEnd) != QLatin1Char(':')) {
        return false;
    }
    const int lastEnd = isRows ? readRow(firstEnd + 1, &area.last) : readColumn(firstEnd + 1, &area.last);
    if (lastEnd <= 0 || !isReferenceEnd(lastEnd)) {
        return false;
    }
    if (isRows) {
        area.first.column = 0;
        area.last.column = lastColumn;
        area.first.columnIsRelative = area.last.columnIsRelative = false;
    } else {
        area.first.row = 0;
        area.last.row = lastRow;
        area.first.rowIsRelative = area.last.rowIsRelative = false;
    }
    return setReference(token, area, lastEnd);
}

bool FormulaLexer::setReference(FormulaToken *token, const FormulaArea &area, int end)
{
    if (qMax(area.first.row, area.last.row) > lastRow || qMax(area.first.column, area.last.column) > lastColumn) {
        return fail(QStringLiteral("'%1' lies outside the sheet").arg(m_text.mid(m_place, end - m_place)));
    }
    token->kind = FormulaTokenKind::Reference;
    token->area = area;
    m_place = end;
    return true;
}

int FormulaLexer::nameEnd(int start) const
{
    while (start < m_text.size() && isNamePart(at(start))) {
        ++start;
    }
    return start;
}

/// One behind the letters of a column, which may follow a "$"; 0 when there are none.
int FormulaLexer::readColumn(int start, FormulaPlace *place) const
{
    place->columnIsRelative = at(start) != QLatin1Char('$');
    const int letters = start + (place->columnIsRelative ? 0 : 1);
    int column = 0;
    int i = letters;
    for (; isLetter(at(i)) && i < letters + 4; ++i) {
        column = column * 26 + (at(i).toUpper().unicode() - 'A' + 1);
    }
    place->column = column - 1;
    return i == letters || i > letters + 3 ? 0 : i;
}

/// The same with the digits of a row.
int FormulaLexer::readRow(int start, FormulaPlace *place) const
{
    place->rowIsRelative = at(start) != QLatin1Char('$');
    const int digits = start + (place->rowIsRelative ? 0 : 1);
    int row = 0;
    int i = digits;
    for (; isDigit(at(i)); ++i) {
        row = qMin(row * 10 + at(i).digitValue(), tooLarge);
    }
    place->row = row - 1;
    return i == digits || row == 0 ? 0 : i;
}

bool FormulaLexer::isReferenceEnd(int place) const
{
    const QChar c = at(place);
    return !isNamePart(c) && c != QLatin1Char('(') && c != QLatin1Char('!') && c != QLatin1Char('$');
}

} // namespace spreadsheet
