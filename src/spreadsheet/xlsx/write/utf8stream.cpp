#include "spreadsheet/xlsx/write/utf8stream.h"

#include <QTextCodec>
#include <QTextDecoder>

namespace spreadsheet {
namespace {

constexpr int headSize = 128; // an XML declaration

/// The encoding that a declaration in bytes of ASCII states.
QByteArray statedEncoding(const QByteArray &head)
{
    const int end = head.startsWith("<?xml") ? head.indexOf("?>") : -1;
    const int name = end < 0 ? -1 : head.left(end).indexOf("encoding");
    const int from = name < 0 ? -1 : head.indexOf(head.mid(name, end - name).contains('"') ? '"' : '\'', name) + 1;
    return from <= 0 ? QByteArray() : head.mid(from, head.indexOf(head.at(from - 1), from) - from).toLower();
}

} // namespace

Utf8Stream::Utf8Stream(const ZipArchive::Sink &sink)
    : m_sink(sink)
{
}

Utf8Stream::~Utf8Stream() = default;

bool Utf8Stream::feed(const char *bytes, int size)
{
    if (m_isKnown) {
        return hand(bytes, size);
    }
    m_head.append(bytes, size);
    if (m_head.size() < headSize) {
        return true;
    }
    choose();
    return hand(m_head.constData(), m_head.size());
}

bool Utf8Stream::finish()
{
    if (m_isKnown) {
        return true;
    }
    choose();
    return hand(m_head.constData(), m_head.size());
}

void Utf8Stream::choose()
{
    m_isKnown = true;
    const QByteArray start = m_head.left(2);
    const bool isUtf16 = start == "\xFE\xFF" || start == "\xFF\xFE" || start.contains('\0');
    const QByteArray stated = statedEncoding(m_head);
    QTextCodec *codec = nullptr;
    if (isUtf16) {
        codec = QTextCodec::codecForName(start.at(0) == '\0'   ? "UTF-16BE"
                                         : start.at(1) == '\0' ? "UTF-16LE"
                                                               : "UTF-16");
    } else if (!stated.isEmpty() && stated != "utf-8" && stated != "us-ascii") {
        codec = QTextCodec::codecForName(stated);
    }
    m_decoder.reset(codec ? codec->makeDecoder() : nullptr);
}

bool Utf8Stream::hand(const char *bytes, int size)
{
    if (!m_decoder) {
        return m_sink(bytes, size);
    }
    const QByteArray utf8 = m_decoder->toUnicode(bytes, size).toUtf8();
    return utf8.isEmpty() || m_sink(utf8.constData(), utf8.size());
}

} // namespace spreadsheet
