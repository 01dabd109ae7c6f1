#include "inputs/delimitedreader.h"

#include "data/dataset.h"
#include "files/delimiters.h"
#include "inputs/referencereader.h"
#include "inputs/textsource.h"
#include "support/grid.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

struct Reading
{
    Dataset dataset;
    QStringList infos;
    QStringList warnings;
    qint64 firstBrokenRow = 0;
};

Reading readBytes(
    const QByteArray &bytes, const DelimitedOptions &options, int blockSize, const QString &encoding = "Automatic")
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    TextSource source(&buffer, encoding);
    DelimitedReader reader(options, &source);
    reader.setBlockSize(blockSize);
    Reading reading;
    reader.read(&reading.dataset);
    reading.infos = reader.infos();
    reading.warnings = reader.warnings();
    reading.firstBrokenRow = reader.firstBrokenRow();
    return reading;
}

/// Plain reading: comma, quoted, nothing cleaned or left out.
DelimitedOptions plainOptions()
{
    DelimitedOptions options;
    options.delimiter = DelimiterKind::Comma;
    options.quoting = InputQuoting::Quoted;
    options.rows = {false, false, false, 0};
    return options;
}

DelimitedOptions with(int quoting, bool ignoreRepeated)
{
    DelimitedOptions options = plainOptions();
    options.quoting = quoting;
    options.ignoreRepeatedDelimiter = ignoreRepeated;
    return options;
}

DelimitedOptions withRows(const RowRules &rules)
{
    DelimitedOptions options = plainOptions();
    options.rows = rules;
    return options;
}

DelimitedOptions withCustom(QChar delimiter)
{
    DelimitedOptions options = plainOptions();
    options.delimiter = DelimiterKind::Custom;
    options.customDelimiter = delimiter;
    return options;
}

struct RowsCase
{
    const char *what;
    DelimitedOptions options;
    QByteArray bytes;
    QStringList rows; // '|' between cells, "\\n" and "\\r" shown as such
};

QStringList shownRows(const Dataset &dataset)
{
    return rows(dataset).replaceInStrings("\n", "\\n").replaceInStrings("\r", "\\r");
}

void expectRows(const RowsCase &c)
{
    SCOPED_TRACE(c.what);
    for (int blockSize : {1, 2, 3, 7, 1000}) {
        EXPECT_EQ(shownRows(readBytes(c.bytes, c.options, blockSize).dataset), c.rows) << "blocks of " << blockSize;
    }
}

} // namespace

