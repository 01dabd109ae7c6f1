#include "data/textorder.h"

#include "data/textarena.h"
#include "support/randomtext.h"

#include <gtest/gtest.h>

namespace {

int sign(int number)
{
    return (number > 0) - (number < 0);
}

TEST(TextOrder, IsThatOfQString)
{
    const QString units[] = {"a", "A", "z", "\t", QString(QChar(0)), "é", "É", "ß", "K", "k", "\u07FF", "\uD7FF",
        "\uE000", "\uFFFD", "\U00010000", "\U0001F600", "\U00010400", "\U00010428", QString(QChar(0xD800)),
        QString(QChar(0xDC00)), QString(QChar(0xD83D)), QString(QChar(0xDE00))};
    RandomText random(3);
    TextArena arena;
    const auto pick = [&] {
        QString text;
        for (int left = random.below(4); left > 0; --left) {
            text += units[random.below(static_cast<int>(std::size(units)))];
        }
        return text;
    };
    for (int i = 0; i < 100000; ++i) {
        const QString start = pick();
        const QString a = start + pick();
        const QString b = start + pick();
        const Cell cellA = arena.store(a);
        const Cell cellB = arena.store(b);
        ASSERT_EQ(sign(TextOrder::compare(cellA, cellB)), sign(QString::compare(a, b)))
            << a.toUtf8().toHex().constData() << ' ' << b.toUtf8().toHex().constData();
        ASSERT_EQ(sign(TextOrder::compareIgnoringCase(cellA.bytes(), cellA.size(), cellB.bytes(), cellB.size())),
            sign(QString::compare(a, b, Qt::CaseInsensitive)))
            << a.toUtf8().toHex().constData() << ' ' << b.toUtf8().toHex().constData();
    }
}

} // namespace
