#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace spreadsheet {

/// Turns the text of a formula into the form that files have: functions newer than the format get a prefix. Programs
/// call a whole workbook damaged when one formula isn't well-formed, so others are refused.
class FormulaWriter
{
public:
    using SheetTest = std::function<bool(std::string_view name)>;

    /// `hasSheet` tells whether the book has a sheet of a name, UTF-8; `allowsTables` whether it may have tables.
    FormulaWriter(SheetTest hasSheet, bool allowsTables)
        : m_hasSheet(std::move(hasSheet))
        , m_allowsTables(allowsTables)
    {
    }

    /// `text` is UTF-8 without an equals sign: English function names, commas between arguments. False for what isn't
    /// well-formed, refers to another workbook or to a sheet that isn't there. The result is valid until the next call.
    bool convert(std::string_view text);
    const std::string &result() const { return m_result; }

private:
    /// An open parenthesis; those of functions count what they are given.
    struct Opened
    {
        std::string_view function; ///< empty for one that only groups
        int arguments = 0;
        bool isEmpty = true; ///< nothing stood in it yet
    };

    char at(size_t place) const { return place < m_text.size() ? m_text[place] : '\0'; }
    void take(size_t length);
    bool takeOperand();
    bool takeOperator();
    bool takeText();
    bool takeNumber();
    bool takeError();
    bool takeArray();
    bool takeQuotedSheet();
    bool takeName();
    bool takeFunction(std::string_view name);
    bool takeTable();
    bool closeParenthesis();
    bool isNameValid(std::string_view name) const;

    SheetTest m_hasSheet;
    bool m_allowsTables;
    std::string_view m_text;
    size_t m_place = 0;
    bool m_wantsOperand = true;
    bool m_isAfterSheet = false; // a reference or name has to follow
    std::vector<Opened> m_open;
    std::string m_result;
};

} // namespace spreadsheet
