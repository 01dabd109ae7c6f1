#pragma once

#include "spreadsheet/xlsx/write/partedit.h"
#include "spreadsheet/xlsx/write/xmloutline.h"

namespace spreadsheet {

/// A new start tag for an element, with some attributes of another value.
class StartEdit
{
public:
    explicit StartEdit(const XmlElement &element)
        : m_element(element)
    {
    }

    /// An attribute without a prefix; added behind the others when the element hasn't got it.
    StartEdit &set(const char *name, const QByteArray &value);
    /// Takes an attribute without a prefix away.
    StartEdit &remove(const char *name);
    enum class Content { Same, Added };
    /// Puts the tag in place of the old one. With content added an empty element is left open for it, and its end tag
    /// is up to the caller.
    void apply(PartEdit *edit, Content content = Content::Same) const;

private:
    XmlElement m_element;
};

/// Puts `content` behind what the element contains. `count`, when not negative, goes into the attribute of that name.
void appendContent(const XmlElement &element, const QByteArray &content, int count, PartEdit *edit);

/// States UTF-8 in the part's declaration, since parts are written in it whatever they were read in.
void stateEncoding(const XmlOutline &outline, PartEdit *edit);

/// What the edit of a part begins with whose root may get children: states the encoding, and gives a root that is an
/// empty tag an end tag, in front of which they come to stand.
void openPart(const XmlOutline &outline, PartEdit *edit);

} // namespace spreadsheet
