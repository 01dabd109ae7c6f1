#include "spreadsheet/xls/compoundfile.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

CompoundPart storage(const QString &path, char classByte = 0)
{
    CompoundPart part;
    part.path = path;
    part.isStorage = true;
    part.classId = QByteArray(16, classByte);
    return part;
}

CompoundPart stream(const QString &path, const QByteArray &content)
{
    CompoundPart part;
    part.path = path;
    part.content = content;
    return part;
}

QByteArray patterned(int size)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i) {
        bytes[i] = static_cast<char>(i * 7 + i / 251);
    }
    return bytes;
}

QByteArray written(const std::vector<CompoundPart> &parts, CompoundFile *original = nullptr)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    CompoundFile file;
    EXPECT_TRUE(file.write(buffer, parts, original)) << qPrintable(file.error());
    return buffer.data();
}

QByteArray content(CompoundFile &file, const QString &path)
{
    QByteArray bytes;
    const int part = file.find(path);
    EXPECT_GE(part, 0) << qPrintable(path);
    EXPECT_TRUE(part >= 0 && file.read(part, &bytes)) << qPrintable(path);
    return bytes;
}

const std::vector<CompoundPart> sample()
{
    return {storage({}, 'R'), stream("Workbook", patterned(20000)), stream("\005SummaryInformation", "small"),
        storage("_VBA_PROJECT_CUR", 'V'), storage("_VBA_PROJECT_CUR/VBA"),
        stream("_VBA_PROJECT_CUR/VBA/dir", patterned(4096)), stream("_VBA_PROJECT_CUR/VBA/ThisWorkbook", {}),
        stream("_VBA_PROJECT_CUR/PROJECT", patterned(4095)), stream("\001CompObj", patterned(64))};
}

} // namespace

TEST(XlsCompound, WritesWhatItReads)
{
    CompoundFile file;
    ASSERT_TRUE(file.open(written(sample()))) << qPrintable(file.error());
    EXPECT_EQ(file.parts().size(), sample().size());
    for (const CompoundPart &part : sample()) {
        SCOPED_TRACE(qPrintable(part.path));
        const int number = file.find(part.path);
        ASSERT_GE(number, 0);
        const CompoundPart &read = file.parts()[static_cast<size_t>(number)];
        EXPECT_EQ(read.isStorage, part.isStorage);
        if (part.isStorage) {
            EXPECT_EQ(read.classId, part.classId);
        } else {
            EXPECT_EQ(read.size, part.content.size());
            EXPECT_EQ(content(file, part.path), part.content);
        }
    }
    EXPECT_GE(file.find("WORKBOOK"), 0);
    EXPECT_LT(file.find("dir"), 0);
}

TEST(XlsCompound, CarriesStreamsOver)
{
    QTemporaryDir folder;
    const QString path = folder.filePath("ü.xls");
    QFile device(path);
    ASSERT_TRUE(device.open(QIODevice::WriteOnly));
    device.write(written(sample()));
    device.close();

    CompoundFile original;
    ASSERT_TRUE(original.open(path)) << qPrintable(original.error());
    std::vector<CompoundPart> parts = original.parts();
    const auto workbook = static_cast<size_t>(original.find("Workbook"));
    parts[workbook].copyOf = -1;
    parts[workbook].content = patterned(100000).repeated(90); // more sectors than the header lists tables for
    CompoundFile changed;
    ASSERT_TRUE(changed.open(written(parts, &original))) << qPrintable(changed.error());
    ASSERT_EQ(changed.parts().size(), parts.size());
    for (const CompoundPart &part : sample()) {
        SCOPED_TRACE(qPrintable(part.path));
        const CompoundPart &read = changed.parts()[static_cast<size_t>(changed.find(part.path))];
        EXPECT_EQ(read.classId, part.classId);
        if (part.path == "Workbook") {
            EXPECT_EQ(content(changed, part.path), parts[workbook].content);
        } else if (!part.isStorage) {
            EXPECT_EQ(content(changed, part.path), part.content);
        }
    }
}

