#pragma once

#include "spreadsheet/xls/formula/formulatoken.h"

namespace spreadsheet {

/// Cuts the text of a formula, without its equals sign, into words: English names, commas between arguments.
class FormulaLexer
{
public:
    explicit FormulaLexer(const QString &text)
        : m_text(text)
    {
    }

    /// False for what is no word of a formula, or none that .xls files can hold; see error().
    bool next(FormulaToken *token);
    const QString &error() const { return m_error; }

private:
    QChar at(int place) const { return place < m_text.size() ? m_text.at(place) : QChar(); }
    bool fail(const QString &error);
    bool scanOperand(FormulaToken *token);
    bool scanNumber(FormulaToken *token);
    bool scanText(FormulaToken *token);
    bool scanQuotedSheet(FormulaToken *token);
    bool scanError(FormulaToken *token);
    bool scanSymbol(FormulaToken *token);
    bool scanName(FormulaToken *token);
    bool scanReference(FormulaToken *token);
    bool setReference(FormulaToken *token, const FormulaArea &area, int end);
    int nameEnd(int start) const;
    int readColumn(int start, FormulaPlace *place) const;
    int readRow(int start, FormulaPlace *place) const;
    bool isReferenceEnd(int place) const;

    QString m_text;
    int m_place = 0;
    bool m_isAfterSheet = false; // the word before was a sheet's name
    QString m_error;
};

} // namespace spreadsheet
