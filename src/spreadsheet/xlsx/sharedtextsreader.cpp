#include "spreadsheet/xlsx/sharedtextsreader.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/xlsx/richtext.h"
#include "spreadsheet/xlsx/xlsxsource.h"
#include "spreadsheet/xlsx/xmlparser.h"

namespace spreadsheet {
namespace {

class SharedTextsHandler final : public XmlHandler
{
public:
    explicit SharedTextsHandler(TextTable *texts)
        : m_texts(texts)
    {
    }

    bool startElement(std::string_view name, const XmlAttributes &) override
    {
        if (m_isInItem) {
            return m_text.start(name);
        }
        if (name == "si") {
            m_isInItem = true;
            m_text.clear();
            return true;
        }
        return name == "sst";
    }
    void endElement(std::string_view name) override
    {
        if (m_isInItem && name == "si") {
            m_isInItem = false;
            m_texts->append(m_text.plain());
        } else {
            m_text.end(name);
        }
    }
    void text(std::string_view piece) override
    {
        if (m_isInItem && !m_text.append(piece)) {
            fail(RichText::tooLong());
        }
    }

private:
    TextTable *m_texts;
    RichText m_text;
    bool m_isInItem = false;
};

} // namespace

bool loadSharedTexts(XlsxSource &source, BookData &book, QString *error)
{
    if (source.textsLoaded) {
        return true;
    }
    source.firstText = book.texts.size();
    if (!source.textsPart.isEmpty()) {
        SharedTextsHandler handler(&book.texts);
        if (!parsePart(*source.archive, source.textsPart, &handler, error)) {
            return false;
        }
    }
    source.loadedTexts = book.texts.size() - source.firstText;
    source.textsLoaded = true;
    return true;
}

} // namespace spreadsheet
