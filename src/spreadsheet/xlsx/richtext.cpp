#include "spreadsheet/xlsx/richtext.h"

#include "spreadsheet/xlsx/xmltext.h"

namespace spreadsheet {

void RichText::clear()
{
    m_text.clear();
    m_isInText = false;
}

bool RichText::start(std::string_view name)
{
    m_isInText = name == "t";
    m_runStart = m_text.size();
    return m_isInText || name == "r";
}

void RichText::end(std::string_view name)
{
    if (!m_isInText || name != "t") {
        return;
    }
    m_isInText = false;
    if (m_text.find("_x", m_runStart) != std::string::npos) {
        std::string plain;
        appendUnescaped(std::string_view(m_text).substr(m_runStart), &plain);
        m_text.replace(m_runStart, std::string::npos, plain);
    }
}

} // namespace spreadsheet
