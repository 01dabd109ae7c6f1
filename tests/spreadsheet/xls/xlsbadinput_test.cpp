#include "spreadsheet/bookdata.h"
#include "spreadsheet/xls/compoundfile.h"
#include "spreadsheet/xls/globalsreader.h"
#include "spreadsheet/xls/xlssheetreader.h"
#include "xlstestbook.h"

#include <QFile>
#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

QByteArray number(unsigned row, unsigned column, double value)
{
    return record(RecordId::Number, words({row, column, 0}) + real(value));
}

/// A book with one of everything.
QByteArray variedStream()
{
    XlsTestBook book;
    book.globals = record(RecordId::Font, words({200, 0, 8, 400, 0, 0, 0x0100, 0x0041}))
                   + record(RecordId::NumberFormat, words({164}) + biffText("yyyy-mm-dd")) + formatRecord()
                   + formatRecord(0, 164) + record(RecordId::Palette, words({1, 0x2211, 0x0033}))
                   + record(RecordId::SharedStrings,
                       dword(3) + dword(3) + biffText("one") + biffText("日本") + words({3}) + '\0' + "ab")
                   + record(RecordId::Continue, QByteArray("\0c", 2));
    const QByteArray result = QByteArray(6, '\0') + words({0xFFFF});
    const QByteArray cells = record(RecordId::DefaultRowHeight, words({0, 300}))
                             + record(RecordId::ColumnInfo, words({1, 3, 2560, 1, 1, 0}))
                             + record(RecordId::Row, words({0, 0, 3, 600, 0, 0}) + dword(0x00010140))
                             + number(0, 0, 1.5) + record(RecordId::Rk, words({0, 1, 1}) + dword(6))
                             + record(RecordId::LabelShared, words({0, 2, 0}) + dword(1))
                             + record(RecordId::Formula, words({1, 0, 0}) + result + words({0, 0, 0, 2}) + "ab")
                             + record(RecordId::SharedFormula, words({1, 1, 0, 0}))
                             + record(RecordId::String, biffText("result"))
                             + record(
                                 RecordId::MultipleRk, words({2, 0, 0}) + dword(2) + words({1}) + dword(7) + words({1}))
                             + record(RecordId::MultipleBlank, words({3, 4, 0, 1, 5}))
                             + record(RecordId::Label, words({4, 0, 0}) + biffText("own"))
                             + record(RecordId::MergedCells, words({1, 5, 6, 0, 1}))
                             + record(RecordId::HyperLink, words({0, 0, 0, 0}) + QByteArray(16, '\0') + dword(2)
                                                               + dword(8) + dword(3) + words({'A', '1', 0}));
    book.sheets = {{"Data", cells}, {"Chart", bofRecord(0x20) + record(RecordId::Eof), 2}, {"Two", number(0, 0, 1)}};
    return book.stream();
}

/// Reads all that a workbook stream holds, without a file. Gives the first error; none when all could be read.
QString streamError(const QByteArray &stream)
{
    XlsSource source;
    source.workbook = stream;
    BookData book;
    book.kind = FileKind::Xls;
    GlobalsReader globals(source, book);
    if (!globals.read()) {
        return globals.error();
    }
    book.loadedFormats = static_cast<quint32>(book.formats.size());
    QString error;
    for (size_t i = 0; i < source.sheets.size() && error.isEmpty(); ++i) {
        Sheet sheet(&book, book.sheets[i].name);
        const bool isRead = readXlsSheet(source, source.sheets[i], book, sheet, &error);
        EXPECT_EQ(isRead, error.isEmpty());
        EXPECT_TRUE(!isRead || hasXlsCells(source, source.sheets[i]) == (sheet.lastRow() > 0));
        for (int row = 0; row < std::min(sheet.lastRow(), 50); ++row) {
            for (int column = 0; column < sheet.lastCol(); ++column) {
                sheet.readStr(row, column);
                sheet.isDate(row, column);
            }
        }
    }
    return error;
}

/// The same for a compound file.
QString fileError(const QByteArray &file)
{
    CompoundFile compound;
    if (!compound.open(file)) {
        return compound.error();
    }
    const int part = compound.find(QStringLiteral("Workbook"));
    QByteArray stream;
    if (part < 0 || !compound.read(part, &stream)) {
        return part < 0 ? QStringLiteral("no workbook") : compound.error();
    }
    return streamError(stream);
}

} // namespace