TEST(DelimitedReader, PartsRowsAndCells)
{
    const DelimitedOptions quoted = with(InputQuoting::Quoted, false);
    const DelimitedOptions unquoted = with(InputQuoting::Unquoted, false);
    const RowsCase cases[] = {
        {"nothing gives nothing", quoted, "", {}},
        {"each kind of line end ends a row", quoted, "a,b\nc,d\r\ne,f\rg,h", {"a|b", "c|d", "e|f", "g|h"}},
        {"without quotes as well", unquoted, "a,b\nc,d\r\ne,f\rg,h", {"a|b", "c|d", "e|f", "g|h"}},
        {"a line end at the end adds no row", quoted, "a\r\n", {"a"}},
        {"nor does a lone return", unquoted, "a\r", {"a"}},
        {"an empty line is a row of one empty value", quoted, "a,b\n\nc,d\n", {"a|b", "|", "c|d"}},
        {"a return before a line end makes an empty row", unquoted, "a\r\r\nb", {"a", "", "b"}},
        {"an empty last field of the file isn't there", quoted, "a,b\nc,", {"a|b", "c|"}},
        {"not even in quotes", quoted, "a,\"\"", {"a"}},
        {"without quotes it is", unquoted, "a,", {"a|"}},
        {"quotes hold delimiters and line ends", quoted, "\"a,b\",\"c\r\nd\",\"e\rf\ng\"\n",
            {"a,b|c\\r\\nd|e\\rf\\ng"}},
        {"a doubled quote is one", quoted, "\"say \"\"hi\"\"\",x\n", {"say \"hi\"|x"}},
        {"two doubled quotes alone are one quote", quoted, "\"\"\"\"\n", {"\""}},
        {"a quote inside a plain field is a character", quoted, "5\" disk,a\"b\"\n", {"5\" disk|a\"b\""}},
        {"a character behind the closing quote goes on inside", quoted, "\"ab\"c\",d\n", {"abc|d"}},
        {"so does a delimiter behind that", quoted, "\"ab\"c,d\",e\n", {"abc,d|e"}},
        {"a closing quote before each line end", quoted, "\"a\"\n\"b\"\r\n\"c\"\r\"d\"", {"a", "b", "c", "d"}},
        {"a quote never closed takes the rest", quoted, "a,\"b\nc,d\n", {"a|b\\nc,d\\n"}},
        {"an opening quote alone is nothing", quoted, "a\n\"", {"a"}},
        {"without quoting, quotes are characters", unquoted, "\"a,b\"\n", {"\"a|b\""}},
        {"an empty quoted field is an empty field", quoted, "\"\",a\n", {"|a"}},
        {"narrow rows are padded, earlier ones too", quoted, "a\nb,c,d\ne,f\n", {"a||", "b|c|d", "e|f|"}},
        {"repeated delimiters count", quoted, "a,,b\n", {"a||b"}},
        {"unless ignored", with(InputQuoting::Quoted, true), "a,,,b\n", {"a|b"}},
        {"then with quotes, leading ones go too", with(InputQuoting::Quoted, true), ",,a,\"\",b,\n", {"a|b|"}},
        {"and without quotes one of each run stays", with(InputQuoting::Unquoted, true), ",,a,,b,,\n", {"|a|b|"}},
        {"a delimiter of two bytes", withCustom(QChar(0xA7)), "a\u00A7\"b\u00A7c\"\u00A7\u00A6d\n",
            {"a|b\u00A7c|\u00A6d"}},
        {"a delimiter of three bytes", withCustom(QChar(0x2192)), "a\u2192b\u2193c\u2192", {"a|b\u2193c"}},
        {"a null character as delimiter", withCustom(QChar()), QByteArray("a\0b\n", 4), {"a|b"}},
        {"a quote as delimiter", withCustom('"'), "a\"b\"\"c\n", {"a|b||c"}},
        {"a line feed as delimiter leaves returns to end rows", withCustom('\n'), "a\nb\r\nc\rd", {"a|b|c", "d||"}},
    };
    for (const RowsCase &c : cases) {
        expectRows(c);
    }
}

TEST(DelimitedReader, CleansAndLeavesOut)
{
    const RowRules trim{true, false, false, 0};
    const RowRules simplify{false, true, false, 0};
    const RowRules both{true, true, true, 0};
    const RowRules noEmptyRows{false, false, true, 0};
    const RowsCase cases[] = {
        {"trimming", withRows(trim), " a ,\tb\t,\" c \"\n", {"a|b|c"}},
        {"trimming whitespace of every kind", withRows(trim), "\u00A0a\u3000,\u0085\u2003b\u2028,\u1680c\u205F\n",
            {"a|b|c"}},
        {"other characters of the same first bytes stay", withRows(trim), "\u00A1a\u3001,\u180Eb\u200B\n",
            {"\u00A1a\u3001|\u180Eb\u200B"}},
        {"line breaks inside quotes are trimmed", withRows(trim), "\"\r\na\n\",b\n", {"a|b"}},
        {"control whitespace becomes a blank, returns go", withRows(simplify), "\"a\r\nb\tc\",d\u00A0e\vf\n",
            {"a b c|d e f"}},
        {"quotes inside and whitespace together", withRows(both), "\" a\n\"\"b\"\" \",\"\tc\"\n", {"a \"b\"|c"}},
        {"a row of empty values is dropped", withRows(noEmptyRows), "a,b\n,\n\n\"\",\nc,d\n", {"a|b", "c|d"}},
        {"a row of blanks isn't empty", withRows(noEmptyRows), "a\n \nb\n", {"a", " ", "b"}},
        {"unless blanks are trimmed, also from between quotes", withRows(both), "a\n \n\u3000\n\"\" \"\nb\n",
            {"a", "b"}},
        {"a dropped wide row doesn't widen the table", withRows(noEmptyRows), "a\n,,,\n", {"a"}},
        {"ignored rows count empty ones", withRows({true, true, true, 2}), "x\n\na\nb\n", {"a", "b"}},
        {"ignored rows don't widen the table", withRows({true, true, true, 1}), "x,y,z\na\n", {"a"}},
        {"more ignored rows than rows", withRows({true, true, true, 9}), "a\nb", {}},
        {"with a whitespace delimiter, that inside quotes is whitespace too",
            [] {
                DelimitedOptions options = withRows({false, true, false, 0});
                options.delimiter = DelimiterKind::Tab;
                return options;
            }(),
            "a\t\"b\tc\"\n", {"a|b c"}},
    };
    for (const RowsCase &c : cases) {
        expectRows(c);
    }
}

