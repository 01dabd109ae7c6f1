#pragma once

#include "spreadsheet/xlsx/alternatecontent.h"
#include "text/expatparser.h"

#include <QString>
#include <string>
#include <string_view>

namespace spreadsheet {

class ZipArchive;

/// The attributes of an element, names with their prefixes; valid while its start is handled. Values are UTF-8.
class XmlAttributes
{
public:
    explicit XmlAttributes(const char **list)
        : m_list(list)
    {
    }
    /// Pairs of name and value, closed by a null.
    const char **list() const { return m_list; }
    /// Null when there is none of this name.
    const char *find(std::string_view name) const;
    std::string_view value(std::string_view name) const;
    /// Of the attribute of this name behind any prefix; those without one don't count. Null when there is none.
    const char *findPrefixed(std::string_view localName) const;
    /// Leading digits with a sign; `otherwise` when there are none or the number doesn't fit.
    int number(std::string_view name, int otherwise) const;
    double real(std::string_view name, double otherwise) const;
    /// "1", "true" or "on"; `otherwise` when there is no such attribute.
    bool flag(std::string_view name, bool otherwise) const;

    static bool isTrue(std::string_view value) { return value == "1" || value == "true" || value == "on"; }

private:
    const char **m_list;
};

/// Takes the elements of a document. Names come without the prefix that the root has; elements of other prefixes are
/// skipped with all they hold, and so is what startElement() refuses. Of alternatives the first one comes, without what
/// encloses it.
class XmlHandler
{
public:
    virtual ~XmlHandler() = default;

    /// False to skip the element with all it holds. Calls come with what the root element is named first.
    virtual bool startElement(std::string_view name, const XmlAttributes &attributes) = 0;
    virtual void endElement(std::string_view) {}
    /// Text in an element that wasn't skipped, in pieces.
    virtual void text(std::string_view) {}

    // For elements that a document has in millions. Where a handler finds whole elements in a form that it knows well,
    // it may take them itself; it must get from them what it would get through the functions above.
    /// Takes elements that stand at `from`, and gives the place behind them. Called only in the content of an element
    /// that wasn't skipped, where a tag may begin, and in a document of UTF-8 without prefixes.
    virtual const char *takeElements(const char *from, const char *) { return from; }
    /// Where from `from` on it is next worth trying; `end` for nowhere.
    virtual const char *nextElements(const char *, const char *end) { return end; }

    /// In words for the user; empty unless the handler refused the document.
    const QString &error() const { return m_error; }
    bool isDone() const { return m_isDone; }

protected:
    /// Refuses the document; false, for returning.
    bool fail(const QString &error)
    {
        m_error = error;
        return false;
    }
    /// Nothing more is wanted.
    void finish() { m_isDone = true; }

private:
    QString m_error;
    bool m_isDone = false;
};

/// Reads XML of any size and encoding piece by piece. Document type declarations, and with them entities, are refused;
/// depth and length of tags are bounded.
class XmlParser
{
public:
    explicit XmlParser(XmlHandler *handler);
    Q_DISABLE_COPY(XmlParser)

    /// False when nothing more is wanted: the document is refused or damaged, or the handler is done.
    bool feed(const char *bytes, int size);
    /// To be called behind the last piece. False when the document is damaged or refused.
    bool close();
    const QString &error() const { return m_error; }

private:
    void onStart(const char *name, const char **attributes);
    void onEnd(const char *name);
    void onText(const char *text, int size);
    void onDoctype();
    void onCdataStart() { m_isInCdata = true; }
    void onCdataEnd() { m_isInCdata = false; }
    void stopWhenDone();
    bool parse(const char *bytes, int size, bool isLast);
    static bool startsAsUtf8(const char *bytes, int size);
    bool isBetweenTags() const;
    const char *takeElements(const char *from, const char *end);

    ExpatParser m_expat;
    XmlHandler *m_handler;
    std::string m_prefix; // of the root, with the colon
    bool m_isUtf8 = false;
    bool m_isInCdata = false;
    AlternateContent m_alternatives;
    int m_depth = 0;
    int m_skipped = 0;     // open elements in and including the one that is skipped
    long long m_fed = 0;   // bytes that went through the parser
    long long m_taken = 0; // bytes that the handler took itself
    QString m_error;
};

/// Reads a part of the archive into the handler. False with an error when it is missing, damaged or refused.
bool parsePart(ZipArchive &archive, const QString &part, XmlHandler *handler, QString *error);

} // namespace spreadsheet