TEST(XlsBadInput, FilesThatAreNoWorkbooks)
{
    const QByteArray stream = variedStream();
    const QByteArray encrypted = bofRecord(5) + record(RecordId::FilePass, words({1, 1, 1})) + stream.mid(20);
    const QString tooOld = "The workbook is of a version before 5.0 and 95, which isn't supported.";
    const QByteArray mark = QByteArray::fromHex("d0cf11e0a1b11ae1");
    struct
    {
        const char *what;
        QByteArray file;
        QString error;
    } const cases[] = {
        {"an empty file", {}, "The file is not an .xls workbook."},
        {"bytes of no kind", QByteArray("\0\1\2\3", 4), "The file is not an .xls workbook."},
        {"another zip", "PK\3\4abc", "The file is an .xlsx workbook or another zip archive, not an .xls workbook."},
        {"a page", "\xEF\xBB\xBF\n <HTML><table>", "The file is an HTML page, not an .xls workbook."},
        {"a table of a page", "<table border=1>", "The file is an HTML page, not an .xls workbook."},
        {"a document", "<?xml version='1.0'?>", "The file is an XML document, not an .xls workbook."},
        {"a table in text", "a\tb\n1\t2\n", "The file is a text file, not an .xls workbook."},
        {"a table in wide text",
            QByteArray("\xFF\xFE"
                       "a\0\t\0",
                6),
            "The file is a text file, not an .xls workbook."},
        {"a workbook before compound files", QByteArray::fromHex("0904060000001000b307cc07"), tooOld},
        {"a stream of version 4", compoundFile(bofRecord(5, 0x0400) + record(RecordId::Eof)), tooOld},
        {"a stream that begins as those of version 3 do", compoundFile(QByteArray::fromHex("09020600000010000000")),
            tooOld},
        {"a workbook without sheets", compoundFile(bofRecord(5) + record(RecordId::Eof)),
            "The workbook is damaged: it has no sheets."},
        {"an older workbook without sheets", compoundFile(bofRecord(5, 0x0500) + record(RecordId::Eof), "Book"),
            "The workbook is damaged: it has no sheets."},
        {"an older workbook in letters that nobody knows",
            compoundFile(bofRecord(5, 0x0500) + record(RecordId::CodePage, words({1361})), "Book"),
            "The workbook's texts are in code page 1361, which isn't supported."},
        {"another compound file", compoundFile(stream, "WordDocument"), "The file holds no workbook."},
        {"an encrypted workbook", compoundFile(encrypted), "The workbook is encrypted."},
        {"an encrypted package", compoundFile("x", "EncryptedPackage"), "The workbook is encrypted."},
        {"a compound file without its tables", mark + QByteArray(600, '\0'), "The file's directory is damaged."},
        {"a sheet alone", compoundFile(bofRecord(0x10) + record(RecordId::Eof)),
            "The workbook is damaged: it doesn't begin like one."},
        {"an empty stream", compoundFile({}), "The workbook is damaged: it doesn't begin like one."},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        LoadedXls loaded(c.file);
        EXPECT_FALSE(loaded.isLoaded());
        EXPECT_EQ(loaded.error(), c.error);
        EXPECT_EQ(loaded.book().sheetCount(), 0);
    }
    Book missing(FileKind::Xls);
    EXPECT_FALSE(missing.load("/dev/zero"));
    EXPECT_EQ(missing.errorMessage(), QString("The file can't be read."));
    EXPECT_FALSE(missing.load("/does/not/exist.xls"));
}

