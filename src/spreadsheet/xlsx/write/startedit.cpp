#include "spreadsheet/xlsx/write/startedit.h"

#include "spreadsheet/xlsx/write/textescape.h"

#include <algorithm>

namespace spreadsheet {

StartEdit &StartEdit::set(const char *name, const QByteArray &value)
{
    for (XmlElement::Attribute &attribute : m_element.attributes) {
        if (attribute.name == name) {
            attribute.value = value;
            return *this;
        }
    }
    m_element.attributes.push_back({name, value});
    return *this;
}

StartEdit &StartEdit::remove(const char *name)
{
    std::vector<XmlElement::Attribute> &attributes = m_element.attributes;
    attributes.erase(std::remove_if(attributes.begin(), attributes.end(),
                         [name](const XmlElement::Attribute &attribute) { return attribute.name == name; }),
        attributes.end());
    return *this;
}

void StartEdit::apply(PartEdit *edit, Content content) const
{
    QByteArray tag = '<' + m_element.name;
    for (const XmlElement::Attribute &attribute : m_element.attributes) {
        tag += ' ' + attribute.name + "=\"" + plainText(QString::fromUtf8(attribute.value)) + '"';
    }
    const bool staysEmpty = m_element.isEmptyTag() && content == Content::Same;
    edit->replace(m_element.begin, m_element.contentBegin, tag + (staysEmpty ? "/>" : ">"));
}

void appendContent(const XmlElement &element, const QByteArray &content, int count, PartEdit *edit)
{
    StartEdit start(element);
    if (count >= 0) {
        start.set("count", QByteArray::number(count));
    }
    start.apply(edit, StartEdit::Content::Added);
    edit->insert(element.contentEnd, content);
    if (element.isEmptyTag()) {
        edit->insert(element.end, "</" + element.name + '>');
    }
}

void stateEncoding(const XmlOutline &outline, PartEdit *edit)
{
    if (!outline.encoding().isEmpty() && outline.encoding().toLower() != "utf-8") {
        edit->replace(
            0, outline.declarationEnd(), QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"));
    }
}

void openPart(const XmlOutline &outline, PartEdit *edit)
{
    stateEncoding(outline, edit);
    const XmlElement &root = outline.root();
    if (root.isEmptyTag()) {
        StartEdit(root).apply(edit, StartEdit::Content::Added);
        edit->close(root.end, "</" + root.name + '>');
    }
}

} // namespace spreadsheet
