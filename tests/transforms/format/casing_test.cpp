#include "support/printers.h"
#include "transforms/format/casing.h"

#include <gtest/gtest.h>
#include <random>

namespace {

/// ASCII of any kind, letters, blanks and apostrophes being frequent.
QByteArray randomAscii(std::mt19937 &random)
{
    static const char frequent[] = "aZ 'bY\t";
    QByteArray text;
    for (unsigned i = random() % 12; i > 0; --i) {
        text.append(random() % 3 ? frequent[random() % 7] : static_cast<char>(random() % 128));
    }
    return text;
}

template<class Change>
QString changed(QByteArray text, Change change)
{
    text.truncate(change(text.data(), text.size()));
    return QString::fromLatin1(text);
}

template<class Change>
void expectSameForBoth(const char *what, Change change)
{
    SCOPED_TRACE(what);
    std::mt19937 random(7);
    for (int i = 0; i < 3000; ++i) {
        QByteArray narrow = randomAscii(random);
        QString wide = QString::fromLatin1(narrow);
        narrow.truncate(change(narrow.data(), narrow.size()));
        wide.truncate(change(wide.data(), wide.size()));
        ASSERT_EQ(QString::fromLatin1(narrow), wide);
    }
}

} // namespace

TEST(Casing, IsTheSameForCharAndQChar)
{
    for (bool keepUpper : {false, true}) {
        expectSameForBoth("title", [=](auto *text, int size) { return Casing::title(text, size, keepUpper); });
        expectSameForBoth("sentence", [=](auto *text, int size) { return Casing::sentence(text, size, keepUpper); });
    }
    expectSameForBoth("inverted", [](auto *text, int size) { return Casing::inverted(text, size); });
    expectSameForBoth("joined",
        [](auto *text, int size) { return Casing::joined(text, size, std::remove_pointer_t<decltype(text)>('-')); });
}

TEST(Casing, IsTheSameForAsciiAndWholeTexts)
{
    std::mt19937 random(11);
    for (int i = 0; i < 3000; ++i) {
        const QByteArray narrow = randomAscii(random);
        const QString wide = QString::fromLatin1(narrow);
        SCOPED_TRACE(narrow.constData());
        ASSERT_EQ(changed(narrow, &Casing::lower), wide.toLower());
        ASSERT_EQ(changed(narrow, &Casing::upper), wide.toUpper());
        for (bool upper : {false, true}) {
            const auto camel = [upper](char *text, int size) { return Casing::camel(text, size, upper); };
            ASSERT_EQ(changed(narrow, camel), Casing::camelCase(wide, upper));
        }
    }
}

TEST(Casing, TakesWholeTexts)
{
    EXPECT_EQ(Casing::titleCase("ACME's inc", false), "Acme's Inc");
    EXPECT_EQ(Casing::camelCase("", true), "");
    EXPECT_EQ(Casing::camelCase(" \t", false), "");
}