TEST(XlsBadInput, SheetsOutOfPlace)
{
    const auto listed = [](quint32 offset, const char *name) {
        return record(
            RecordId::BoundSheet, dword(offset) + words({0}) + static_cast<char>(qstrlen(name)) + '\0' + name);
    };
    const QByteArray sheet = bofRecord(0x10) + number(0, 0, 1) + record(RecordId::Eof);
    const QByteArray openSheet = bofRecord(0x10) + number(0, 0, 1);
    const auto book = [](const QByteArray &list, const QByteArray &rest) {
        return bofRecord(5) + list + record(RecordId::Eof) + rest;
    };
    const auto behind = static_cast<quint32>(book(listed(0, "A") + listed(0, "B"), {}).size());
    const quint32 second = behind + static_cast<quint32>(sheet.size());
    struct
    {
        const char *what;
        quint32 first, other;
        QByteArray rest;
        QString damaged; ///< none when all is well
    } const cases[] = {
        {"two sheets", behind, second, sheet + sheet, {}},
        {"two sheets, the last one first", second, behind, sheet + sheet, {}},
        {"two sheets with something between", behind, second + 3, sheet + "abc" + sheet, {}},
        {"behind the stream", behind, 0x7FFFFFFF, sheet + sheet, "B"},
        {"at the last number there is", behind, 0xFFFFFFFF, sheet + sheet, "B"},
        {"at the beginning of the book", 0, behind, sheet + sheet, "A"},
        {"at the list itself", 20, behind, sheet + sheet, "A"},
        {"both at one place", behind, behind, sheet + sheet, "A"},
        {"one inside the other", behind, behind + 20, sheet + sheet, "A"},
        {"no beginning there", behind, second + 20, sheet + sheet, "B"},
        {"without an end", behind, second, sheet + openSheet, "B"},
        {"an older sheet", behind, second, sheet + bofRecord(0x10, 0x0500) + record(RecordId::Eof), "B"},
        {"beginnings without end", behind, second, sheet + bofRecord(0x10).repeated(2000), "B"},
        {"beginnings inside beginnings", behind, second,
            sheet + bofRecord(0x10).repeated(2000) + record(RecordId::Eof).repeated(2000), "B"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        LoadedXls loaded(compoundFile(book(listed(c.first, "A") + listed(c.other, "B"), c.rest)));
        if (c.damaged.isEmpty()) {
            ASSERT_TRUE(loaded.isLoaded()) << qPrintable(loaded.error());
            EXPECT_EQ(loaded.book().getSheet(1)->readNum(0, 0), 1);
        } else {
            EXPECT_FALSE(loaded.isLoaded());
            const bool isEither = c.first == c.other;
            EXPECT_TRUE(
                isEither
                || loaded.error() == QString("The workbook is damaged: sheet '%1' isn't complete.").arg(c.damaged))
                << qPrintable(loaded.error());
        }
    }
}

TEST(XlsBadInput, CellsThatCanNotBe)
{
    struct
    {
        const char *what;
        QByteArray record;
        QString place;
    } const cases[] = {
        {"a text that isn't there", record(RecordId::LabelShared, words({4, 1, 0}) + dword(1)), "B5"},
        {"a text far from there", record(RecordId::LabelShared, words({0, 0, 0}) + dword(0xFFFFFFFF)), "A1"},
        {"a column behind the last", number(0, 256, 1), "IW1"},
        {"a number of half the size", record(RecordId::Number, words({0, 0, 0, 1})), "A1"},
        {"a record without a place", record(RecordId::Blank), "A1"},
        {"fewer numbers than columns", record(RecordId::MultipleRk, words({0, 1, 0, 0, 0, 2})), "B1"},
        {"blanks up to a column behind the last", record(RecordId::MultipleBlank, words({0, 255, 0, 0, 256})), "IV1"},
        {"blanks to the left", record(RecordId::MultipleBlank, words({0, 5, 0, 0, 4})), "F1"},
        {"a text of its own that is cut", record(RecordId::Label, words({0, 0, 0, 9, 0})), "A1"},
        {"a text result that is cut",
            record(RecordId::Formula, words({0, 0, 0, 0, 0, 0, 0xFFFF, 0, 0, 0, 0}))
                + record(RecordId::String, words({9, 0})),
            "A1"},
        {"a formula without a result", record(RecordId::Formula, words({0, 0, 0, 0})), "A1"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const auto loaded = LoadedXls::sheet(
            c.record, record(RecordId::SharedStrings, dword(1) + dword(1) + biffText("only")));
        ASSERT_TRUE(loaded->isLoaded()) << qPrintable(loaded->error());
        EXPECT_FALSE(loaded->first());
        EXPECT_EQ(loaded->error(), QString("The workbook is damaged: cell %1 isn't readable.").arg(c.place));
    }
}

TEST(XlsBadInput, StreamCutAnywhere)
{
    const QByteArray stream = variedStream();
    EXPECT_EQ(streamError(stream), QString());
    for (int size = 0; size < stream.size(); ++size) {
        EXPECT_NE(streamError(stream.left(size)), QString()) << size;
    }
}

TEST(XlsBadInput, FileCutAnywhere)
{
    const QByteArray stream = variedStream() + QByteArray(5000, '\0');
    const QByteArray file = compoundFile(stream);
    EXPECT_EQ(fileError(file), QString());
    int refused = 0;
    for (int size = 0; size < file.size(); size += 7) {
        refused += fileError(file.left(size)).isEmpty() ? 0 : 1;
    }
    EXPECT_GT(refused, 500) << "the tables stand at the end of the file";
}

TEST(XlsBadInput, ChangedBytesNeverCrash)
{
    QRandomGenerator random(20260704);
    const QByteArray stream = variedStream();
    const QByteArray file = compoundFile(stream);
    int read = 0, refused = 0;
    const auto changed = [&random](QByteArray bytes) {
        for (int left = 1 + random.bounded(6); left > 0; --left) {
            const int at = random.bounded(bytes.size());
            static const unsigned char favourites[] = {0x00, 0x01, 0x7F, 0x80, 0xFE, 0xFF};
            const bool isFavourite = random.bounded(2);
            bytes[at] = static_cast<char>(isFavourite ? favourites[random.bounded(6)] : random.bounded(256));
        }
        return bytes;
    };
    for (int i = 0; i < 4000; ++i) {
        const bool isRead = (i % 2 ? streamError(changed(stream)) : fileError(changed(file))).isEmpty();
        ++(isRead ? read : refused);
    }
    EXPECT_GT(read, 100);
    EXPECT_GT(refused, 100);
}
