#include "hostiletext.h"
#include "outputs/storedtext.h"

#include <gtest/gtest.h>

TEST(StoredText, TrimsAsQtDoes)
{
    HostileText random(3, QStringLiteral("\t"));
    // Blanks of one, two and three bytes, and characters close to them that are none.
    for (const ushort code : {0x0B, 0x1C, 0x85, 0xA0, 0x1680, 0x180E, 0x2003, 0x200B, 0x2028, 0x202F, 0x205F, 0x3000}) {
        random.add(QString(QChar(code)));
    }
    for (int round = 0; round < 20000; ++round) {
        const QString text = random.next(8);
        const QByteArray stored = toStored(text);
        const StoredText trimmed = StoredText(stored).trimmed();
        ASSERT_EQ(QByteArray(trimmed.bytes, trimmed.size), toStored(text.trimmed()))
            << text.toUtf8().toHex().constData();
    }
}
