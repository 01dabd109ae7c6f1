#include "spreadsheet/xls/bytebuffer.h"

#include <algorithm>

namespace spreadsheet {

void ByteBuffer::characters(const QString &text)
{
    const bool isWide = std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 0xFF; });
    u8(isWide ? 1 : 0);
    if (isWide) {
        bytes(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    } else {
        bytes(text.toLatin1());
    }
}

} // namespace spreadsheet