TEST(XlsCompound, RefusesWhatCanNotBeWritten)
{
    CompoundFile original;
    ASSERT_TRUE(original.open(written(sample())));
    CompoundPart copy;
    copy.path = "Copy";
    struct
    {
        const char *what;
        std::vector<CompoundPart> parts;
        CompoundFile *original;
        QString error;
    } const cases[] = {
        {"a stream in a storage that isn't there", {stream("A/b", "x")}, nullptr, "The storage of 'A/b' is missing."},
        {"a stream below a stream", {stream("A", "x"), stream("A/b", "x")}, nullptr,
            "The storage of 'A/b' is missing."},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        CompoundFile file;
        EXPECT_FALSE(file.write(buffer, c.parts, c.original));
        EXPECT_EQ(file.error(), c.error);
        EXPECT_TRUE(buffer.data().isEmpty());
    }
    QFile full("/dev/full");
    ASSERT_TRUE(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    CompoundFile file;
    EXPECT_FALSE(file.write(full, sample(), nullptr));
    EXPECT_FALSE(file.error().isEmpty());
}

TEST(XlsCompound, DamagedTables)
{
    const QByteArray good = written(sample());
    const auto changed = [&good](int at, quint32 value) {
        QByteArray bytes = good;
        qToLittleEndian(value, bytes.data() + at);
        return bytes;
    };
    const int firstTable = (static_cast<int>(qFromLittleEndian<quint32>(good.constData() + 76)) + 1) * 512;
    const quint32 directory = qFromLittleEndian<quint32>(good.constData() + 48);
    const int directoryEntry = firstTable + static_cast<int>(directory) * 4;
    struct
    {
        const char *what;
        QByteArray bytes;
    } const cases[] = {
        {"nothing", {}},
        {"the mark alone", good.left(8)},
        {"half a header", good.left(300)},
        {"a header without the rest", good.left(512)},
        {"a directory that begins beyond the file", changed(48, 0x00FFFFFF)},
        {"a directory in a circle", changed(directoryEntry, directory)},
        {"a directory that runs into free sectors", changed(directoryEntry, 0xFFFFFFFF)},
        {"sectors of an impossible size", changed(30, 0x00060040)},
        {"tables beyond the file", changed(76, 0x00FFFFFF)},
        {"four billion tables", changed(44, 0xFFFFFFFF)},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        CompoundFile file;
        QByteArray read;
        const bool isRead = file.open(c.bytes) && file.find("Workbook") >= 0 && file.read(file.find("Workbook"), &read);
        EXPECT_FALSE(isRead && read != sample()[1].content);
        EXPECT_TRUE(isRead || !file.error().isEmpty() || file.find("Workbook") < 0);
    }
}

TEST(XlsCompound, ReadsFilesThatDoNotMarkTheEndOfAnEmptyList)
{
    QByteArray bytes = written(sample());
    ASSERT_EQ(qFromLittleEndian<quint32>(bytes.constData() + 72), 0u) << "no tables beyond those of the header";
    bytes.replace(68, sizeof(quint32), QByteArray(sizeof(quint32), '\0'));
    CompoundFile file;
    ASSERT_TRUE(file.open(bytes)) << qPrintable(file.error());
    EXPECT_EQ(content(file, "Workbook"), sample()[1].content);
}

TEST(XlsCompound, DirectoryOfAnyLengthIsRefusedBeforeItIsBuilt)
{
    // So many entries, each behind the one before, that a call within a call for each would use up the stack.
    constexpr quint32 sectorSize = 4096;
    constexpr quint32 perSector = sectorSize / 4;
    constexpr quint32 directorySectors = 4000;
    constexpr quint32 tableSectors = directorySectors / perSector + 1;
    QByteArray bytes(static_cast<int>(sectorSize * (1 + tableSectors + directorySectors)), '\0');
    const auto put = [&bytes](quint32 at, quint32 value) { qToLittleEndian(value, bytes.data() + at); };
    bytes.replace(0, 8, QByteArray::fromHex("d0cf11e0a1b11ae1"));
    put(24, 0x0004003E);
    put(28, 0x000CFFFE);
    put(32, 6);
    put(40, directorySectors);
    put(44, tableSectors);
    put(48, tableSectors);
    put(56, 4096);
    put(60, 0xFFFFFFFE);
    put(68, 0xFFFFFFFE);
    for (quint32 i = 0; i < 109; ++i) {
        put(76 + 4 * i, i < tableSectors ? i : 0xFFFFFFFF);
    }
    for (quint32 sector = 0; sector < tableSectors + directorySectors; ++sector) {
        const bool isLast = sector + 1 == tableSectors + directorySectors;
        put(sectorSize + 4 * sector, sector < tableSectors ? 0xFFFFFFFD : isLast ? 0xFFFFFFFE : sector + 1);
    }
    const quint32 entries = directorySectors * (sectorSize / 128);
    for (quint32 entry = 0; entry < entries; ++entry) {
        const quint32 at = sectorSize * (1 + tableSectors) + 128 * entry;
        put(at, 0x00410041);
        put(at + 64, 0x01020004 | (entry == 0 ? 0x00050000 : 0));
        bytes[static_cast<int>(at + 66)] = entry == 0 ? 5 : 2;
        put(at + 68, 0xFFFFFFFF);
        put(at + 72, entry == 0 || entry + 1 == entries ? 0xFFFFFFFF : entry + 1);
        put(at + 76, entry == 0 ? 1 : 0xFFFFFFFF);
    }
    CompoundFile file;
    EXPECT_FALSE(file.open(bytes));
    EXPECT_EQ(file.error(), QString("The file's directory is damaged."));
}
