#include "inputs/fixedwidthguess.h"
#include "inputs/fixedwidthreader.h"
#include "inputs/textsource.h"
#include "support/grid.h"
#include "support/randomtext.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>

namespace {

QStringList repeated(const QString &line, int count)
{
    QStringList lines;
    std::fill_n(std::back_inserter(lines), count, line);
    return lines;
}

/// The guess as it is told to a person: character by character, with a flag for each position.
QList<int> plainGuess(const QStringList &input)
{
    QStringList lines;
    for (const QString &line : input) {
        if (!line.trimmed().isEmpty()) {
            lines.append(line);
        }
    }
    if (lines.size() > 20) {
        lines = lines.mid(0, qMin(int(0.9 * input.size()), 200));
    }
    int width = 0;
    for (const QString &line : lines) {
        width = qMax(width, line.size());
    }
    const int size = lines.size() <= 10 ? 2 : lines.size() <= 50 ? 5 : 10;
    QList<QList<int>> groups;
    for (int first = 0; first < lines.size() && (first + size <= lines.size() || first == 0); first += size) {
        QVector<bool> blank(width, true);
        for (const QString &line : lines.mid(first, size)) {
            for (int i = 0; i < line.size(); ++i) {
                blank[i] = blank[i] && (line[i] == ' ' || line[i] == '\t');
            }
        }
        QList<int> starts;
        for (int i = 0; i < width; ++i) {
            if (!blank[i] && (i == 0 || blank[i - 1])) {
                starts.append(starts.isEmpty() ? 0 : i);
            }
        }
        groups.append(starts);
    }
    std::map<int, int> counts;
    for (const QList<int> &starts : groups) {
        ++counts[starts.size()];
    }
    int best = 0;
    for (const auto &count : counts) {
        best = qMax(best, count.second);
    }
    QList<int> chosen;
    int most = 0;
    for (const QList<int> &starts : groups) {
        const int same = groups.count(starts);
        const bool first = std::lexicographical_compare(starts.begin(), starts.end(), chosen.begin(), chosen.end());
        if (counts[starts.size()] == best && (same > most || (same == most && first))) {
            most = same;
            chosen = starts;
        }
    }
    QList<int> widths;
    for (int i = 0; i < chosen.size(); ++i) {
        widths.append(chosen.value(i + 1, width) - chosen[i]);
    }
    return widths;
}

struct Reading
{
    QStringList rows;
    QList<int> widths;
    QStringList sample;
    QStringList infos;
};

Reading read(const QString &text, const FixedWidthOptions &options, int blockSize = BlockReader::usualBlockSize)
{
    TextSource source(text);
    FixedWidthReader reader(options, &source);
    reader.setBlockSize(blockSize);
    Dataset dataset;
    reader.read(&dataset);
    return {rows(dataset), reader.widths(), reader.sample(), reader.infos()};
}

FixedWidthOptions manual(const QList<int> &widths, const RowRules &rules = RowRules())
{
    return {false, widths, rules};
}

} // namespace

TEST(FixedWidthGuess, FindsWhatMostGroupsAgreeOn)
{
    struct GuessCase
    {
        const char *what;
        QStringList lines;
        QList<int> widths;
    };
    const GuessCase cases[] = {
        {"no lines have no columns", {}, {}},
        {"nor have blank ones", {"", "  \t", "\u00A0"}, {}},
        {"one line decides alone", {"ab  cd e"}, {4, 3, 1}},
        {"one blank column in all lines parts", {"ab cd", "a  cd", "ab c "}, {3, 2}},
        {"values that fill the gap in one group of two of three don't matter",
            {"abxcd", "ab cd", "a  cd", "ab c", "ab c", "ab c"}, {3, 2}},
        {"the margin belongs to the first column", {"   ab cd", "   ab cd"}, {6, 2}},
        {"a tab is blank", {"ab\tcd", "ab\tcd"}, {3, 2}},
        {"another space isn't", {"ab\u00A0cd", "ab\u00A0cd"}, {5}},
        {"positions are those of units", {"\U0001F600\U0001F600 x", "abcd y"}, {5, 1}},
        {"11 lines are two groups of five", repeated("ab cd", 10) + QStringList("abcdefghijk"), {3, 8}},
        {"a footer of 100 lines doesn't count", repeated("ab cd", 90) + repeated("xxxxxxxxxx", 10), {3, 2}},
        {"of 500 lines the first 200 count", repeated("ab cd", 200) + repeated("xxxxxxxxxx", 300), {3, 2}},
        {"of 20 lines all count", repeated("ab cd", 15) + repeated("x x x x x x", 5), {3, 8}},
        {"of two columnings as frequent the one that starts first", {"a  b", "a  b", "a b", "a b"}, {2, 2}},
    };
    for (const GuessCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(guessFixedWidths(c.lines), c.widths);
    }
}

