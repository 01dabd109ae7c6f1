#include "inputs/xmlreader.h"

#include "data/textcoding.h"
#include "inputs/treereading.h"
#include "inputs/xmllibraryparser.h"
#include "inputs/xmlrecordbuilder.h"
#include "inputs/xmlstreamparser.h"

#include <algorithm>
#include <string_view>

namespace {

/// What XmlReader does.
class XmlReading final : public TreeReading
{
public:
    XmlReading(const TreeReadOptions &options, TextSource *source)
        : TreeReading(options, true, source)
    {
    }

private:
    bool readRecords() override
    {
        XmlStreamParser parser(&block(), startBuilder());
        const XmlStreamParser::Outcome outcome = parser.parse();
        if (outcome == XmlStreamParser::Parsed) {
            return true;
        }
        block().readAll();
        if (outcome == XmlStreamParser::Refused || hasDeclarations()) {
            return failWith(parser.message());
        }
        // The verdict is that of the library's parser, which takes more than expat, and so are the words.
        startOver();
        XmlLibraryParser library(startBuilder());
        return library.parse(TextCoding::decode(block().begin(), block().size())) || failWith(library.message());
    }

    XmlRecordBuilder *startBuilder()
    {
        const auto add = [this](const TreeRecord &record) { flattener().add(record); };
        m_builder = std::make_unique<XmlRecordBuilder>(paths(), m_options.arraysAsRows != 0, add);
        m_builder->setProgress([this] { reportProgress(); });
        return m_builder.get();
    }

    /// The library's parser has no limits of its own for what a document type may declare.
    bool hasDeclarations()
    {
        const std::string_view text(block().begin(), static_cast<size_t>(block().size()));
        return text.find("<!ENTITY") != std::string_view::npos || text.find("<!ELEMENT") != std::string_view::npos;
    }

    bool failWith(const XmlMessage &message)
    {
        const QString warning = QStringLiteral("Error parsing XML: %1 at line %2 column %3");
        return fail(warning.arg(message.text, QString::number(message.line), QString::number(message.column)));
    }

    std::unique_ptr<XmlRecordBuilder> m_builder;
};

} // namespace

XmlReader::XmlReader(const TreeReadOptions &options, TextSource *source)
    : TreeReader(std::make_unique<XmlReading>(options, source))
{
}