TEST(DelimitedReader, ReportsWhatItGuessedAndFound)
{
    struct ReportCase
    {
        const char *what;
        DelimitedOptions options;
        QByteArray bytes;
        QStringList infos;
        QStringList warnings;
    };
    DelimitedOptions automaticQuoting = plainOptions();
    automaticQuoting.quoting = InputQuoting::Automatic;
    DelimitedOptions tabs = automaticQuoting;
    tabs.delimiter = DelimiterKind::Tab;
    const QString varies = "Number of columns per row vary:";
    const ReportCase cases[] = {
        {"nothing to tell", plainOptions(), "a,b\nc,d\n", {}, {}},
        {"a guess of quoting", automaticQuoting, "a\n",
            {"Quoting=Automatic guesses 'Quoted', set 'Quoting' option to change"}, {}},
        {"tabs come without quotes", tabs, "a\n",
            {"Quoting=Automatic guesses 'Unquoted', set 'Quoting' option to change"}, {}},
        {"empty rows dropped are counted, and count as rows of one value", withRows({true, true, true, 0}),
            "a,b\n\n \nc,d\n", {"2 empty row(s) ignored"},
            {varies, "2 input rows have 1 value: E.g. input row 2", "2 input rows have 2 values: E.g. input row 1"}},
        {"widths in ascending order, one row and more", plainOptions(), "a,b,c\n1,2,3\n1,2,3,4,5\n1\n", {},
            {varies, "1 input row has 1 value: E.g. input row 4", "2 input rows have 3 values: E.g. input row 1",
                "1 input row has 5 values: E.g. input row 3"}},
        {"row numbers count ignored rows, whose widths don't", withRows({true, true, true, 2}), "x\nx\na,b\nc\n", {},
            {varies, "1 input row has 1 value: E.g. input row 4", "1 input row has 2 values: E.g. input row 3"}},
        {"a quote that closes inside a value", plainOptions(), "a\n\"b\" ,c\n\"d\",e\n", {},
            {"Quote closed inside a value 1 time, so rows behind it may be part of it: E.g. input row 2", varies,
                "1 input row has 1 value: E.g. input row 1", "1 input row has 2 values: E.g. input row 2"}},
        {"several of them, each value counts once", plainOptions(), "\"a\"x\"y\",\"b\"c\"\n\"d\"e\",f\n", {},
            {"Quote closed inside a value 3 times, so rows behind it may be part of it: E.g. input row 1"}},
        {"in a row that is ignored nothing is lost", withRows({true, true, true, 1}), "\"a\"x\"\nb\n", {}, {}},
        {"large counts are grouped", plainOptions(), QByteArray("a\n").repeated(1200) + "b,c", {},
            {varies, "1,200 input rows have 1 value: E.g. input row 1",
                "1 input row has 2 values: E.g. input row 1,201"}},
    };
    for (const ReportCase &c : cases) {
        SCOPED_TRACE(c.what);
        const Reading reading = readBytes(c.bytes, c.options, 5);
        EXPECT_EQ(reading.infos, c.infos);
        EXPECT_EQ(reading.warnings, c.warnings);
    }
}

TEST(DelimitedReader, KnowsTheRowOfTheFirstBytesThatCannotBeRead)
{
    const struct
    {
        const char *what;
        DelimitedOptions options;
        QByteArray bytes;
        qint64 row;
    } cases[] = {
        {"none", plainOptions(), "a\n\xEF\xBF\xBD\n", 0},
        {"the first row", plainOptions(), "\xFF\n", 1},
        {"behind each kind of line end", plainOptions(), "a\nb\r\nc\r\xFF", 4},
        {"after a replacement character that stands in the file", plainOptions(), "\xEF\xBF\xBD\n\xC3\xA9,\xFF\n", 2},
        {"in a value with line ends", plainOptions(), "a\n\"b\n\xFF\n\"\n", 2},
        {"rows that were ignored and dropped count", withRows({true, true, true, 1}), "x\n\n\nb,\xE9\n", 4},
        {"also where it is among them", withRows({true, true, true, 3}), "x\n\xE9\n\nb\n", 2},
        {"a character that the end of the file cuts off", plainOptions(), "a\n\xE2\x82", 2},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        for (int blockSize : {1, 2, 3, 7, 1000}) {
            EXPECT_EQ(readBytes(c.bytes, c.options, blockSize).firstBrokenRow, c.row) << "blocks of " << blockSize;
        }
    }
}

