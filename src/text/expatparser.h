#pragma once

#include <QString>
#include <exception>
#include <expat.h>
#include <memory>

/// An expat parser that tells member functions of its owner what it finds. What such a function throws may not pass
/// through expat: it ends the parse, and parse() throws it on. After stop() nothing is told any more.
class ExpatParser
{
public:
    /// `owner` must be of the class whose members are given to the functions below. `encoding` overrides what the
    /// document states; null leaves it to the document.
    explicit ExpatParser(void *owner, const char *encoding = nullptr);
    Q_DISABLE_COPY(ExpatParser)

    // What is told, each to a member function with the arguments that stand beside it.

    /// start(const char *name, const char **attributes) and end(const char *name)
    template<auto start, auto end>
    void tellElements()
    {
        XML_SetElementHandler(
            m_parser.get(),
            [](void *self, const char *name, const char **attributes) { tell<start>(self, name, attributes); },
            [](void *self, const char *name) { tell<end>(self, name); });
    }
    /// text(const char *bytes, int size), in pieces
    template<auto text>
    void tellText()
    {
        XML_SetCharacterDataHandler(
            m_parser.get(), [](void *self, const char *bytes, int size) { tell<text>(self, bytes, size); });
    }
    /// begin() and end() of CDATA
    template<auto begin, auto end>
    void tellCdata()
    {
        XML_SetCdataSectionHandler(
            m_parser.get(), [](void *self) { tell<begin>(self); }, [](void *self) { tell<end>(self); });
    }
    /// mark() for comments and processing instructions
    template<auto mark>
    void tellMarks()
    {
        XML_SetCommentHandler(m_parser.get(), [](void *self, const char *) { tell<mark>(self); });
        XML_SetProcessingInstructionHandler(
            m_parser.get(), [](void *self, const char *, const char *) { tell<mark>(self); });
    }
    /// declaration(const char *encoding), null when none is stated
    template<auto declaration>
    void tellXmlDeclaration()
    {
        XML_SetXmlDeclHandler(m_parser.get(),
            [](void *self, const char *, const char *encoding, int) { tell<declaration>(self, encoding); });
    }
    /// doctype()
    template<auto doctype>
    void tellDoctype()
    {
        XML_SetStartDoctypeDeclHandler(
            m_parser.get(), [](void *self, const char *, const char *, const char *, int) { tell<doctype>(self); });
    }
    /// entities() and attributes(), for each declaration of one
    template<auto entities, auto attributes>
    void tellDeclarations()
    {
        XML_SetEntityDeclHandler(
            m_parser.get(), [](void *self, const char *, int, const char *, int, const char *, const char *,
                                const char *, const char *) { tell<entities>(self); });
        XML_SetAttlistDeclHandler(m_parser.get(),
            [](void *self, const char *, const char *, const char *, const char *, int) { tell<attributes>(self); });
    }
    /// unknown(const char *name, bool isParameter), which don't end the parse then; external(), which end it
    template<auto unknown, auto external>
    void tellEntities()
    {
        XML_SetSkippedEntityHandler(m_parser.get(),
            [](void *self, const char *name, int isParameter) { tell<unknown>(self, name, isParameter != 0); });
        XML_SetExternalEntityRefHandler(
            m_parser.get(), [](XML_Parser parser, const char *, const char *, const char *, const char *) -> int {
                tell<external>(XML_GetUserData(parser));
                return XML_STATUS_ERROR;
            });
        XML_UseForeignDTD(m_parser.get(), XML_TRUE);
    }

    /// False when the bytes so far are no XML or the parse was stopped.
    bool parse(const char *bytes, int size, bool isLast);
    void stop();
    bool isStopped() const { return m_isStopped; }

    /// Why parse() gave false, in expat's words.
    QString errorText() const;
    /// Of what is told now, or of what is wrong: its place and size in bytes, line from 1 and column from 0.
    qint64 byteIndex() const { return XML_GetCurrentByteIndex(m_parser.get()); }
    int byteCount() const { return XML_GetCurrentByteCount(m_parser.get()); }
    qint64 line() const { return static_cast<qint64>(XML_GetCurrentLineNumber(m_parser.get())); }
    qint64 column() const { return static_cast<qint64>(XML_GetCurrentColumnNumber(m_parser.get())); }
    /// Names and values in the attributes of the present element that stand in its tag; declared defaults follow them.
    int statedAttributeCount() const { return XML_GetSpecifiedAttributeCount(m_parser.get()); }

private:
    template<class Class, class... Arguments>
    static Class *ownerOf(void *owner, void (Class::*)(Arguments...))
    {
        return static_cast<Class *>(owner);
    }
    template<auto member, class... Arguments>
    static void tell(void *parser, Arguments... arguments)
    {
        auto *self = static_cast<ExpatParser *>(parser);
        if (self->m_isStopped) {
            return; // expat may still report the end of an empty element
        }
        try {
            (ownerOf(self->m_owner, member)->*member)(arguments...);
        } catch (...) {
            self->m_exception = std::current_exception();
            self->stop();
        }
    }

    struct Freer
    {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };

    std::unique_ptr<XML_ParserStruct, Freer> m_parser;
    void *m_owner;
    bool m_isStopped = false;
    std::exception_ptr m_exception;
};
