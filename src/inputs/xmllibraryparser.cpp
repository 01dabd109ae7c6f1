#include "inputs/xmllibraryparser.h"

#include "data/textcoding.h"
#include "inputs/xmlrecordbuilder.h"

#include <QXmlDefaultHandler>

// Only this parser has the words that QDomDocument has for its errors.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace {

class Handler final : public QXmlDefaultHandler
{
public:
    explicit Handler(XmlRecordBuilder *builder)
        : m_builder(builder)
    {
    }

    XmlMessage message;

    bool startElement(const QString &, const QString &, const QString &name, const QXmlAttributes &attributes) override
    {
        const QByteArray key = stored(name);
        if (!m_builder->startElement(key.constData(), key.size())) {
            m_refusal = xmlNestingMessage();
            return false;
        }
        for (int i = 0; i < attributes.count(); ++i) {
            const QByteArray attribute = stored(attributes.qName(i));
            const QByteArray value = stored(attributes.value(i));
            m_builder->attribute(attribute.constData(), attribute.size(), value.constData(), value.size());
        }
        return true;
    }

    bool endElement(const QString &, const QString &, const QString &) override
    {
        m_builder->endElement();
        return true;
    }

    bool characters(const QString &text) override
    {
        const QByteArray bytes = stored(text);
        m_builder->text(bytes.constData(), bytes.size());
        return true;
    }

    bool startCDATA() override { return finishText(false); }
    bool endCDATA() override { return finishText(true); }
    bool comment(const QString &) override { return finishText(false); }
    bool processingInstruction(const QString &, const QString &) override { return finishText(false); }

    bool skippedEntity(const QString &name) override
    {
        finishText(false);
        characters(QLatin1Char('&') + name + QLatin1Char(';'));
        return finishText(false);
    }

    bool fatalError(const QXmlParseException &error) override
    {
        message.text = m_refusal.isEmpty() ? error.message() : m_refusal;
        message.line = error.lineNumber();
        message.column = error.columnNumber();
        return false;
    }

private:
    bool finishText(bool inCdata)
    {
        m_builder->finishText(inCdata);
        return true;
    }

    static QByteArray stored(const QString &text)
    {
        QByteArray bytes;
        TextCoding::appendEncoded(bytes, text.constData(), text.size());
        return bytes;
    }

    XmlRecordBuilder *m_builder;
    QString m_refusal;
};

} // namespace

bool XmlLibraryParser::parse(const QString &text)
{
    Handler handler(m_builder);
    QXmlSimpleReader reader;
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
    reader.setFeature(QStringLiteral("http://qt-project.org/xml/features/report-whitespace-only-CharData"), false);
    reader.setContentHandler(&handler);
    reader.setLexicalHandler(&handler);
    reader.setErrorHandler(&handler);
    QXmlInputSource source;
    source.setData(text);
    const bool valid = reader.parse(&source, false);
    m_message = handler.message;
    return valid;
}

QT_WARNING_POP