TEST(DelimitedReader, GuessesTheDelimiter)
{
    struct GuessCase
    {
        const char *what;
        QByteArray bytes;
        QString label;
        QString counts; // comma, semi-colon, pipe, caret, tab, unit separator
        QString sample;
    };
    const QByteArray filler(4000, 'x');
    const GuessCase cases[] = {
        {"semi-colons", "a;b;c\n1,2;3;4\n", "Semi-colon (;)", "1 4 0 0 0 0", "14"},
        {"equal counts go to the first in the list", "a,b;c\n", "Comma (,)", "1 1 0 0 0 0", "6"},
        {"none at all is comma", "a:b c\n", "Comma (,)", "0 0 0 0 0 0", "6"},
        {"an empty file", "", "Comma (,)", "0 0 0 0 0 0", "0"},
        {"tabs", "a\tb\n", "Tab (\\t)", "0 0 0 0 1 0", "4"},
        {"unit separators",
            "a\x1F"
            "b\n",
            "Unit separator (0x1F)", "0 0 0 0 0 1", "4"},
        {"a byte order mark is no character",
            "\xEF\xBB\xBF"
            "a|^|b",
            "Pipe (|)", "0 0 2 1 0 0", "5"},
        {"delimiters inside quotes count", "\"a,b,c\";d\n", "Comma (,)", "2 1 0 0 0 0", "10"},
        {"what comes behind the sample doesn't", filler + QByteArray("\u00E9").repeated(95) + ";" + ",,,",
            "Semi-colon (;)", "0 1 0 0 0 0", "4,096"},
        {"characters beyond the basic plane count twice", filler + QByteArray("\U0001F600").repeated(47) + ";|" + ",,,",
            "Semi-colon (;)", "0 1 1 0 0 0", "4,096"},
    };
    const char *const labels[] = {
        "Comma (,)", "Semi-colon (;)", "Pipe (|)", "Caret (^)", "Tab (\\t)", "Unit separator (0x1F)"};
    for (const GuessCase &c : cases) {
        SCOPED_TRACE(c.what);
        QStringList counts = c.counts.split(' ');
        for (int i = 0; i < counts.size(); ++i) {
            counts[i] += QString(" ") + labels[i];
        }
        DelimitedOptions options = plainOptions();
        options.delimiter = DelimiterKind::Automatic;
        const QStringList infos = readBytes(c.bytes, options, 5).infos;
        ASSERT_EQ(infos.size(), 1);
        EXPECT_EQ(infos.first(), "Delimiter=Automatic guesses '" + c.label + "', set 'Delimiter' option to changeFirst "
                                     + c.sample + " characters contain: " + counts.join(", "));
    }
}

TEST(DelimitedReader, ReportsProgressUpToTheEnd)
{
    QBuffer buffer;
    buffer.setData(QByteArray("a,b\n").repeated(1000));
    buffer.open(QIODevice::ReadOnly);
    TextSource source(&buffer, "Automatic");
    DelimitedReader reader(plainOptions(), &source);
    reader.setBlockSize(400);
    QList<double> shares;
    reader.setProgress([&shares](double share) { shares.append(share); });
    Dataset dataset;
    reader.read(&dataset);
    ASSERT_GE(shares.size(), 5);
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_LT(shares.first(), 0.2);
    EXPECT_EQ(shares.last(), 1.0);
}

namespace {

/// Gives its bytes once, and nobody knows how many there are.
class Pipe : public QIODevice
{
public:
    explicit Pipe(const QByteArray &bytes)
        : m_rest(bytes)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        const int size = int(qMin<qint64>(maxSize, m_rest.size()));
        std::memcpy(data, m_rest.constData(), size_t(size));
        m_rest.remove(0, size);
        return size;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray m_rest;
};

} // namespace

