#include "outputs/delimitedwriter.h"

#include "data/values.h"
#include "outputs/bytesearch.h"
#include "outputs/cellrows.h"
#include "outputs/outputenums.h"
#include "outputs/storedtext.h"
#include "outputs/textlayout.h"
#include "outputs/textsink.h"

namespace {

/// Bytes that make a value need a closer look; the first byte of a delimiter stands for all of it.
template<CsvEncoder::Quoting quoting>
struct SpecialBytes;

template<>
struct SpecialBytes<CsvEncoder::AsNeeded> : ByteSearch<4>
{
    explicit SpecialBytes(char delimiter)
        : ByteSearch<4>({'"', delimiter, '\n', '\r'})
    {
    }
};

template<>
struct SpecialBytes<CsvEncoder::Always> : ByteSearch<1>
{
    explicit SpecialBytes(char)
        : ByteSearch<1>({'"'})
    {
    }
};

template<>
struct SpecialBytes<CsvEncoder::Never> : ByteSearch<3>
{
    explicit SpecialBytes(char delimiter)
        : ByteSearch<3>({delimiter, '\n', '\r'})
    {
    }
};

/// Up to four bytes that are appended by one store.
struct ShortText
{
    explicit ShortText(const QByteArray &text)
        : size(text.size())
    {
        std::memcpy(bytes, text.constData(), static_cast<size_t>(size));
    }
    char *appendTo(char *out) const
    {
        std::memcpy(out, bytes, sizeof bytes);
        return out + size;
    }
    char bytes[4] = {};
    int size;
};

/// Puts a value between quotes with its own quotes doubled; `out` has room for twice its size and two bytes.
char *appendQuoted(char *out, const char *bytes, int size)
{
    *out++ = '"';
    const char *const end = bytes + size;
    while (const void *quote = std::memchr(bytes, '"', static_cast<size_t>(end - bytes))) {
        const auto before = static_cast<size_t>(static_cast<const char *>(quote) + 1 - bytes);
        std::memcpy(out, bytes, before);
        out += before;
        *out++ = '"';
        bytes += before;
    }
    std::memcpy(out, bytes, static_cast<size_t>(end - bytes));
    out += end - bytes;
    *out++ = '"';
    return out;
}

/// Encodes rows of values into a sink. The common value, which stays as it is, is copied while it is searched; only a
/// value with a special byte takes a longer way.
template<CsvEncoder::Quoting quoting>
class RowWriter
{
public:
    RowWriter(TextSink &sink, QChar delimiter, const QByteArray &lineEnding)
        : m_sink(sink)
        , m_encoder(delimiter, quoting)
        , m_delimiter(toStored(QString(delimiter)))
        , m_lineEnding(lineEnding)
        , m_special(m_delimiter.bytes[0])
        , m_findsNeedQuotes(quoting == CsvEncoder::Always
                            || (quoting == CsvEncoder::AsNeeded && m_delimiter.size == 1
                                && m_delimiter.bytes[0] > Cell::inlineCapacity))
    {
    }

    int replacedCount() const { return m_encoder.replacedCount(); }

    void writeNames(const QStringList &names)
    {
        QByteArray line;
        m_encoder.appendLine(line, names);
        m_sink.append(line);
        m_sink.append(m_lineEnding.bytes, m_lineEnding.size);
    }

    void writeRow(const CellRows &cells, int row);

private:
    static constexpr int quoteSize = quoting == CsvEncoder::Always ? 1 : 0;
    // What a value needs beside its bytes: two quotes, a delimiter or line ending stored as four bytes, and the eight
    // bytes that a value within its cell is stored as.
    static constexpr int slack = 16;

    void writeSpecial(const Cell &cell)
    {
        m_encoded.resize(0);
        m_encoder.appendValue(m_encoded, cell);
        m_sink.append(m_encoded);
    }

