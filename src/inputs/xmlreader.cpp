#include "inputs/xmlreader.h"

#include "data/textcoding.h"
#include "inputs/treereading.h"
#include "inputs/xmllibraryparser.h"
#include "inputs/xmlrecordbuilder.h"
#include "inputs/xmlstreamparser.h"

#include <algorithm>
#include <string_view>

class XmlReader::Reading final : public TreeReading
{
public:
    Reading(const TreeReadOptions &options, TextSource *source)
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

XmlReader::XmlReader(const TreeReadOptions &options, TextSource *source)
    : m_reading(std::make_unique<Reading>(options, source))
{
}

XmlReader::~XmlReader() = default;

void XmlReader::setProgress(std::function<void(double)> progress)
{
    m_reading->setProgress(std::move(progress));
}

void XmlReader::setBlockSize(int size)
{
    m_reading->setBlockSize(size);
}

bool XmlReader::read(Dataset *dataset)
{
    return m_reading->read(dataset);
}

const QStringList &XmlReader::infos() const
{
    return m_reading->infos();
}

const QStringList &XmlReader::warnings() const
{
    return m_reading->warnings();
}
