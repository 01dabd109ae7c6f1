#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace spreadsheet {

/// Gathers the text of an item of the shared texts or of a cell's own text: the texts of all its runs one behind the
/// other, without guides to pronunciation.
class RichText
{
public:
    void clear();
    /// An element within the item begins; false for those whose content doesn't belong to the text.
    bool start(std::string_view name);
    void end(std::string_view name);
    /// False when the text becomes too long.
    bool append(std::string_view piece)
    {
        if (m_isInText) {
            m_text.append(piece);
        }
        return m_text.size() <= longest;
    }
    /// Valid until the next call.
    std::string_view plain() const { return m_text; }

    static QString tooLong() { return QStringLiteral("The workbook has a text of more than 16 MB"); }
    static constexpr size_t longest = 16 << 20;

private:
    std::string m_text;
    size_t m_runStart = 0; // of the text of the run that is being read
    bool m_isInText = false;
};

} // namespace spreadsheet
