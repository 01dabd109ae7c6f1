#include "spreadsheet/xls/compoundfile.h"
#include "spreadsheet/xls/xlstestbook.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

QString filePath(const char *name)
{
    return QStringLiteral(TEST_FILES) + QLatin1Char('/') + QLatin1String(name);
}

FileKind kindOf(const QString &path)
{
    return path.endsWith(QLatin1String(".xls")) ? FileKind::Xls : FileKind::Xlsx;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Those that other programs read. All but the first were made of one sheet.
const char *const names[] = {
    "xor-version5.xls", "xor.xls", "rc4.xls", "rc4-40.xls", "rc4-128.xls", "aes.xlsx", "aes-agile.xlsx"};

/// The streams of a compound file, for writing them changed.
std::vector<CompoundPart> streamsOf(const QString &path)
{
    CompoundFile file;
    EXPECT_TRUE(file.open(path));
    std::vector<CompoundPart> parts = file.parts();
    for (CompoundPart &part : parts) {
        if (part.copyOf >= 0) {
            EXPECT_TRUE(file.read(part.copyOf, &part.content));
            part.copyOf = -1;
        }
    }
    return parts;
}

/// What says how the workbook is encrypted: a stream, and where in it that stands.
struct PasswordPlace
{
    CompoundPart *part = nullptr;
    int begin = 0, end = 0;
};

PasswordPlace findPassword(std::vector<CompoundPart> &parts)
{
    PasswordPlace place;
    for (CompoundPart &part : parts) {
        if (part.path == QLatin1String("EncryptionInfo")) {
            place = {&part, 8, part.content.size()};
        } else if (part.path == QLatin1String("Workbook") || part.path == QLatin1String("Book")) {
            const int record = part.content.indexOf(QByteArray::fromHex("2f00"));
            place = {&part, record + 4, record + 4 + static_cast<uchar>(part.content.at(record + 2))};
        }
    }
    return place;
}

QString loadError(const std::vector<CompoundPart> &parts, FileKind kind)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("changed")));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && CompoundFile().write(file, parts, nullptr));
    file.close();
    Book book(kind);
    if (!book.load(file.fileName())) {
        return book.errorMessage();
    }
    for (int i = 0; i < book.sheetCount(); ++i) {
        book.getSheet(i);
    }
    return {};
}

} // namespace

TEST(Encryption, TheDefaultPasswordOpensWorkbooks)
{
    for (const char *name : names) {
        SCOPED_TRACE(name);
        const bool isFirst = name == names[0];
        Book book(kindOf(name));
        ASSERT_TRUE(book.load(filePath(name))) << qPrintable(book.errorMessage());
        ASSERT_EQ(book.sheetCount(), 1);
        Sheet *sheet = book.getSheet(0);
        ASSERT_TRUE(sheet) << qPrintable(book.errorMessage());
        EXPECT_EQ(sheet->readStr(0, 0), QString("Name"));
        EXPECT_EQ(sheet->readStr(isFirst ? 1 : 0, isFirst ? 0 : 1), QString(isFirst ? "Größe" : "Größe Ж 日本"));
        EXPECT_EQ(sheet->readNum(1, isFirst ? 1 : 0), 1.5);
        if (!isFirst) {
            EXPECT_EQ(sheet->readStr(1, 1), QString(1500, 'x')) << "longer than what one key is for";
            EXPECT_EQ(sheet->readNum(2, 0), 3);
            EXPECT_EQ(sheet->readStr(2, 1), QString("ab"));
        }
    }
}

TEST(Encryption, NothingIsWrittenInto)
{
    QTemporaryDir folder;
    for (const char *name : names) {
        SCOPED_TRACE(name);
        const QString path = folder.filePath(QLatin1String(name));
        ASSERT_TRUE(QFile::copy(filePath(name), path));
        Book book(kindOf(path));
        ASSERT_TRUE(book.load(path));
        book.getSheet(0)->writeNum(9, 0, 1);
        EXPECT_TRUE(book.whyUnchangeable().contains("is encrypted, it can be read but not changed"));
        EXPECT_FALSE(book.save(path));
        EXPECT_EQ(book.errorMessage(), book.whyUnchangeable());
        EXPECT_EQ(contentOf(path), contentOf(filePath(name)));
    }
}

TEST(Encryption, AnotherPasswordIsRefused)
{
    for (const char *name : names) {
        SCOPED_TRACE(name);
        std::vector<CompoundPart> parts = streamsOf(filePath(name));
        EXPECT_EQ(loadError(parts, kindOf(name)), QString());
        const PasswordPlace place = findPassword(parts);
        ASSERT_TRUE(place.part);
        // A character of the salt or of what stands for the password.
        const int in = place.part->content.indexOf("saltValue=\"", place.begin);
        char &changed = place.part->content
                            .data()[in >= 0 ? place.part->content.lastIndexOf("saltValue=\"") + 12 : place.end - 1];
        changed = changed == 'A' ? 'B' : 'A';
        const QString error = loadError(parts, kindOf(name));
        EXPECT_EQ(
            error, QString(kindOf(name) == FileKind::Xls ? "The workbook is encrypted." : "The file is encrypted"));
    }
}

TEST(Encryption, DamagedHeadsAndContentsNeverCrash)
{
    QRandomGenerator random(20261123);
    for (const char *name : names) {
        SCOPED_TRACE(name);
        // Trying a password is slow by intent in the newer kind of files.
        const int tries = kindOf(name) == FileKind::Xls ? 150 : 20;
        const std::vector<CompoundPart> whole = streamsOf(filePath(name));
        int refused = 0;
        for (int i = 0; i < tries; ++i) {
            std::vector<CompoundPart> parts = whole;
            const PasswordPlace place = findPassword(parts);
            QByteArray &bytes = place.part->content;
            const bool isInHead = i % 3 != 0;
            const int begin = isInHead ? place.begin - 4 : 0;
            const int end = isInHead ? place.end : bytes.size();
            for (int n = 1 + random.bounded(4); n > 0; --n) {
                bytes[begin + random.bounded(end - begin)] = static_cast<char>(random.bounded(256));
            }
            if (i % 5 == 0) {
                bytes.truncate(begin + random.bounded(end - begin));
            }
            refused += loadError(parts, kindOf(name)).isEmpty() ? 0 : 1;
        }
        EXPECT_GT(refused, tries / 4);
    }
}