TEST(FixedWidthGuess, AgreesWithThePlainWay)
{
    RandomText random(7);
    for (int round = 0; round < 400; ++round) {
        QStringList lines;
        const QList<int> gaps{1 + random.below(70), 5 + random.below(70)};
        for (int i = random.below(round % 10 == 0 ? 400 : 60); i > 0; --i) {
            QString line = random.chance(10) ? QString() : random.text(140);
            for (int gap : gaps) {
                if (gap < line.size() && random.chance(97)) {
                    line[gap] = random.chance(50) ? ' ' : '\t';
                }
            }
            // Half a character is another text once it is stored.
            lines.append(QString::fromUtf8(line.toUtf8()));
        }
        ASSERT_EQ(guessFixedWidths(lines), plainGuess(lines)) << "round " << round;
    }
}

TEST(FixedWidthReader, CutsLinesIntoCells)
{
    RowRules raw{false, false, false, 0};
    RowRules skipping;
    skipping.ignoredRows = 2;
    struct CutCase
    {
        const char *what;
        QString text;
        FixedWidthOptions options;
        QStringList rows;
        QStringList infos;
    };
    const CutCase cases[] = {
        {"cells are cut by position and trimmed", "ab cd \n x  y\n", manual({3, 3}), {"ab|cd", "x|y"}, {}},
        {"as they are without trimming", "ab cd \n\tx\n", manual({3, 3}, raw), {"ab |cd ", "\tx|"}, {}},
        {"a short line has empty cells", "abcdef\nab\n", manual({2, 2, 2}), {"ab|cd|ef", "ab||"}, {}},
        {"what is behind the last column is lost", "abcdef\n", manual({2, 2}), {"ab|cd"}, {}},
        {"a tab counts as one", "a\tbc\n", manual({2, 2}, raw), {"a\t|bc"}, {}},
        {"any line end will do, and none at the end", "a1\r\nb2\rc3\nd4", manual({1, 1}), {"a|1", "b|2", "c|3", "d|4"},
            {}},
        {"empty rows go and are counted", "a1\n\n  \nb2\n", manual({1, 1}), {"a|1", "b|2"}, {"2 empty row(s) ignored"}},
        {"or stay", "a1\n\n", manual({1, 1}, raw), {"a|1", "|"}, {}},
        {"ignored rows are skipped, empty ones too", "a1\n\nb2\nc3\n", manual({1, 1}, skipping), {"b|2", "c|3"}, {}},
        {"positions are those of units, not bytes", "äöü€\n", manual({2, 1, 1}), {"äö|ü|€"}, {}},
        {"a character of two units is cut in half if need be", "\U0001F600x\n", manual({1, 2}),
            {QString(QChar(0xD83D)) + "|" + QChar(0xDE00) + "x"}, {}},
        {"a line after one that was cut so", "\U0001F600x\nabc\n", manual({1, 2}),
            {QString(QChar(0xD83D)) + "|" + QChar(0xDE00) + "x", "a|bc"}, {}},
        {"widths that can't be count as none", "abc\n", manual({-5, 2, 2147483647, 2147483647}), {"|ab|c|"}, {}},
        {"without widths they are found", "ab cd\nxy zz\n", manual({}), {"ab|cd", "xy|zz"},
            {"Columns=Automatic guesses 2 columns, set 'Columns' option to 'Manual' to change"}},
        {"found widths go before given ones", "ab cd\n", {true, {1}, RowRules()}, {"ab|cd"},
            {"Columns=Automatic guesses 2 columns, set 'Columns' option to 'Manual' to change"}},
        {"nothing has no columns", "", FixedWidthOptions(), {},
            {"Columns=Automatic guesses 0 columns, set 'Columns' option to 'Manual' to change"}},
        {"nor have lines without a character", "\n\n", {true, {}, raw}, {},
            {"Columns=Automatic guesses 0 columns, set 'Columns' option to 'Manual' to change"}},
        {"nulls are characters", QString::fromLatin1("a\0b\0\n", 5), manual({2, 2}),
            {QString::fromLatin1("a\0|b\0", 5)}, {}},
    };
    for (const CutCase &c : cases) {
        SCOPED_TRACE(c.what);
        const Reading reading = read(c.text, c.options);
        EXPECT_EQ(reading.rows, c.rows);
        EXPECT_EQ(reading.infos, c.infos);
    }
}

