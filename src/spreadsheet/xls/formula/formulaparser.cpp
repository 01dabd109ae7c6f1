#include "spreadsheet/xls/formula/formulaparser.h"

#include "spreadsheet/xls/formula/binaryoperators.h"

#include <utility>

namespace spreadsheet {
namespace {

constexpr int deepest = 64; // parentheses and functions within one another

/// The rectangle between two cells, each with its own signs.
FormulaArea rectangle(FormulaPlace one, FormulaPlace other)
{
    if (one.row > other.row) {
        std::swap(one.row, other.row);
        std::swap(one.rowIsRelative, other.rowIsRelative);
    }
    if (one.column > other.column) {
        std::swap(one.column, other.column);
        std::swap(one.columnIsRelative, other.columnIsRelative);
    }
    return {one, other, false};
}

} // namespace

int FormulaParser::parse()
{
    if (!advance()) {
        return failed;
    }
    const int root = parseBinary(1);
    if (root >= 0 && m_token.kind != FormulaTokenKind::End) {
        return failAtToken();
    }
    return root;
}

int FormulaParser::fail(const QString &error)
{
    if (m_error.isEmpty()) {
        m_error = error;
    }
    return failed;
}

int FormulaParser::failAtToken()
{
    return fail(m_token.kind == FormulaTokenKind::End ? QStringLiteral("it ends too early")
                                                      : QStringLiteral("an operator is missing or misplaced"));
}

bool FormulaParser::advance()
{
    return m_lexer.next(&m_token) || fail(m_lexer.error()) >= 0;
}

int FormulaParser::add(FormulaNode node)
{
    m_tree.push_back(std::move(node));
    return static_cast<int>(m_tree.size()) - 1;
}

int FormulaParser::addOperator(quint8 token, std::vector<int> parts)
{
    FormulaNode node;
    node.kind = FormulaNodeKind::Operator;
    node.token = token;
    node.parts = std::move(parts);
    return add(std::move(node));
}

/// The word that is to be read, as a node of its own.
int FormulaParser::addLeaf(FormulaNodeKind kind)
{
    FormulaNode node;
    node.kind = kind;
    node.number = m_token.number;
    node.text = m_token.text;
    node.area = m_token.area;
    return advance() ? add(std::move(node)) : failed;
}

int FormulaParser::addReferenceOperator(quint8 token, int left, int right)
{
    if (!isReference(left) || !isReference(right)) {
        return failAtToken();
    }
    FormulaNode node;
    node.kind = FormulaNodeKind::ReferenceOperator;
    node.token = token;
    node.parts = {left, right};
    return add(std::move(node));
}

bool FormulaParser::isReference(int node) const
{
    const FormulaNode *found = &m_tree[static_cast<size_t>(node)];
    while (found->kind == FormulaNodeKind::Parenthesis) {
        found = &m_tree[static_cast<size_t>(found->parts.front())];
    }
    switch (found->kind) {
    case FormulaNodeKind::Reference:
    case FormulaNodeKind::ReferenceOperator:
        return true;
    case FormulaNodeKind::Function:
        return found->function->result == 'R';
    case FormulaNodeKind::Error:
        return found->number == OperandCode::referenceError;
    default:
        return false;
    }
}

/// Whether the next word can be an operand that is a reference.
bool FormulaParser::startsReference() const
{
    return m_token.kind == FormulaTokenKind::Reference || m_token.kind == FormulaTokenKind::Sheet
           || m_token.kind == FormulaTokenKind::Function || isSymbol(FormulaSymbol::OpenParenthesis);
}

int FormulaParser::parseBinary(int lowest)
{
    if (lowest > highestPrecedence) {
        return parsePercent();
    }
    int left = parseBinary(lowest + 1);
    while (left >= 0) {
        const BinaryOperator *found = binaryOperator(m_token.symbol);
        if (!found || found->precedence != lowest) {
            break;
        }
        if (!advance()) {
            return failed;
        }
        const int right = parseBinary(lowest + 1);
        left = right < 0 ? failed : addOperator(found->token, {left, right});
    }
    return left;
}

int FormulaParser::parsePercent()
{
    int operand = parseSigned();
    while (operand >= 0 && isSymbol(FormulaSymbol::Percent)) {
        operand = advance() ? addOperator(OperandCode::percent, {operand}) : failed;
    }
    return operand;
}

int FormulaParser::parseSigned()
{
    std::vector<quint8> signs;
    while (isSymbol(FormulaSymbol::Plus) || isSymbol(FormulaSymbol::Minus)) {
        signs.push_back(isSymbol(FormulaSymbol::Plus) ? OperandCode::plusSign : OperandCode::minusSign);
        if (!advance()) {
            return failed;
        }
    }
    int operand = parseIntersection();
    for (auto sign = signs.rbegin(); operand >= 0 && sign != signs.rend(); ++sign) {
        operand = addOperator(*sign, {operand});
    }
    return operand;
}

int FormulaParser::parseIntersection()
{
    int left = parseRange();
    while (left >= 0 && m_token.isAfterSpace && startsReference() && isReference(left)) {
        const int right = parseRange();
        left = right < 0 ? failed : addReferenceOperator(OperandCode::intersection, left, right);
    }
    return left;
}

int FormulaParser::parseRange()
{
    int left = parseOperand();
    while (left >= 0 && isSymbol(FormulaSymbol::Colon)) {
        const int right = advance() ? parseOperand() : failed;
        if (right < 0) {
            return failed;
        }
        FormulaNode &from = m_tree[static_cast<size_t>(left)];
        const FormulaNode &to = m_tree[static_cast<size_t>(right)];
        const bool areCells = from.kind == FormulaNodeKind::Reference && from.area.isCell
                              && to.kind == FormulaNodeKind::Reference && to.area.isCell;
        if (areCells && (to.sheet < 0 || to.sheet == from.sheet)) {
            from.area = rectangle(from.area.first, to.area.first);
            m_tree.pop_back();
        } else {
            left = addReferenceOperator(OperandCode::range, left, right);
        }
    }
    return left;
}

int FormulaParser::parseOperand()
{
    switch (m_token.kind) {
    case FormulaTokenKind::Number:
        return addLeaf(FormulaNodeKind::Number);
    case FormulaTokenKind::Text:
        return addLeaf(FormulaNodeKind::Text);
    case FormulaTokenKind::Boolean:
        return addLeaf(FormulaNodeKind::Boolean);
    case FormulaTokenKind::Error:
        return addLeaf(FormulaNodeKind::Error);
    case FormulaTokenKind::Reference:
        return addLeaf(FormulaNodeKind::Reference);
    case FormulaTokenKind::Sheet:
        return parseSheetReference();
    case FormulaTokenKind::Function:
        return parseFunction();
    default:
        break;
    }
    if (isSymbol(FormulaSymbol::OpenParenthesis)) {
        return parseParenthesis();
    }
    return isSymbol(FormulaSymbol::OpenBrace) ? parseArray() : failAtToken();
}

int FormulaParser::parseParenthesis()
{
    if (++m_depth > deepest) {
        return fail(QStringLiteral("it is nested too deeply"));
    }
    int inside = advance() ? parseBinary(1) : failed;
    while (inside >= 0 && isSymbol(FormulaSymbol::Comma)) {
        const int other = advance() ? parseBinary(1) : failed;
        inside = other < 0 ? failed : addReferenceOperator(OperandCode::unite, inside, other);
    }
    if (inside < 0) {
        return failed;
    }
    if (!isSymbol(FormulaSymbol::CloseParenthesis)) {
        return failAtToken();
    }
    --m_depth;
    FormulaNode node;
    node.kind = FormulaNodeKind::Parenthesis;
    node.token = OperandCode::parenthesis;
    node.parts = {inside};
    return advance() ? add(std::move(node)) : failed;
}

int FormulaParser::parseSheetReference()
{
    const int sheet = m_sheets(m_token.text);
    if (sheet < 0) {
        return fail(QStringLiteral("there is no sheet '%1'").arg(m_token.text));
    }
    if (!advance()) {
        return failed;
    }
    if (m_token.kind == FormulaTokenKind::Error && m_token.number == OperandCode::referenceError) {
        return addLeaf(FormulaNodeKind::Error);
    }
    if (m_token.kind != FormulaTokenKind::Reference || m_token.isAfterSpace) {
        return failAtToken();
    }
    const int reference = addLeaf(FormulaNodeKind::Reference);
    if (reference >= 0) {
        m_tree[static_cast<size_t>(reference)].sheet = sheet;
    }
    return reference;
}

int FormulaParser::parseFunction()
{
    const QString name = m_token.text;
    FormulaNode node;
    node.kind = FormulaNodeKind::Function;
    node.function = findFunction(name.toUtf8().constData());
    if (!node.function) {
        return fail(QStringLiteral("the function %1 is unknown").arg(name));
    }
    if (++m_depth > deepest) {
        return fail(QStringLiteral("it is nested too deeply"));
    }
    if (!advance() || parseArguments(&node.parts) < 0) {
        return failed;
    }
    --m_depth;
    const auto count = static_cast<int>(node.parts.size());
    if (count < node.function->minArguments || count > node.function->maxArguments) {
        const QString word = count == 1 ? QStringLiteral("argument") : QStringLiteral("arguments");
        return fail(QStringLiteral("%1 can't have %2 %3").arg(name).arg(count).arg(word));
    }
    return add(std::move(node));
}

/// Reads from the opening to the closing parenthesis.
int FormulaParser::parseArguments(std::vector<int> *arguments)
{
    if (!advance()) {
        return failed;
    }
    if (isSymbol(FormulaSymbol::CloseParenthesis)) {
        return advance() ? 0 : failed;
    }
    for (;;) {
        const bool isMissing = isSymbol(FormulaSymbol::Comma) || isSymbol(FormulaSymbol::CloseParenthesis);
        const int argument = isMissing ? add(FormulaNode()) : parseBinary(1);
        if (argument < 0) {
            return failed;
        }
        arguments->push_back(argument);
        if (isSymbol(FormulaSymbol::CloseParenthesis)) {
            return advance() ? 0 : failed;
        }
        if (!isSymbol(FormulaSymbol::Comma)) {
            return failAtToken();
        }
        if (!advance()) {
            return failed;
        }
    }
}

/// Reads {1,2;3,4}: constants, with a semicolon between rows.
int FormulaParser::parseArray()
{
    FormulaNode node;
    node.kind = FormulaNodeKind::Array;
    int column = 0;
    while (advance()) {
        const int item = parseArrayItem();
        if (item < 0) {
            return failed;
        }
        node.parts.push_back(item);
        ++column;
        if (isSymbol(FormulaSymbol::Comma)) {
            continue;
        }
        const bool isLastRow = isSymbol(FormulaSymbol::CloseBrace);
        if (!isLastRow && !isSymbol(FormulaSymbol::Semicolon)) {
            return failAtToken();
        }
        node.columnCount = node.columnCount == 0 ? column : node.columnCount;
        if (column != node.columnCount || column > 256) {
            return fail(QStringLiteral("the rows of an array differ in length"));
        }
        column = 0;
        if (isLastRow) {
            return advance() ? add(std::move(node)) : failed;
        }
    }
    return failed;
}

int FormulaParser::parseArrayItem()
{
    const bool isNegative = isSymbol(FormulaSymbol::Minus);
    if ((isNegative || isSymbol(FormulaSymbol::Plus)) && !advance()) {
        return failed;
    }
    switch (m_token.kind) {
    case FormulaTokenKind::Number:
        m_token.number = isNegative ? -m_token.number : m_token.number;
        return addLeaf(FormulaNodeKind::Number);
    case FormulaTokenKind::Text:
        return isNegative ? failAtToken() : addLeaf(FormulaNodeKind::Text);
    case FormulaTokenKind::Boolean:
        return isNegative ? failAtToken() : addLeaf(FormulaNodeKind::Boolean);
    case FormulaTokenKind::Error:
        return isNegative ? failAtToken() : addLeaf(FormulaNodeKind::Error);
    default:
        return failAtToken();
    }
}

} // namespace spreadsheet
