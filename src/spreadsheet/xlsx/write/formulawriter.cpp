#include "spreadsheet/xlsx/write/formulawriter.h"

#include "spreadsheet/cellreference.h"
#include "spreadsheet/xls/formula/functiontable.h"
#include "spreadsheet/xlsx/write/newerfunctions.h"

#include <algorithm>

namespace spreadsheet {
namespace {

// What the programs that read the files take at most
constexpr size_t longestFormula = 8192;
constexpr size_t longestText = 255;
constexpr size_t mostLevels = 64;
constexpr int mostArguments = 255;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isLetter(char c)
{
    return ((c | 0x20) >= 'a' && (c | 0x20) <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

bool isNameStart(char c)
{
    return isLetter(c) || c == '_' || c == '\\' || c == '$';
}

bool isNamePart(char c)
{
    return isNameStart(c) || isDigit(c) || c == '.' || c == '?';
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

std::string capitals(std::string_view text)
{
    std::string result(text);
    for (char &c : result) {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c;
    }
    return result;
}

/// A whole column such as "$B" or a whole row such as "$7", which stand beside a colon.
bool isColumnOrRow(std::string_view name)
{
    name.remove_prefix(name.front() == '$' ? 1 : 0);
    int row = 0, column = 0;
    const std::string asCell = !name.empty() && isDigit(name.front()) ? "A" + std::string(name)
                                                                      : std::string(name) + "1";
    return parseCellReference(asCell, &row, &column) && name.find('$') == std::string_view::npos;
}

} // namespace

bool FormulaWriter::convert(std::string_view text)
{
    m_text = text;
    m_place = 0;
    m_wantsOperand = true;
    m_isAfterSheet = false;
    m_open.clear();
    m_result.clear();
    if (text.empty() || text.size() > longestFormula) {
        return false;
    }
    while (m_place < m_text.size()) {
        if (isBlank(at(m_place)) && !m_isAfterSheet) {
            take(1);
        } else if (!(m_wantsOperand ? takeOperand() : takeOperator())) {
            return false;
        }
    }
    return !m_wantsOperand && m_open.empty();
}

void FormulaWriter::take(size_t length)
{
    m_result += m_text.substr(m_place, length);
    m_place += length;
}

bool FormulaWriter::takeOperand()
{
    const char c = at(m_place);
    const bool isInFunction = !m_open.empty() && !m_open.back().function.empty();
    if (m_isAfterSheet && !isNameStart(c) && c != '#' && !isDigit(c)) {
        return false;
    }
    if ((c == '+' || c == '-' || c == '@') && !m_isAfterSheet) {
        take(1);
        return c != '@'; // an explicit intersection has a form of its own in files
    }
    if (isInFunction && c == ',') {
        m_open.back().isEmpty = false;
        take(1);
        return ++m_open.back().arguments < mostArguments;
    }
    if (isInFunction && c == ')') {
        return closeParenthesis();
    }
    if (!m_open.empty()) {
        m_open.back().isEmpty = false;
    }
    if (c == '(') {
        m_open.push_back({});
        take(1);
        return m_open.size() <= mostLevels;
    }
    if (c == '\'') {
        return takeQuotedSheet();
    }
    if (isNameStart(c)) {
        return takeName();
    }
    m_wantsOperand = m_isAfterSheet = false;
    return c == '"' ? takeText() : c == '#' ? takeError() : c == '{' ? takeArray() : takeNumber();
}

bool FormulaWriter::takeOperator()
{
    const char c = at(m_place);
    const bool isInParenthesis = !m_open.empty();
    if (c == ')') {
        return closeParenthesis();
    }
    if (c == '%') {
        take(1);
        return true;
    }
    m_wantsOperand = true;
    if (c == ',') {
        take(1);
        return isInParenthesis && (m_open.back().function.empty() || ++m_open.back().arguments < mostArguments);
    }
    if (c == '<' || c == '>') {
        take(at(m_place + 1) == '=' || (c == '<' && at(m_place + 1) == '>') ? 2 : 1);
        return true;
    }
    if (c != '\0' && std::string_view("+-*/^&=:").find(c) != std::string_view::npos) {
        take(1);
        return true;
    }
    // A blank between two references is an operator too.
    return m_place > 0 && isBlank(at(m_place - 1)) && (isNameStart(c) || c == '\'' || c == '(');
}

bool FormulaWriter::closeParenthesis()
{
    if (m_open.empty() || (m_wantsOperand && m_open.back().function.empty())) {
        return false;
    }
    const Opened closed = m_open.back();
    m_open.pop_back();
    take(1);
    m_wantsOperand = false;
    const FunctionInfo *known = findFunction(capitals(closed.function));
    if (closed.function.empty() || !known) {
        return true;
    }
    constexpr int many = 30;
    const int count = closed.isEmpty ? 0 : closed.arguments + 1;
    return (count > 0 || known->minArguments == 0) && (count <= known->maxArguments || known->maxArguments >= many);
}

bool FormulaWriter::takeText()
{
    size_t end = m_place + 1;
    size_t length = 0;
    for (; end < m_text.size(); ++end, ++length) {
        if (at(end) == '"' && at(++end) != '"') {
            take(end - m_place);
            return length <= longestText;
        }
    }
    return false;
}

bool FormulaWriter::takeNumber()
{
    size_t end = m_place;
    const auto skipDigits = [&] {
        const size_t start = end;
        while (isDigit(at(end))) {
            ++end;
        }
        return end > start;
    };
    bool hasDigits = skipDigits();
    if (at(end) == '.') {
        ++end;
        hasDigits = skipDigits() || hasDigits;
    }
    if (hasDigits && (at(end) | 0x20) == 'e') {
        end += at(end + 1) == '+' || at(end + 1) == '-' ? 2 : 1;
        hasDigits = skipDigits();
    }
    take(end - m_place);
    return hasDigits && !isNamePart(at(end));
}

bool FormulaWriter::takeError()
{
    const std::string rest = capitals(m_text.substr(m_place, 8));
    for (const std::string_view error : {"#NULL!", "#DIV/0!", "#VALUE!", "#REF!", "#NAME?", "#NUM!", "#N/A"}) {
        if (rest.compare(0, error.size(), error) == 0) {
            take(error.size());
            return true;
        }
    }
    return false;
}

bool FormulaWriter::takeArray()
{
    size_t width = 0, count = 1;
    take(1);
    while (true) {
        if (at(m_place) == '-' || at(m_place) == '+') {
            take(1);
        }
        const size_t start = m_place;
        const char c = at(start);
        if (isLetter(c)) {
            while (isLetter(at(m_place))) {
                take(1);
            }
            const std::string word = capitals(m_text.substr(start, m_place - start));
            if (word != "TRUE" && word != "FALSE") {
                return false;
            }
        } else if (!(c == '"' ? takeText() : c == '#' ? takeError() : takeNumber())) {
            return false;
        }
        const char end = at(m_place);
        if (end != ',' && end != ';' && end != '}') {
            return false;
        }
        take(1);
        if (end == ',') {
            ++count;
            continue;
        }
        if (width != 0 && width != count) {
            return false; // rows of different lengths
        }
        width = count;
        count = 1;
        if (end == '}') {
            return true;
        }
    }
}

bool FormulaWriter::takeQuotedSheet()
{
    std::string name;
    for (size_t i = m_place + 1; i < m_text.size(); ++i) {
        if (at(i) == '\'' && at(++i) != '\'') {
            take(i + 1 - m_place);
            m_isAfterSheet = true;
            return at(i) == '!' && m_hasSheet(name);
        }
        name += at(i);
    }
    return false;
}

bool FormulaWriter::takeName()
{
    size_t end = m_place;
    while (isNamePart(at(end))) {
        ++end;
    }
    const std::string_view name = m_text.substr(m_place, end - m_place);
    if (at(end) == '(' && !m_isAfterSheet) {
        return takeFunction(name);
    }
    if (at(end) == '!' && !m_isAfterSheet) {
        take(name.size() + 1);
        m_isAfterSheet = true;
        return m_hasSheet(name);
    }
    take(name.size());
    m_wantsOperand = m_isAfterSheet = false;
    const bool isPlain = name.find('$') == std::string_view::npos;
    return at(end) == '[' ? isPlain && takeTable() : isNameValid(name);
}

bool FormulaWriter::takeFunction(std::string_view name)
{
    if (name.find_first_of("$?\\") != std::string_view::npos) {
        return false;
    }
    m_result += newerFunctionPrefix(capitals(name));
    take(name.size() + 1);
    m_open.push_back({name, 0, true});
    return m_open.size() <= mostLevels;
}

/// A table's columns in brackets, which may hold others.
bool FormulaWriter::takeTable()
{
    int depth = 0;
    for (size_t i = m_place; i < m_text.size(); ++i) {
        if (at(i) == '\'') {
            ++i; // the next character stands for itself
        } else if (at(i) == '[') {
            ++depth;
        } else if (at(i) == ']' && --depth == 0) {
            take(i + 1 - m_place);
            return m_allowsTables;
        }
    }
    return false;
}

bool FormulaWriter::isNameValid(std::string_view name) const
{
    int row = 0, column = 0;
    if (parseCellReference(name, &row, &column)) {
        return true;
    }
    const size_t start = m_place - name.size();
    const bool isBesideColon = at(m_place) == ':' || (start > 0 && at(start - 1) == ':');
    if (isBesideColon && isColumnOrRow(name)) {
        return true;
    }
    return name.find('$') == std::string_view::npos;
}

} // namespace spreadsheet
