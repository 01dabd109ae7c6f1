#pragma once

#include "data/cell.h"

#include <QByteArray>
#include <QStringList>
#include <initializer_list>
#include <vector>

class Dataset;
class TextSink;

/// Text in WTF-8 that lies elsewhere.
struct StoredText
{
    const char *bytes;
    int size;

    explicit StoredText(const Cell &cell)
        : bytes(cell.bytes())
        , size(cell.size())
    {
    }
    /// Points into `stored`, which has to stay.
    explicit StoredText(const QByteArray &stored)
        : bytes(stored.constData())
        , size(stored.size())
    {
    }

    /// Without white space at both ends, as QString::trimmed() has it.
    StoredText trimmed() const;
    bool contains(char byte) const { return size > 0 && std::memchr(bytes, byte, static_cast<size_t>(size)); }
    bool contains(const QByteArray &part) const { return QByteArray::fromRawData(bytes, size).contains(part); }
};

/// Storage forms of texts that writers repeat in every row.
QByteArray toStored(const QString &text);
std::vector<QByteArray> toStored(const QStringList &texts);
/// Column names for formats that name each value: those of the header, or "value1", "value2" and so on without one.
QStringList valueNames(const Dataset &dataset);

/// A text for each of some bytes.
class ByteReplacements
{
public:
    struct Entry
    {
        char byte;
        const char *text;
    };
    ByteReplacements(std::initializer_list<Entry> entries)
    {
        for (const Entry &entry : entries) {
            m_texts[static_cast<uchar>(entry.byte)] = entry.text;
        }
    }
    /// Null for a byte that stays.
    const char *of(char byte) const { return m_texts[static_cast<uchar>(byte)]; }

private:
    const char *m_texts[256] = {};
};

/// Appends `text` with its bytes replaced; `Out` is a TextSink or a QByteArray.
template<class Out>
void appendReplaced(Out &out, StoredText text, const ByteReplacements &replacements)
{
    const char *from = text.bytes;
    const char *const end = text.bytes + text.size;
    for (const char *at = from; at < end; ++at) {
        if (const char *const replacement = replacements.of(*at)) {
            out.append(from, static_cast<int>(at - from));
            out.append(replacement, static_cast<int>(qstrlen(replacement)));
            from = at + 1;
        }
    }
    out.append(from, static_cast<int>(end - from));
}
/// Appends `text` with `byte` replaced by `replacement`.
void appendReplaced(TextSink &sink, StoredText text, char byte, const char *replacement);
/// Appends `text` with <, >, & and the double quote as character references.
void appendHtmlEscaped(TextSink &sink, StoredText text);
