#include "data/dataset.h"
#include "data/rowsorting.h"
#include "data/values.h"
#include "support/grid.h"
#include "support/randomtext.h"
#include "support/scopedlocale.h"

#include <QCollator>
#include <gtest/gtest.h>

namespace {

const QStringList formats{"M/d/yyyy", "d/M/yyyy", "yyyy-M-d"};

/// By the first column, unless a test says otherwise.
struct Sorting : RowSorting
{
    Sorting(const QList<int> &sortedColumns = {1}, bool byLocale = false, bool withCase = true, bool withValues = true)
    {
        columns = sortedColumns;
        dateFormats = formats;
        byValue = withValues;
        localeAware = byLocale;
        caseSensitive = withCase;
    }
    QString apply(Dataset &dataset) const
    {
        QString info;
        dataset.sortRows(*this, &info);
        return info;
    }
};

Sorting textual()
{
    Sorting sorting;
    sorting.byValue = false;
    return sorting;
}

Sorting byLocale(bool caseSensitive)
{
    Sorting sorting;
    sorting.localeAware = true;
    sorting.caseSensitive = caseSensitive;
    return sorting;
}

Sorting ignoringCase()
{
    Sorting sorting;
    sorting.caseSensitive = false;
    return sorting;
}

TEST(RowSort, SortsOneColumn)
{
    const struct
    {
        const char *what;
        Sorting sorting;
        QStringList cells;
        QStringList sorted;
        QString info;
    } cases[] = {
        {"numbers by value", {}, {"10", "9", "100"}, {"9", "10", "100"}, "Column 'Value' sorted ascending as Numeric"},
        {"or as text", textual(), {"10", "9", "100"}, {"10", "100", "9"}, "Column 'Value' sorted ascending as Text"},
        {"descending", {{-1}}, {"10", "9", "100"}, {"100", "10", "9"}, "Column 'Value' sorted descending as Numeric"},
        {"currency symbols don't matter", {}, {"$10", "9", "€100", "-3"}, {"-3", "9", "$10", "€100"},
            "Column 'Value' sorted ascending as Numeric"},
        {"dates by the first format that fits all", {}, {"1/2/2024", "12/1/2023"}, {"12/1/2023", "1/2/2024"},
            "Column 'Value' sorted ascending as Date (M/d/yyyy)"},
        {"a later format fits", {}, {"13/2/2024", "2/12/2023"}, {"2/12/2023", "13/2/2024"},
            "Column 'Value' sorted ascending as Date (d/M/yyyy)"},
        {"no format fits all, so text", {}, {"13/2/2024", "2024-1-1", "1"}, {"1", "13/2/2024", "2024-1-1"},
            "Column 'Value' sorted ascending as Text"},
        {"empty cells come first", {}, {"2", "", "1", ""}, {"", "", "1", "2"},
            "Column 'Value' sorted ascending as Numeric"},
        {"and last when descending", {{-1}}, {"2", "", "1"}, {"2", "1", ""},
            "Column 'Value' sorted descending as Numeric"},
        {"equal values keep their order", {}, {"2", "1.0", "1", "01"}, {"1.0", "1", "01", "2"},
            "Column 'Value' sorted ascending as Numeric"},
        {"both zeros are equal", {}, {"0", "-0", "0.0", "-1"}, {"-1", "0", "-0", "0.0"},
            "Column 'Value' sorted ascending as Numeric"},
        {"also when descending", {{-1}}, {"1", "2", "1.0"}, {"2", "1", "1.0"},
            "Column 'Value' sorted descending as Numeric"},
        {"long whole numbers digit by digit", {},
            {"123456789012345679", "9", "123456789012345678", "123456789012345680", "-123456789012345679",
                "-123456789012345678"},
            {"-123456789012345679", "-123456789012345678", "9", "123456789012345678", "123456789012345679",
                "123456789012345680"},
            "Column 'Value' sorted ascending as Numeric"},
        {"also descending, grouped and beyond 64 bits", {{-1}},
            {"9,007,199,254,740,993", "9007199254740992", "123456789012345678901234567889",
                "123456789012345678901234567890"},
            {"123456789012345678901234567890", "123456789012345678901234567889", "9,007,199,254,740,993",
                "9007199254740992"},
            "Column 'Value' sorted descending as Numeric"},
        {"other forms of a number stay beside its nearest", {},
            {"9007199254740993", "9007199254740992.5", "9007199254740992", "9.007199254740992e15"},
            {"9007199254740992.5", "9007199254740992", "9.007199254740992e15", "9007199254740993"},
            "Column 'Value' sorted ascending as Numeric"},
        {"texts among long numbers", {}, {"9007199254740993", "9007199254740992", "", "nan"},
            {"", "9007199254740992", "9007199254740993", "nan"}, "Column 'Value' sorted ascending as Numeric"},
        {"nan is passed over as a number and sorted as text", {}, {"nan", "7", "30"}, {"7", "30", "nan"},
            "Column 'Value' sorted ascending as Numeric"},
        {"upper case before lower case", {}, {"b", "a", "B", "A"}, {"A", "B", "a", "b"},
            "Column 'Value' sorted ascending as Text"},
        {"case ignored", ignoringCase(), {"b", "a", "B", "A"}, {"a", "A", "b", "B"},
            "Column 'Value' sorted ascending as Text"},
        {"accents by code unit", {}, {"é", "z", "e"}, {"e", "z", "é"}, "Column 'Value' sorted ascending as Text"},
        {"accents by locale", byLocale(true), {"é", "z", "e"}, {"e", "é", "z"},
            "Column 'Value' sorted ascending as Text"},
        {"case by locale", byLocale(true), {"B", "b", "a"}, {"a", "b", "B"}, "Column 'Value' sorted ascending as Text"},
        {"no case by locale", byLocale(false), {"B", "b", "a"}, {"a", "B", "b"},
            "Column 'Value' sorted ascending as Text"},
        {"long texts differ behind what they share", {}, {"aaaaaaaaaaaaaac", "aaaaaaaaaaaaaab", "aaaaaaaaaaaaaa"},
            {"aaaaaaaaaaaaaa", "aaaaaaaaaaaaaab", "aaaaaaaaaaaaaac"}, "Column 'Value' sorted ascending as Text"},
        {"column numbers that don't exist are left out", {{7, -1, 0}}, {"a", "b"}, {"b", "a"},
            "Column 'Value' sorted descending as Text"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        Dataset dataset = column(c.cells);
        EXPECT_EQ(c.sorting.apply(dataset), c.info);
        EXPECT_EQ(rows(dataset), c.sorted);
    }
}

TEST(RowSort, SortsByColumnsInTurn)
{
    Dataset dataset = grid({"name|day|price", "b|2/1/2024|5", "a|1/1/2024|10", "c|2/1/2024|40", "d|2/1/2024|5"});
    EXPECT_EQ((Sorting{{-2, 3}}.apply(dataset)),
        "Column 'day' sorted descending as Date (M/d/yyyy)\nColumn 'price' sorted ascending as Numeric");
    EXPECT_EQ(rows(dataset), (QStringList{"b|2/1/2024|5", "d|2/1/2024|5", "c|2/1/2024|40", "a|1/1/2024|10"}));
}

TEST(RowSort, LooksAtASampleOnly)
{
    Dataset dataset = column(QStringList());
    for (int i = 0; i < 100; ++i) {
        dataset.appendRow({QString::number(100 - i)});
    }
    dataset.appendRow({"x"});
    EXPECT_EQ(Sorting().apply(dataset), "Column 'Value' sorted ascending as Numeric");
    EXPECT_EQ(dataset.value(RowIndex(1), ColumnIndex(0)), "2");
}

TEST(RowSort, LeavesATableWithoutRowsAlone)
{
    Dataset dataset = column(QStringList());
    EXPECT_EQ(Sorting().apply(dataset), QString());
    EXPECT_EQ(dataset.rowCount(), 0);
    dataset = column(QStringList{"b", "a"});
    EXPECT_EQ(Sorting{{}}.apply(dataset), QString());
    EXPECT_EQ(rows(dataset), (QStringList{"b", "a"}));
}

// Ranks

TEST(RowSort, Ranks)
{
    const struct
    {
        const char *what;
        RowRanks::Type type;
        QStringList cells;
        QStringList ranks;
    } cases[] = {
        {"minimum", RowRanks::Minimum, {"5", "7", "5"}, {"1", "1", "3"}},
        {"average", RowRanks::Average, {"5", "7", "5"}, {"1.5", "1.5", "3"}},
        {"maximum", RowRanks::Maximum, {"5", "7", "5"}, {"2", "2", "3"}},
        {"dense", RowRanks::Dense, {"5", "7", "5"}, {"1", "1", "2"}},
        {"cumulative", RowRanks::Cumulative, {"5", "7", "5"}, {"0.666666666666667", "0.666666666666667", "1"}},
        {"cumulative fractions add up", RowRanks::Cumulative, {"1", "2", "3"},
            {"0.333333333333333", "0.666666666666667", "1"}},
        {"average in the middle", RowRanks::Average, {"1", "2", "2", "3"}, {"1", "2.5", "2.5", "4"}},
        {"numbers are the same by value", RowRanks::Dense, {"1", "1.0", "$1", "2"}, {"1", "1", "1", "2"}},
        {"long whole numbers are the same digit by digit", RowRanks::Dense,
            {"9007199254740993", "9007199254740992", "9007199254740992.0"}, {"1", "1", "2"}},
        {"empty cells are the same", RowRanks::Dense, {"", "", "4"}, {"1", "1", "2"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        Dataset dataset = column(c.cells);
        dataset.appendEmptyColumn();
        Sorting sorting;
        sorting.addRank = true;
        sorting.rankType = c.type;
        sorting.apply(dataset);
        EXPECT_EQ(dataset.columnValues(ColumnIndex(1)), c.ranks);
    }
}

TEST(RowSort, RanksTextsByTheirExactForm)
{
    Dataset dataset = column(QStringList{"a", "A", "a"});
    dataset.appendEmptyColumn();
    Sorting sorting = ignoringCase();
    sorting.addRank = true;
    sorting.apply(dataset);
    EXPECT_EQ(rows(dataset), (QStringList{"a|1", "A|2", "a|3"})) << "only neighbours share a rank";
}

TEST(RowSort, RanksGroupsOnTheirOwn)
{
    Dataset dataset = grid({"team|score|Rank", "x|3|", "y|5|", "x|9|", "y|5|", "y|1|"});
    Sorting sorting{{-2}};
    sorting.addRank = true;
    sorting.rankBy = 1;
    sorting.apply(dataset);
    EXPECT_EQ(rows(dataset), (QStringList{"x|9|1", "y|5|1", "y|5|1", "x|3|2", "y|1|3"}));
}

// Against the definition

/// Whether one row comes strictly before another, pair by pair as defined.
class PlainOrder
{
public:
    PlainOrder(const Dataset &dataset, const Sorting &sorting)
        : m_dataset(dataset)
        , m_sorting(sorting)
    {
        m_collator.setLocale(QLocale());
        m_collator.setCaseSensitivity(sorting.caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
        for (const int number : sorting.columns) {
            QString format;
            const ColumnIndex column(std::abs(number) - 1);
            const bool isDate = sorting.byValue && dataset.isColumnDate(column, formats, &format);
            m_formats.append(isDate ? format : QString());
            m_numeric.append(sorting.byValue && !isDate && dataset.isColumnNumeric(column, true, 100));
        }
    }

    bool comesBefore(int a, int b) const
    {
        for (int i = 0; i < m_sorting.columns.size(); ++i) {
            const ColumnIndex column(std::abs(m_sorting.columns.at(i)) - 1);
            const int order = compare(i, m_dataset.value(RowIndex(a), column), m_dataset.value(RowIndex(b), column));
            if (order != 0) {
                return m_sorting.columns.at(i) > 0 ? order < 0 : order > 0;
            }
        }
        return false;
    }

private:
    int compare(int key, const QString &a, const QString &b) const
    {
        bool isDate = false;
        bool isNumber = false;
        QDate dateA, dateB;
        double numberA = 0, numberB = 0;
        classifyPairCached(a, b, m_formats.at(key), m_formats.at(key), isDate, dateA, dateB, m_numeric.at(key),
            isNumber, numberA, numberB);
        if (isDate) {
            return (dateA > dateB) - (dateA < dateB);
        }
        if (isNumber) {
            return (numberA > numberB) - (numberA < numberB);
        }
        return m_sorting.localeAware
                   ? m_collator.compare(a, b)
                   : QString::compare(a, b, m_sorting.caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
    }

    const Dataset &m_dataset;
    const Sorting m_sorting;
    QCollator m_collator;
    QStringList m_formats;
    QList<bool> m_numeric;
};

/// Random tables whose last column is the row's number.
class RandomTable
{
public:
    explicit RandomTable(quint32 seed)
        : m_random(seed)
    {
    }

    Dataset make(int rowCount, bool mixed)
    {
        Dataset dataset = grid({"number|date|text|word|row"});
        for (int row = 0; row < rowCount; ++row) {
            const bool stray = mixed && row > 100 && m_random.chance(30);
            dataset.appendRow(
                {stray ? word() : number(), stray ? word() : date(), m_random.text(20), word(), QString::number(row)});
        }
        return dataset;
    }
    int below(int limit) { return m_random.below(limit); }

private:
    QString number()
    {
        static const QStringList forms{"%1", "%1.0", "-%1", "$%1", " %1", "%1e2", "0%1"};
        return m_random.chance(10) ? QString() : forms.at(below(forms.size())).arg(below(30));
    }
    QString date()
    {
        return m_random.chance(10) ? QString() : QStringLiteral("%1/%2/2023").arg(1 + below(12)).arg(1 + below(28));
    }
    QString word()
    {
        static const QStringList words{"apple", "Apple", "APPLE", "äpfel", "zebra", "nan", "inf", "  ", "7 apples",
            "\U0001F600x", "\U00010400", "\U00010428", "\uFB01", "K", "K", "k", "ß", "ss", QString(QChar(0xDC00)),
            QString::fromLatin1("a\0b", 3), "a", "applepie and more", "applepie and less"};
        return words.at(below(words.size()));
    }
    RandomText m_random;
};

void expectSorted(const Dataset &before, const Dataset &after, const Sorting &sorting)
{
    const ColumnIndex rowColumn = before.lastColumn();
    QVector<int> order;
    for (const QString &row : after.columnValues(rowColumn)) {
        order.append(row.toInt());
    }
    QVector<int> all = order;
    std::sort(all.begin(), all.end());
    ASSERT_EQ(all.size(), before.rowCount());
    for (int i = 0; i < all.size(); ++i) {
        ASSERT_EQ(all.at(i), i) << "a row is lost";
        ASSERT_EQ(after.row(RowIndex(i)), before.row(RowIndex(order.at(i)))) << "a row is torn apart";
    }
    const PlainOrder plain(before, sorting);
    for (int i = 1; i < order.size(); ++i) {
        const int a = order.at(i - 1);
        const int b = order.at(i);
        ASSERT_FALSE(plain.comesBefore(b, a)) << "rows " << a << " and " << b;
        ASSERT_TRUE(a < b || plain.comesBefore(a, b)) << "equal rows " << a << " and " << b << " are swapped";
    }
}

TEST(RowSort, AgreesWithThePairwiseOrder)
{
    const QList<QList<int>> keys{{1}, {-2}, {3}, {-4}, {-2, 1, 4}, {4, 3}, {-4, -1}, {1, -3}};
    for (const char *locale : {"en_US", "sv_SE", "C"}) {
        const ScopedLocale scoped(QString::fromLatin1(locale));
        RandomTable tables(5);
        for (const int rowCount : {1, 2, 17, 300, 6000}) {
            const Dataset before = tables.make(rowCount, false);
            for (int variant = 0; variant < 16; ++variant) {
                const Sorting sorting{keys.at(variant % 8), (variant & 4) != 0, tables.below(2) == 0, variant < 14};
                SCOPED_TRACE(testing::Message() << locale << ' ' << rowCount << " rows, variant " << variant);
                Dataset after = before;
                sorting.apply(after);
                expectSorted(before, after, sorting);
            }
        }
    }
}

TEST(RowSort, EndsOnOrdersWithCycles)
{
    // "10" is behind "9" as a number, "9" behind "1x" as a text, and "1x" behind "10".
    Dataset cycle = column(QStringList());
    for (int i = 0; i < 100; ++i) {
        cycle.appendRow({QString::number(i)});
    }
    for (int i = 0; i < 30; ++i) {
        cycle.appendRow({"1x"});
    }
    EXPECT_EQ(Sorting().apply(cycle), "Column 'Value' sorted ascending as Numeric");
    EXPECT_EQ(cycle.rowCount(), 130);

    RandomTable tables(6);
    for (const int rowCount : {150, 1000, 5000}) {
        const Dataset before = tables.make(rowCount, true);
        for (const QList<int> &columns : {QList<int>{1}, {-2}, {1, 2}, {4, -1}}) {
            const Sorting sorting{columns, tables.below(2) == 0, tables.below(2) == 0};
            Dataset after = before;
            sorting.apply(after);
            expectSorted(before, after, sorting);
        }
    }
}

TEST(RowSort, TakesLongTexts)
{
    Dataset dataset = column(QStringList());
    QStringList expected;
    for (int i = 0; i < 60; ++i) {
        expected.append(QString(40000 + i, 'x') + QChar('a' + i % 26));
    }
    std::sort(expected.begin(), expected.end());
    for (int i = 0; i < 60; ++i) {
        dataset.appendRow({expected.at((i * 7) % 60)});
    }
    Sorting().apply(dataset);
    EXPECT_TRUE(dataset.columnValues(ColumnIndex(0)) == expected);
}

} // namespace
