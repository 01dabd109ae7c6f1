#include "hostiletext.h"
#include "outputs/delimitedwriter.h"
#include "outputs/textlayout.h"
#include "support/grid.h"
#include "written.h"

#include "data/dataset.h"

#include <QTextStream>

namespace {

struct Encoded
{
    QString text;
    int replaced = 0;
};

/// The rule of quoting in its plainest form.
void appendLine(Encoded &out, QStringList values, QChar delimiter, CsvEncoder::Quoting quoting)
{
    const QChar replacement = QLatin1Char(delimiter == QLatin1Char(' ') ? '_' : ' ');
    for (QString &value : values) {
        if (quoting == CsvEncoder::Never) {
            const QString before = value;
            value.replace(QLatin1Char('\r'), replacement);
            value.replace(QLatin1Char('\n'), replacement);
            value.replace(delimiter, replacement);
            out.replaced += value != before;
            continue;
        }
        value.replace(QLatin1Char('"'), QLatin1String("\"\""));
        const bool quoted = quoting == CsvEncoder::Always || value.contains(QLatin1Char('"'))
                            || value.contains(delimiter) || value.contains(QLatin1Char('\n'))
                            || value.contains(QLatin1Char('\r'));
        if (quoted) {
            value = QLatin1Char('"') + value + QLatin1Char('"');
        }
    }
    out.text += values.join(delimiter) + QStringLiteral("\r\n");
}

std::string utf8ByStream(const QString &text)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QTextStream stream(&buffer);
    stream.setCodec("UTF-8");
    stream << text;
    stream.flush();
    return buffer.data().toStdString();
}

Dataset randomTable(HostileText &random, int mostRows)
{
    Dataset table;
    const int columns = 1 + random.below(6);
    const int rowCount = random.below(mostRows);
    for (int row = 0; row <= rowCount; ++row) {
        QStringList values;
        for (int column = 0; column < columns; ++column) {
            // Most fit into a cell or a little more; a few are longer than the whole buffer.
            const int kind = random.below(400);
            values.append(kind == 0   ? random.next(40).repeated(TextSink::bufferSize / 20)
                          : kind < 20 ? random.next(60)
                                      : random.next(10));
        }
        table.appendRow(values);
    }
    table.setHasHeader(random.below(2) == 0);
    return table;
}

} // namespace

