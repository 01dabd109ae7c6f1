#include "spreadsheet/xls/hyperlinkrecord.h"

#include "spreadsheet/sheetlayout.h"
#include "spreadsheet/xls/bytebuffer.h"

#include <algorithm>

namespace spreadsheet {
namespace {

// What a link has
enum : quint32 { hasMoniker = 0x01, isAbsolute = 0x02, hasMark = 0x08 };

constexpr quint32 version = 2;

/// True for an address with a scheme; a single letter in front of a colon is a drive.
bool hasScheme(const QString &address)
{
    const int colon = address.indexOf(QLatin1Char(':'));
    return colon > 1 && std::all_of(address.begin(), address.begin() + colon, [](QChar c) {
        return c.unicode() < 0x80
               && (c.isLetterOrNumber() || c == QLatin1Char('+') || c == QLatin1Char('-') || c == QLatin1Char('.'));
    });
}

void putUtf16(ByteBuffer &out, const QString &text, bool withZero)
{
    out.bytes(reinterpret_cast<const char *>(text.utf16()), (text.size() + (withZero ? 1 : 0)) * 2);
}

void putAddress(ByteBuffer &out, const QString &address)
{
    out.bytes(QByteArray::fromHex("e0c9ea79f9bace118c8200aa004ba90b"));
    out.u32(static_cast<quint32>(address.size() + 1) * 2);
    putUtf16(out, address, true);
}

/// A path, with backslashes and its steps up counted as the format wants them; in a short form for old programs and in
/// a full one.
void putPath(ByteBuffer &out, QString path)
{
    path.replace(QLatin1Char('/'), QLatin1Char('\\'));
    const QString stepUp = QStringLiteral("..\\");
    unsigned steps = 0;
    while (path.startsWith(stepUp)) {
        path.remove(0, stepUp.size());
        ++steps;
    }
    const QByteArray narrow = path.toLatin1();
    out.bytes(QByteArray::fromHex("0303000000000000c000000000000046"));
    out.u16(steps);
    out.u32(static_cast<quint32>(narrow.size()) + 1);
    out.bytes(narrow);
    out.u8(0);
    out.bytes(QByteArray::fromHex("ffffadde"));
    out.zeros(20);
    const auto size = static_cast<quint32>(path.size()) * 2;
    constexpr quint32 headSize = 6;
    constexpr unsigned unicodeKey = 3;
    out.u32(size + headSize);
    out.u32(size);
    out.u16(unicodeKey);
    putUtf16(out, path, false);
}

} // namespace

QByteArray hyperlinkRecord(const Hyperlink &link)
{
    // The place in a page belongs to its address, that in a file stands for itself.
    const QString target = link.target.trimmed();
    const bool isAddress = hasScheme(target);
    const int hash = isAddress ? -1 : target.indexOf(QLatin1Char('#'));
    const bool isSplit = hash >= 0 && hash + 1 < target.size();
    const QString address = isSplit ? target.left(hash) : target;
    const QString mark = isSplit ? target.mid(hash + 1) : QString();
    const bool isFullPath = address.startsWith(QLatin1Char('/')) || address.startsWith(QLatin1Char('\\'))
                            || address.indexOf(QLatin1Char(':')) == 1;
    ByteBuffer out;
    out.u16(static_cast<unsigned>(link.range.rowFirst));
    out.u16(static_cast<unsigned>(link.range.rowLast));
    out.u16(static_cast<unsigned>(link.range.columnFirst));
    out.u16(static_cast<unsigned>(link.range.columnLast));
    out.bytes(QByteArray::fromHex("d0c9ea79f9bace118c8200aa004ba90b"));
    out.u32(version);
    out.u32((address.isEmpty() ? 0u : hasMoniker) | (isAddress || isFullPath ? isAbsolute : 0u)
            | (mark.isEmpty() ? 0u : hasMark));
    if (isAddress) {
        putAddress(out, address);
    } else if (!address.isEmpty()) {
        putPath(out, address);
    }
    if (!mark.isEmpty()) {
        out.u32(static_cast<quint32>(mark.size()) + 1);
        putUtf16(out, mark, true);
    }
    return out.data();
}

} // namespace spreadsheet