    TextSink &m_sink;
    CsvEncoder m_encoder;
    QByteArray m_encoded;
    const ShortText m_delimiter;
    const ShortText m_lineEnding;
    const SpecialBytes<quoting> m_special;
    // Else a find may be the start of a delimiter without its rest, or the size that a cell holds next to its text.
    const bool m_findsNeedQuotes;
};

template<CsvEncoder::Quoting quoting>
void RowWriter<quoting>::writeRow(const CellRows &cells, int row)
{
    // Locals, since a store through a char pointer might change any member.
    const SpecialBytes<quoting> special = m_special;
    const ShortText delimiter = m_delimiter;
    const Cell *const *const columns = cells.columns();
    const int columnCount = cells.columnCount();
    const char *const end = m_sink.roomEnd();
    char *next = m_sink.room(slack);
    // Sorted or joined rows have their texts all over memory; those of a row further on are fetched ahead.
    const int ahead = qMin(row + 6, cells.rowCount() - 1);
    for (int column = 0; column < columnCount; ++column) {
        __builtin_prefetch(columns[column][ahead].bytes());
        const Cell cell = columns[column][row];
        const int size = cell.size();
        if (Q_UNLIKELY(size + slack > end - next)) {
            m_sink.setNext(next);
            next = m_sink.room(qMin(size, TextSink::bufferSize / 4) + slack);
        }
        quint64 found = 1;
        if (cell.isInline()) {
            const quint64 bits = cell.bits();
            std::memcpy(next + quoteSize, &bits, sizeof bits);
            found = special.inWord(bits);
        } else if (Q_LIKELY(size + slack <= end - next)) {
            found = special.copy(next + quoteSize, cell.bytes(), size);
        }
        if (Q_LIKELY(found == 0)) {
            if (quoteSize) {
                next[0] = '"';
                next[size + 1] = '"';
            }
            next += size + 2 * quoteSize;
        } else if (m_findsNeedQuotes && 2 * static_cast<qint64>(size) + slack <= end - next) {
            next = appendQuoted(next, cell.bytes(), size);
        } else {
            m_sink.setNext(next);
            writeSpecial(cell);
            next = m_sink.room(slack);
        }
        next = delimiter.appendTo(next);
    }
    if (columnCount > 0) {
        next -= delimiter.size;
    }
    m_sink.setNext(m_lineEnding.appendTo(next));
}

template<CsvEncoder::Quoting quoting>
int writeWith(TextSink &sink, const Dataset &dataset, QChar delimiter, const TextLayout &layout)
{
    RowWriter<quoting> writer(sink, delimiter, layout.lineEnding);
    if (layout.writeHeader) {
        writer.writeNames(dataset.columnNames());
    }
    const CellRows cells(dataset);
    for (int row = 0; row < cells.rowCount(); ++row) {
        writer.writeRow(cells, row);
        layout.reportRow(row, cells.rowCount());
    }
    return writer.replacedCount();
}

} // namespace

int DelimitedWriter::write(TextSink &sink, const Dataset &dataset, const Format &format, const TextLayout &layout)
{
    switch (format.quoting) {
    case CsvEncoder::Always:
        return writeWith<CsvEncoder::Always>(sink, dataset, format.delimiter, layout);
    case CsvEncoder::Never:
        return writeWith<CsvEncoder::Never>(sink, dataset, format.delimiter, layout);
    case CsvEncoder::AsNeeded:
        break;
    }
    return writeWith<CsvEncoder::AsNeeded>(sink, dataset, format.delimiter, layout);
}

QString DelimitedWriter::replacedWarning(int count, QChar delimiter)
{
    const QChar replacement = delimiter == QLatin1Char(' ') ? QLatin1Char('_') : QLatin1Char(' ');
    return QStringLiteral(
        "Delimiter, Line Feed or Carriage Return characters were found within %1 unquoted data value(s). These have "
        "been replaced with '%2'. You may want to use a 'Replace' transform to replace these characters or output the "
        "file with 'Quoting' set to '%3'.")
        .arg(formatInteger(count, true), replacement, Quoting::label(Quoting::AsNeeded));
}