TEST(FixedWidthReader, EmptyLinesHaveNoSayInTheGuessWhereTheyAreIgnored)
{
    // 18 of 21 lines count, which leaves out the footer; 21 of 24 would not.
    const QString text = QString("ab cd\n").repeated(19) + "\n\n\n" + QString("the footer\n").repeated(2);
    const QString blocks = QString("ab cd\n").repeated(19) + " \n \n \n" + QString("the footer\n").repeated(2);
    RowRules keeping;
    keeping.ignoreEmptyRows = false;
    EXPECT_EQ(read(text, FixedWidthOptions()).widths, (QList<int>{3, 2}));
    EXPECT_EQ(read(text, {true, {}, keeping}).widths, (QList<int>{3, 7}));
    EXPECT_EQ(read(blocks, FixedWidthOptions()).widths, (QList<int>{3, 7})) << "lines of blanks aren't empty";
}

TEST(FixedWidthReader, BlocksAreNotSeen)
{
    RandomText random(11);
    for (int round = 0; round < 60; ++round) {
        QString text;
        QStringList lines;
        for (int i = random.below(300); i > 0; --i) {
            lines.append(random.text(30));
            const bool joins = text.endsWith('\r') && lines.last().isEmpty();
            text += lines.last() + (joins || random.chance(30) ? "\r\n" : random.chance(10) ? "\r" : "\n");
        }
        const QList<int> widths{random.below(8), 1 + random.below(8), random.below(8)};
        QStringList expected;
        for (const QString &line : lines) {
            expected.append(line.mid(0, widths[0]) + "|" + line.mid(widths[0], widths[1]) + "|"
                            + line.mid(widths[0] + widths[1], widths[2]));
        }
        const RowRules raw{false, false, false, 0};
        const Reading reading = read(text, manual(widths, raw), 1 + random.below(200));
        ASSERT_EQ(reading.rows, expected) << "round " << round;
        EXPECT_EQ(read(text, FixedWidthOptions(), 1 + random.below(200)).widths, guessFixedWidths(lines));
    }
}

TEST(FixedWidthReader, KeepsASampleOfTheText)
{
    const QStringList lines = repeated(" a b ", 49) + QStringList("");
    EXPECT_EQ(read(lines.join('\n') + '\n', FixedWidthOptions()).sample, lines);
    const QString more = lines.join('\n') + "\nx" + QString(1200, '\n') + "y";
    EXPECT_EQ(read(more, FixedWidthOptions()).sample, lines + QStringList("(+1,201 more rows)"));
}

TEST(FixedWidthReader, HugeLinesAndManyEmptyOnesAreJustText)
{
    const int million = 1000000;
    const Reading empty = read(QString(million, '\n') + "ab cd\n", FixedWidthOptions());
    EXPECT_EQ(empty.rows, QStringList("ab|cd"));
    EXPECT_EQ(empty.infos.last(), "1,000,000 empty row(s) ignored");
    const Reading one = read(QString(20 * million, 'x') + " y", FixedWidthOptions());
    EXPECT_EQ(one.widths, (QList<int>{20 * million + 1, 1}));
    // Two million columns are no table.
    EXPECT_THROW(read(QString("x ").repeated(2 * million), FixedWidthOptions()), std::bad_alloc);
}
