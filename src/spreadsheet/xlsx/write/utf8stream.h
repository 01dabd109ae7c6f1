#pragma once

#include "spreadsheet/xlsx/ziparchive.h"

#include <memory>

class QTextDecoder;

namespace spreadsheet {

/// Hands on the bytes of an XML part as UTF-8, whatever encoding its first bytes state.
class Utf8Stream
{
public:
    explicit Utf8Stream(const ZipArchive::Sink &sink);
    ~Utf8Stream();
    Q_DISABLE_COPY(Utf8Stream)

    bool feed(const char *bytes, int size);
    bool finish();

private:
    void choose();
    bool hand(const char *bytes, int size);

    const ZipArchive::Sink &m_sink;
    std::unique_ptr<QTextDecoder> m_decoder; // null for UTF-8
    QByteArray m_head;                       // until the encoding is known
    bool m_isKnown = false;
};

} // namespace spreadsheet
