#include "outputs/textchanges.h"

#include "data/numberreader.h"
#include "outputs/excelformats.h"
#include "support/grid.h"
#include "support/scopedlocale.h"

#include <gtest/gtest.h>
#include <random>

namespace {

Cell cellOf(const Dataset &table, int row = 0)
{
    return table.column(ColumnIndex(0)).at(row);
}

/// What is told of one number.
bool isChanged(const QString &text)
{
    const Dataset table = column(QStringList{text});
    TextChanges changes({{}, {}, {0}}, 1);
    bool isNumber = false;
    const double value = NumberReader(false, false).read(cellOf(table), &isNumber);
    EXPECT_TRUE(isNumber);
    changes.noteNumber(0, cellOf(table), value);
    const QString line = changes.line({"n"});
    EXPECT_TRUE(
        line.isEmpty() || line == "Automatic formats change texts in 1 column: 'n' ('" + text + "' to a number)");
    return !line.isEmpty();
}

} // namespace

TEST(TextChanges, FindNumbersThatDontComeBack)
{
    struct
    {
        const char *what;
        QStringList texts;
        bool isChanged;
    } const cases[] = {
        {"everyday numbers stay", {"0", "7", "-7", "1000", "0.5", "-0.25", "12.125", "100.01", "0.001"}, false},
        {"as many digits as programs keep", {"123456789012345", "-1234567.12345678", "0.123456789012345"}, false},
        {"zeros at the ends aren't digits that get lost", {"12345000000000000000", "0.00000000012345"}, false},
        {"more digits than programs keep", {"1234567890123456", "12345678901234567890", "0.1234567890123456"}, true},
        {"zeros in front", {"007", "-01", "00", "00.5"}, true},
        {"zeros behind", {"1.50", "2.0", "0.10"}, true},
        {"other forms", {"1e5", "-0", "+5", " 5", "5.", ".5", "1,234"}, true},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        for (const QString &text : c.texts) {
            EXPECT_EQ(isChanged(text), c.isChanged) << text.toStdString();
        }
    }
    const ScopedLocale german("de_DE");
    EXPECT_FALSE(isChanged("1,5"));
    EXPECT_FALSE(isChanged("-12"));
    EXPECT_TRUE(isChanged("1,50"));
    EXPECT_TRUE(isChanged("1.234"));
}

TEST(TextChanges, AgreeWithReadingTheNumberBack)
{
    std::mt19937 random(9);
    const char characters[] = "0012345.-";
    const NumberReader numbers(false, false);
    int changedCount = 0;
    for (int i = 0; i < 20000; ++i) {
        QString text;
        for (unsigned length = 1 + random() % 9; length > 0; --length) {
            text += QLatin1Char(characters[random() % (sizeof characters - 1)]);
        }
        bool isNumber = false;
        const double value = numbers.read(text, &isNumber);
        if (isNumber) {
            const bool expected = QLocale().toString(value, 'f', QLocale::FloatingPointShortest).remove(',') != text;
            ASSERT_EQ(isChanged(text), expected) << text.toStdString();
            changedCount += expected;
        }
    }
    EXPECT_GT(changedCount, 500);
}

TEST(TextChanges, NameEachColumnOnce)
{
    const Dataset table = column(QStringList{"007", "1.50", "2", "True", "1:30"});
    TextChanges changes({{}, {}, {0, 1, 2, 3}}, 6);
    changes.noteNumber(0, cellOf(table, 0), 7);
    changes.noteNumber(0, cellOf(table, 1), 1.5);
    changes.noteBoolean(1, cellOf(table, 3)); // only its case changes
    EXPECT_EQ(changes.line({"a", "b", "c", "d", "e", "f"}),
        "Automatic formats change texts in 1 column: 'a' ('007' to a number)");
    changes.noteBoolean(1, cellOf(table, 2));
    changes.noteTime(3, cellOf(table, 4));
    changes.noteTime(4, cellOf(table, 4)); // chosen by hand
    EXPECT_EQ(changes.line({"a", "b", "c", QString(80, 'd'), "e", "f"}),
        "Automatic formats change texts in 3 columns: 'a' ('007' to a number), 'b' ('2' to a boolean), '"
            + QString(49, 'd') + QChar(0x2026) + "' ('1:30' to a time)");
    ExcelFormats many;
    QStringList names;
    for (int i = 0; i < 60; ++i) {
        many.automatic.append(i);
        names.append("c");
    }
    TextChanges all(many, 60);
    EXPECT_EQ(all.line(names), QString());
    for (int i = 0; i < 60; ++i) {
        all.noteTime(i, cellOf(table, 4));
    }
    EXPECT_TRUE(all.line(names).endsWith(", + 10 others"));
}