TEST(DelimitedReader, ReportsProgressOfASourceOfUnknownSize)
{
    Pipe pipe(QByteArray("a,b\n").repeated(1000));
    TextSource source(&pipe, "Automatic");
    DelimitedReader reader(plainOptions(), &source);
    reader.setBlockSize(400);
    int reports = 0;
    reader.setProgress([&reports](double share) { reports += share == 0.0; });
    Dataset dataset;
    reader.read(&dataset);
    EXPECT_EQ(dataset.rowCount(), 1000);
    EXPECT_GE(reports, 5);
}

namespace {

const char *const alphabet[] = {",", ",", ",", "\"", "\"", "\"\"", "\r", "\n", "\r\n", "a", "b", "word", " ", "\t",
    "a longer text of many letters", "\u00E9", "\u00A0", "\u0085", "\u3000", "\u2028", "\u20AC", "\U0001F600", "\xFF",
    ";", "\u00A7", "\v", "\xE2\x82"};

QByteArray randomBytes(QRandomGenerator &random)
{
    QByteArray bytes("x");
    const int kinds = 3 + random.bounded(int(std::size(alphabet)) - 3);
    const int offset = random.bounded(int(std::size(alphabet)));
    for (int length = random.bounded(120); length > 0; --length) {
        bytes += alphabet[(offset + random.bounded(kinds)) % int(std::size(alphabet))];
    }
    return bytes;
}

} // namespace

TEST(DelimitedReader, AgreesWithAPlainReaderOnRandomText)
{
    QRandomGenerator random(52);
    for (int i = 0; i < 4000; ++i) {
        const QByteArray bytes = randomBytes(random);
        const QChar delimiter = QString::fromUtf8(",,,;\u00A7\u3000\t\n\r\"").at(random.bounded(10));
        DelimitedOptions options = withCustom(delimiter);
        const bool lineEnd = delimiter == '\n' || delimiter == '\r';
        options.quoting = random.bounded(2) || lineEnd ? InputQuoting::Quoted : InputQuoting::Unquoted;
        options.ignoreRepeatedDelimiter = random.bounded(2);
        options.rows = {random.bounded(2) > 0, random.bounded(2) > 0, random.bounded(2) > 0, random.bounded(3)};
        const int blockSize = 1 + random.bounded(100);
        const QString encoding = random.bounded(4) ? "Automatic" : "ISO-8859-1";
        const ReferenceReading expected = referenceReading(bytes, encoding, delimiter, options);
        const Reading reading = readBytes(bytes, options, blockSize, encoding);
        const QString trace = QString("text %1, delimiter U+%2, quoting %3, repeated %4, trim %5, simplify %6, "
                                      "empty %7, ignored %8, blocks of %9")
                                  .arg(QString::fromLatin1(bytes.toPercentEncoding()))
                                  .arg(delimiter.unicode(), 4, 16)
                                  .arg(options.quoting)
                                  .arg(options.ignoreRepeatedDelimiter)
                                  .arg(options.rows.trim)
                                  .arg(options.rows.simplify)
                                  .arg(options.rows.ignoreEmptyRows)
                                  .arg(options.rows.ignoredRows)
                                  .arg(blockSize);
        SCOPED_TRACE(trace.toStdString());
        QList<QStringList> rows;
        for (int row = 0; row < reading.dataset.rowCount(); ++row) {
            rows.append(reading.dataset.row(RowIndex(row)));
        }
        ASSERT_EQ(rows, expected.rows);
        ASSERT_EQ(
            reading.infos.join(' ').section(' ', 0, 0), expected.emptyRows ? QString::number(expected.emptyRows) : "");
        ASSERT_EQ(reading.firstBrokenRow, expected.firstBrokenRow);
        QStringList warnings = reading.warnings;
        if (expected.strayQuotes > 0) {
            const QStringList words = warnings.takeFirst().split(' ');
            ASSERT_EQ(words.at(5) + " @ " + words.last(),
                QString("%1 @ %2").arg(expected.strayQuotes).arg(expected.firstStrayRow));
        }
        const int lines = expected.ragged.size() > 1 ? expected.ragged.size() + 1 : 0;
        ASSERT_EQ(warnings.size(), lines);
        for (int line = 1; line < lines; ++line) {
            const QStringList words = warnings.at(line).split(' ');
            ASSERT_EQ(words.at(4) + " x " + words.first() + " @ " + words.last(), expected.ragged.at(line - 1));
        }
    }
}