TEST(DelimitedWriter, WritesEachOptionByteForByte)
{
    struct
    {
        const char *what;
        QStringList lines;
        QChar delimiter;
        CsvEncoder::Quoting quoting;
        bool header;
        const char *lineEnding;
        std::string bytes;
        int replaced;
    } const cases[] = {
        {"only the value with the delimiter is quoted, an empty value stays empty", {"name|age", "Ann|30", "Bob, Jr|"},
            ',', CsvEncoder::AsNeeded, true, "\n", "name,age\nAnn,30\n\"Bob, Jr\",\n", 0},
        {"a quote is doubled and quoted", {"a", "a\"b"}, ',', CsvEncoder::AsNeeded, true, "\n", "a\n\"a\"\"b\"\n", 0},
        {"blanks alone don't cause quotes", {"a|b", " | x "}, ',', CsvEncoder::AsNeeded, true, "\n", "a,b\n , x \n", 0},
        {"line ends are quoted and kept", {"a|b|c", "1\n2|3\r4|5\r\n6"}, ',', CsvEncoder::AsNeeded, false, "\r\n",
            "\"1\n2\",\"3\r4\",\"5\r\n6\"\r\n", 0},
        {"always quotes empty values and names too", {"n|", "|\"x\""}, ',', CsvEncoder::Always, true, "\n",
            "\"n\",\"2\"\n\"\",\"\"\"x\"\"\"\n", 0},
        {"never puts an underscore where the blank is the delimiter", {"x", "a b"}, ' ', CsvEncoder::Never, true, "\n",
            "x\na_b\n", 1},
        {"never counts names too, and each value once", {"a,b", "c,,\r\n"}, ',', CsvEncoder::Never, true, "\n",
            "a b\nc    \n", 2},
        {"never leaves quotes alone", {"a", "say \"x\""}, ',', CsvEncoder::Never, true, "\n", "a\nsay \"x\"\n", 0},
        {"no rows give the header line alone", {"a|b"}, '\t', CsvEncoder::AsNeeded, true, "\r", "a\tb\r", 0},
        {"an odd line ending and a delimiter of two bytes", {"a|b", "1\xC2\xA7|\xC2\xA9"}, QChar(0xA7),
            CsvEncoder::AsNeeded, true, "\x1E",
            "a\xC2\xA7"
            "b\x1E\"1\xC2\xA7\"\xC2\xA7\xC2\xA9\x1E",
            0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        TextLayout layout;
        layout.lineEnding = c.lineEnding;
        layout.writeHeader = c.header;
        int replaced = 0;
        const auto write = [&](TextSink &sink) {
            replaced = DelimitedWriter::write(sink, grid(c.lines), {c.delimiter, c.quoting}, layout);
        };
        EXPECT_EQ(written(write), c.bytes);
        EXPECT_EQ(replaced, c.replaced);
    }
}

TEST(DelimitedWriter, NumbersTheColumnsOfATableWithoutHeader)
{
    const auto write = [](TextSink &sink) {
        DelimitedWriter::write(sink, plainGrid({"x|y|z"}), DelimitedWriter::Format(), TextLayout());
    };
    EXPECT_EQ(written(write), "1,2,3\nx,y,z\n");
}

TEST(DelimitedWriter, AgreesWithThePlainRuleOnRandomTables)
{
    const ushort delimiters[] = {',', '\t', ' ', '"', '_', 0, 3, 0x1F, 0xA7, 0x20AC, 0x6F22};
    for (const ushort code : delimiters) {
        const QChar delimiter(code);
        for (const auto quoting : {CsvEncoder::AsNeeded, CsvEncoder::Always, CsvEncoder::Never}) {
            HostileText random(code + 1000u * quoting, QString(delimiter));
            for (const char *piece : {"\"", "\r", "\n", "\xC2\xA8", "\xE2\x82\xAD"}) {
                random.add(QString::fromUtf8(piece));
            }
            for (int round = 0; round < 25; ++round) {
                SCOPED_TRACE(
                    testing::Message() << "delimiter " << code << " quoting " << quoting << " round " << round);
                // Now and then enough for many edges of the buffer.
                const Dataset table = randomTable(random, code == ',' && round < 3 ? 20000 : 40);
                TextLayout layout;
                layout.lineEnding = "\r\n";
                layout.writeHeader = round % 3 != 0;
                Encoded expected;
                if (layout.writeHeader) {
                    appendLine(expected, table.columnNames(), delimiter, quoting);
                }
                for (int row = 0; row < table.rowCount(); ++row) {
                    appendLine(expected, table.row(RowIndex(row)), delimiter, quoting);
                }
                int replaced = 0;
                const std::string bytes = written([&](TextSink &sink) {
                    replaced = DelimitedWriter::write(sink, table, {delimiter, quoting}, layout);
                });
                ASSERT_TRUE(bytes == utf8ByStream(expected.text));
                ASSERT_EQ(replaced, expected.replaced);
            }
        }
    }
}

TEST(DelimitedWriter, ReportsEveryThousandthRow)
{
    Dataset table;
    table.setSize(2500, 1);
    QList<int> reported;
    TextLayout layout;
    layout.progress = [&](int row, int rowCount) {
        EXPECT_EQ(rowCount, 2500);
        reported.append(row);
    };
    written([&](TextSink &sink) { DelimitedWriter::write(sink, table, DelimitedWriter::Format(), layout); });
    EXPECT_EQ(reported, QList<int>({0, 1000, 2000}));
}
