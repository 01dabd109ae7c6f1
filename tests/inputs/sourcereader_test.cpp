#include "inputs/sourcereader.h"

#include "data/dataset.h"
#include "inputs/textsource.h"
#include "support/grid.h"

#include <QBuffer>
#include <QTemporaryFile>
#include <gtest/gtest.h>
#include <new>

namespace {

/// Gives the beginning of a text and then an error.
class FailingDevice : public QIODevice
{
public:
    FailingDevice() { open(QIODevice::ReadOnly | QIODevice::Unbuffered); }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        if (m_given || maxSize < 4) {
            return -1;
        }
        m_given = true;
        std::memcpy(data, "a,b\n", 4);
        return 4;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    bool m_given = false;
};

/// What the program throws when a run shall end.
class EndOfRun : public std::exception
{
};

} // namespace

TEST(SourceReader, MemoryThatRunsOutIsToldAndLeavesNothing)
{
    SourceReader reader{InputOptions()};
    reader.setProgress([](double) { throw std::bad_alloc(); });
    Dataset dataset;
    EXPECT_FALSE(reader.readText("a,b\n", &dataset));
    EXPECT_FALSE(dataset.hasColumns());
    EXPECT_EQ(reader.warnings(), QStringList("'Clipboard' is too big for Quillmere to read"));
}

TEST(SourceReader, TheEndOfARunIsNoFailureToRead)
{
    SourceReader reader{InputOptions()};
    reader.setProgress([](double) { throw EndOfRun(); });
    Dataset dataset;
    EXPECT_THROW(reader.readText("a,b\n", &dataset), EndOfRun);
}

TEST(SourceReader, ADeviceThatFailsInTheMiddleIsTold)
{
    FailingDevice device;
    TextSource source(&device, TextSource::automatic());
    char bytes[64];
    EXPECT_EQ(source.read(bytes, 64), 4);
    EXPECT_EQ(source.read(bytes, 64), 0);
    EXPECT_TRUE(source.failed());
}

TEST(SourceReader, ReadsEachTypeByItsReader)
{
    struct TypeCase
    {
        const char *what;
        int type;
        QString text;
        QStringList header;
        QStringList rows;
        QStringList infos;
    };
    const TypeCase cases[] = {
        {"plain text is one column, whatever is in it", FileType::PlainText, "a,b\tc\r\n \"x\"\ry\n\nz", {},
            {"a,b c", "\"x\"", "y", "z"}, {"1 empty row(s) ignored"}},
        {"fixed width", FileType::FixedWidth, "ab cd\r\n\r\nx  y", {}, {"ab|cd", "x|y"},
            {"Columns=Automatic guesses 2 columns, set 'Columns' option to 'Manual' to change",
                "1 empty row(s) ignored"}},
        {"contacts", FileType::VCard, "BEGIN:VCARD\nN:a,b\nEND:VCARD\n", {"N"}, {"a,b"}, {}},
        {"types that are only written are delimited text", FileType::Yaml, "a,b\n", {}, {"a|b"},
            {"Quoting=Automatic guesses 'Quoted', set 'Quoting' option to change"}},
    };
    for (const TypeCase &c : cases) {
        SCOPED_TRACE(c.what);
        InputOptions options;
        options.fileType = c.type;
        options.delimiter = DelimiterKind::Comma;
        SourceReader reader(options);
        Dataset dataset;
        EXPECT_TRUE(reader.readText(c.text, &dataset));
        EXPECT_EQ(dataset.header(), c.header);
        EXPECT_EQ(rows(dataset), c.rows);
        EXPECT_EQ(reader.infos(), c.infos);
        EXPECT_EQ(reader.warnings(), QStringList());
    }
}

TEST(SourceReader, PlainTextSkipsItsFirstLines)
{
    InputOptions options;
    options.fileType = FileType::PlainText;
    options.ignoredRows = 2;
    options.trim = false;
    options.ignoreEmptyRows = false;
    SourceReader reader(options);
    Dataset dataset;
    EXPECT_TRUE(reader.readText("a\n\n b \n\nc", &dataset));
    EXPECT_EQ(rows(dataset), (QStringList{" b ", "", "c"}));
}

TEST(SourceReader, HandsOnTheWidthsThatItFound)
{
    InputOptions options;
    options.fileType = FileType::FixedWidth;
    SourceReader reader(options);
    Dataset dataset;
    EXPECT_TRUE(reader.readText("ab cd\nx  y\n", &dataset));
    EXPECT_EQ(reader.fixedWidths(), (QList<int>{3, 2}));
    EXPECT_EQ(reader.fixedWidthSample(), (QStringList{"ab cd", "x  y"}));
}

TEST(SourceReader, TellsWhereTheEncodingCannotReadAFile)
{
    const struct
    {
        const char *what;
        int type;
        const char *encoding;
        QByteArray bytes;
        QString warning;
    } cases[] = {
        {"fixed width", FileType::FixedWidth, "Automatic", "ab\n\xE9 x\n",
            "1 character(s) can't be read in encoding 'UTF-8' and have been replaced: E.g. input row 2"},
        {"plain text", FileType::PlainText, "UTF-8", "a\n\nb\xFF\xFF\n",
            "2 character(s) can't be read in encoding 'UTF-8' and have been replaced: E.g. input row 3"},
        {"a cut line", FileType::Delimited, "Shift_JIS", "a,b\nc,\x93",
            "1 character(s) can't be read in encoding 'Shift_JIS' and have been replaced: E.g. input row 2"},
        {"JSON, by its lines", FileType::Json, "Automatic", "\xEF\xBB\xBF[{\"a\":\r\n\"\xFF\"\r\n}]",
            "1 character(s) can't be read in encoding 'UTF-8' and have been replaced: E.g. line 2"},
        {"JSON of half a UTF-16 unit", FileType::Json, "Automatic", QByteArray("\xFF\xFE[\0]\0\n\0 ", 9),
            "1 character(s) can't be read in encoding 'UTF-16LE' and have been replaced: E.g. line 2"},
        {"XML", FileType::Xml, "Automatic", "<r>\n<a>\xE9</a></r>",
            "1 character(s) can't be read in encoding 'UTF-8' and have been replaced: E.g. line 2"},
        {"contacts", FileType::VCard, "Automatic", "BEGIN:VCARD\nN:a\n \xE9\nEND:VCARD\n",
            "1 character(s) can't be read in encoding 'UTF-8' and have been replaced: E.g. line 3"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        QTemporaryFile file;
        ASSERT_TRUE(file.open());
        file.write(c.bytes);
        file.close();
        InputOptions options;
        options.fileType = c.type;
        options.encoding = c.encoding;
        options.delimiter = DelimiterKind::Comma;
        SourceReader reader(options);
        Dataset dataset;
        reader.readFile(file.fileName(), &dataset);
        EXPECT_EQ(reader.warnings().value(reader.warnings().size() - 1), c.warning);
    }
}
