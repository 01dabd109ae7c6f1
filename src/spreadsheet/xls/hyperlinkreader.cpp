#include "spreadsheet/xls/hyperlinkreader.h"

#include "spreadsheet/sheetlayout.h"
#include "spreadsheet/sizes.h"
#include "spreadsheet/xls/record.h"

#include <algorithm>

namespace spreadsheet {
namespace {

constexpr quint32 classIdSize = 16;
constexpr quint32 headSize = 8 + classIdSize + 4; // range, class, version
constexpr int maxMonikerDepth = 4;
constexpr quint32 maxMonikers = 64;

constexpr quint32 hasMoniker = 0x01;
constexpr quint32 hasMark = 0x08;
constexpr quint32 hasDisplayName = 0x10;
constexpr quint32 hasFrameName = 0x80;
constexpr quint32 monikerIsText = 0x100;

/// Goes through the parts of a link; what lies beyond the record reads as 0 and empty.
class LinkParts
{
public:
    explicit LinkParts(const Record &record, quint32 at)
        : m_record(record)
        , m_at(at)
    {
    }

    bool isAtEnd() const { return m_at >= m_record.size; }

    quint16 u16()
    {
        const quint16 value = m_record.u16(m_at);
        skip(2);
        return value;
    }

    quint32 u32()
    {
        const quint32 value = m_record.u32(m_at);
        skip(4);
        return value;
    }

    void skip(quint32 size) { m_at += std::min(size, m_record.size - m_at); }

    QByteArray bytes(quint32 size)
    {
        size = std::min(size, m_record.size - m_at);
        const QByteArray read(reinterpret_cast<const char *>(m_record.data) + m_at, static_cast<int>(size));
        m_at += size;
        return read;
    }

    /// Up to a zero, or as long as it may be.
    QString wide(quint32 byteCount)
    {
        const QByteArray read = bytes(byteCount & ~1u);
        QString text(read.size() / 2, Qt::Uninitialized);
        qFromLittleEndian<quint16>(read.constData(), text.size(), text.data());
        return text.section(QChar(0), 0, 0);
    }

    /// A text behind its length in characters.
    QString countedText()
    {
        const quint32 count = u32();
        return wide(std::min(count, m_record.size) * 2);
    }

private:
    const Record &m_record;
    quint32 m_at;
};

QString readMoniker(LinkParts &parts, int depth);

/// A path with so many steps up in front; its form in the writer's own 8-bit characters goes before the one that
/// counts.
QString readFileMoniker(LinkParts &parts)
{
    const quint16 stepsUp = parts.u16();
    const QByteArray narrow = parts.bytes(parts.u32());
    parts.skip(24); // an offset, a version and two reserved fields
    QString path = QString::fromLatin1(narrow.left(narrow.indexOf('\0')));
    if (parts.u32() > 0) {
        const quint32 size = parts.u32();
        parts.skip(2);
        path = parts.wide(size);
    }
    return QStringLiteral("..\\").repeated(std::min<int>(stepsUp, 256)) + path;
}

QString readUrlMoniker(LinkParts &parts)
{
    return parts.wide(parts.u32());
}

/// Several in a row; those that say nothing are passed over.
QString readCompositeMoniker(LinkParts &parts, int depth)
{
    QString target;
    const quint32 count = std::min(parts.u32(), maxMonikers);
    for (quint32 i = 0; i < count && !parts.isAtEnd(); ++i) {
        target += readMoniker(parts, depth + 1);
    }
    return target;
}

QString readMoniker(LinkParts &parts, int depth)
{
    static const QByteArray url = QByteArray::fromHex("e0c9ea79f9bace118c8200aa004ba90b");
    static const QByteArray file = QByteArray::fromHex("0303000000000000c000000000000046");
    static const QByteArray composite = QByteArray::fromHex("0903000000000000c000000000000046");
    const QByteArray id = parts.bytes(classIdSize);
    if (id == url) {
        return readUrlMoniker(parts);
    }
    if (id == file) {
        return readFileMoniker(parts);
    }
    return id == composite && depth < maxMonikerDepth ? readCompositeMoniker(parts, depth) : QString();
}

QString readTarget(const Record &record)
{
    LinkParts parts(record, headSize);
    const quint32 flags = parts.u32();
    if (flags & hasDisplayName) {
        parts.countedText();
    }
    if (flags & hasFrameName) {
        parts.countedText();
    }
    QString address;
    if (flags & hasMoniker) {
        address = flags & monikerIsText ? parts.countedText() : readMoniker(parts, 0);
    }
    const QString mark = flags & hasMark ? parts.countedText() : QString();
    return address.isEmpty() || mark.isEmpty() ? address + mark : address + QLatin1Char('#') + mark;
}

} // namespace

bool readHyperlink(const Record &record, Hyperlink *link)
{
    const CellRange range{
        record.u16(0), record.u16(2), record.u16(4), std::min<int>(record.u16(6), maxColumns(FileKind::Xls) - 1)};
    if (record.size <= headSize || range.rowFirst > range.rowLast || range.columnFirst > range.columnLast) {
        return false;
    }
    link->range = range;
    link->target = readTarget(record);
    link->stored = QByteArray(reinterpret_cast<const char *>(record.data), static_cast<int>(record.size));
    return true;
}

} // namespace spreadsheet
