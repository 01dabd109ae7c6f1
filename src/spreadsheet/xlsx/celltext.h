#pragma once

#include "spreadsheet/xlsx/richtext.h"

#include <QByteArray>

namespace spreadsheet {

class XmlAttributes;

/// Gathers the text that a cell holds itself: what is read of it, and the element as it stands, since runs with fonts
/// of their own and guides to pronunciation have to come back when the sheet is written.
class CellText
{
public:
    void clear();
    /// An element within the text begins.
    void start(std::string_view name, const XmlAttributes &attributes);
    /// An element ends; false for the text itself.
    bool end(std::string_view name);
    /// False when it becomes too long.
    bool append(std::string_view piece);

    /// Valid until the next call.
    std::string_view plain() const { return m_text.plain(); }
    /// The content of the element, names without the part's prefix; empty for a plain text.
    const QByteArray &stored() const { return m_stored; }

private:
    void beginStored();

    RichText m_text;
    QByteArray m_stored;    // from the first element on that isn't the plain text
    int m_depth = 0;        // open elements within the text
    int m_hidden = 0;       // those of them that don't belong to what is read
    bool m_hasText = false; // an element of plain text stood in front
    bool m_isRich = false;
};

} // namespace spreadsheet
