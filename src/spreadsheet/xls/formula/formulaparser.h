#pragma once

#include "spreadsheet/xls/formula/formulalexer.h"
#include "spreadsheet/xls/formula/formulatree.h"

#include <functional>

namespace spreadsheet {

/// The number by which formulas refer to the sheet of a name; below 0 when there is none.
using SheetNumbers = std::function<int(const QString &name)>;

/// Makes a tree of a formula's text. A sign binds tighter than a power, as in all spreadsheets.
class FormulaParser
{
public:
    FormulaParser(const QString &text, const SheetNumbers &sheets)
        : m_lexer(text)
        , m_sheets(sheets)
    {
    }

    /// Number of the node that stands for all of the formula; below 0 when it can't be read, see error().
    int parse();
    const FormulaTree &tree() const { return m_tree; }
    const QString &error() const { return m_error; }

private:
    static constexpr int failed = -1;

    int fail(const QString &error);
    int failAtToken();
    bool advance();
    bool isSymbol(FormulaSymbol symbol) const { return m_token.symbol == symbol; }
    int add(FormulaNode node);
    int addOperator(quint8 token, std::vector<int> parts);
    int addLeaf(FormulaNodeKind kind);
    int addReferenceOperator(quint8 token, int left, int right);
    bool isReference(int node) const;
    bool startsReference() const;

    int parseBinary(int lowest);
    int parsePercent();
    int parseSigned();
    int parseIntersection();
    int parseRange();
    int parseOperand();
    int parseParenthesis();
    int parseSheetReference();
    int parseFunction();
    int parseArguments(std::vector<int> *arguments);
    int parseArray();
    int parseArrayItem();

    FormulaLexer m_lexer;
    const SheetNumbers &m_sheets;
    FormulaToken m_token; // the one to be read next
    FormulaTree m_tree;
    QString m_error;
    int m_depth = 0;
};

} // namespace spreadsheet
