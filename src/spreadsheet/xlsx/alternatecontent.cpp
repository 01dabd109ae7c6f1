#include "spreadsheet/xlsx/alternatecontent.h"

#include <cstring>

namespace spreadsheet {

AlternateContent::Role AlternateContent::begin(const char *name, int depth)
{
    const char *colon = std::strchr(name, ':');
    if (!m_open.empty() && depth == m_open.back().depth + 1) {
        const char *local = colon ? colon + 1 : name;
        const bool isBranch = std::strcmp(local, "Choice") == 0 || std::strcmp(local, "Fallback") == 0;
        const bool isTaken = isBranch && !m_open.back().hasBranch;
        m_open.back().hasBranch = m_open.back().hasBranch || isTaken;
        return isTaken ? Role::Wrapper : Role::LeftOut;
    }
    if (!colon || std::strcmp(colon + 1, "AlternateContent") != 0) {
        return Role::Element;
    }
    m_open.push_back({depth, false});
    return Role::Wrapper;
}

bool AlternateContent::end(int depth)
{
    if (m_open.empty() || depth > m_open.back().depth + 1) {
        return false;
    }
    if (depth == m_open.back().depth) {
        m_open.pop_back();
    }
    return true;
}

} // namespace spreadsheet
