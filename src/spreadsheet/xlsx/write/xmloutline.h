#pragma once

#include "spreadsheet/xlsx/alternatecontent.h"
#include "text/expatparser.h"

#include <QByteArray>
#include <functional>
#include <memory>
#include <vector>

namespace spreadsheet {

/// An element of a part and where its bytes lie.
struct XmlElement
{
    struct Attribute
    {
        QByteArray name, value;
    };

    QByteArray name; ///< as written, with its prefix
    int depth = 0;   ///< 0 for the root
    int parent = -1; ///< position in the outline
    qint64 begin = 0, contentBegin = 0, contentEnd = 0, end = 0;
    std::vector<Attribute> attributes;

    QByteArray localName() const { return name.mid(name.indexOf(':') + 1); }
    bool is(const char *localName) const { return this->localName() == localName; }
    /// The prefix with its colon, or nothing.
    QByteArray prefix() const { return name.left(name.indexOf(':') + 1); }
    /// True for <name/>, which has no end tag.
    bool isEmptyTag() const { return contentBegin == end; }
    /// Value of the attribute of that name without its prefix; empty when there is none.
    QByteArray attribute(const char *localName) const;
    /// The prefix with its colon that the element itself declares for a namespace; nothing when it declares none.
    QByteArray prefixOf(const char *nameSpaceEnd) const;
};

/// The upper elements of a part, found without a tree of the rest. A part with a document type is refused. Alternatives
/// below a child of the root are counted as the reader counts them: the first one stands for them.
class XmlOutline
{
public:
    using Elements = std::vector<const XmlElement *>;

    /// Elements deeper than `deepest` are left out; those that deep too unless they stand in an element of the name
    /// `within`, when that is given.
    explicit XmlOutline(int deepest, const char *within = "");
    Q_DISABLE_COPY(XmlOutline)

    /// False when the bytes so far are no XML.
    bool feed(const char *bytes, int size);
    /// True when there was a whole root element.
    bool finish();
    /// Both in one.
    bool read(const QByteArray &part);

    const std::vector<XmlElement> &elements() const { return m_elements; }
    const XmlElement &root() const { return m_elements.front(); }
    /// The first child of an element by name; null when there is none.
    const XmlElement *child(const char *localName, int parent = 0) const;
    /// All children of an element.
    Elements children(int parent) const;
    int indexOf(const XmlElement *element) const { return static_cast<int>(element - m_elements.data()); }
    /// Children of the root, those counted too that are left out.
    qint64 rootChildCount() const { return m_rootChildCount; }
    /// Where the XML declaration ends; 0 when there is none.
    qint64 declarationEnd() const { return m_declarationEnd; }
    /// What it states; empty when it states none.
    const QByteArray &encoding() const { return m_encoding; }

private:
    void onStart(const char *name, const char **attributes);
    bool isTransparent(const char *name);
    void onEnd(const char *name);
    void onDeclaration(const char *encoding);
    void stop();

    ExpatParser m_expat;
    int m_deepest;
    QByteArray m_within;
    AlternateContent m_alternatives;
    int m_depth = 0;
    int m_wrapperCount = 0; // of those that are open
    int m_leftOut = 0;      // open elements in and including the alternative that is left out
    std::vector<XmlElement> m_elements;
    std::vector<int> m_open; // those recorded
    qint64 m_rootChildCount = 0;
    qint64 m_declarationEnd = 0;
    QByteArray m_encoding;
    bool m_failed = false;
};

} // namespace spreadsheet
