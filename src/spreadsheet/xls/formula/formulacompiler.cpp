#include "spreadsheet/xls/formula/formulacompiler.h"

#include "spreadsheet/xls/formula/tokencompiler.h"

namespace spreadsheet {
namespace {

constexpr int longestFormula = 8192; // UTF-16 units; also bounds how deep the tree can be
constexpr int mostTokenBytes = 1800;
constexpr int mostArrayBytes = 6000; // all of a formula lies in one record

} // namespace

bool compileFormula(const QByteArray &text, const SheetNumbers &sheets, CompiledFormula *compiled, QString *reason)
{
    const QString formula = QString::fromUtf8(text);
    if (formula.size() > longestFormula) {
        *reason = QStringLiteral("it is too long");
        return false;
    }
    FormulaParser parser(formula, sheets);
    const int root = parser.parse();
    if (root < 0) {
        *reason = parser.error();
        return false;
    }
    TokenCompiler compiler(parser.tree());
    if (!compiler.compile(root)) {
        *reason = compiler.error();
        return false;
    }
    if (compiler.tokens().size() > mostTokenBytes || compiler.arrays().size() > mostArrayBytes) {
        *reason = QStringLiteral("it is too long");
        return false;
    }
    compiled->tokens = compiler.tokens().data();
    compiled->arrays = compiler.arrays().data();
    return true;
}

} // namespace spreadsheet
