#include "spreadsheet/xlsx/xlsxeditfixture.h"

#include <gtest/gtest.h>

using namespace spreadsheet;
using namespace foreignbook;

namespace {

/// What was put into a sheet at random has to come out of the saved file, whatever the order.
TEST_F(XlsxEdit, RandomChangesComeBack)
{
    unsigned seed = 4711;
    const auto random = [&seed](int below) {
        seed = seed * 1664525u + 1013904223u;
        return static_cast<int>((seed >> 8) % static_cast<unsigned>(below));
    };
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        const auto book = load();
        Sheet *sheet = round % 3 == 2 ? book->addSheet(QStringLiteral("New"))
                                      : book->getSheet(round % 3 == 0 ? data : other);
        Format *date = book->addFormat();
        date->setNumFormat(14);
        for (int step = 0; step < 40; ++step) {
            const int row = random(12), column = random(8);
            const Format *format = random(3) == 0 ? date : nullptr;
            switch (random(9)) {
            case 0:
                sheet->writeStr(row, column, QStringLiteral("text %1").arg(random(5)), format);
                break;
            case 1:
                sheet->writeNum(row, column, random(1000) / 7.0, format);
                break;
            case 2:
                sheet->writeBool(row, column, random(2) == 1, format);
                break;
            case 3:
                sheet->writeFormula(row, column, QStringLiteral("=A1+%1").arg(random(9)), format);
                break;
            case 4:
                sheet->clear(row, row + random(3), column, column + random(3));
                break;
            case 5:
                sheet->setCellFormat(row, column, format);
                break;
            case 6:
                sheet->addHyperlink(QStringLiteral("http://x.example/%1").arg(random(4)), row, row, column, column);
                break;
            case 7:
                if (sheet->hyperlinkSize() > 0) {
                    sheet->delHyperlink(random(sheet->hyperlinkSize()));
                }
                break;
            default:
                sheet->setMerge({row + 20, row + 20 + random(3), column, column + 1});
                sheet->setRow(row, random(40), random(2) == 1);
                sheet->setCol(column, random(40), random(2) == 1);
            }
        }
        saved(*book);
        Book read(FileKind::Xlsx);
        ASSERT_TRUE(read.load(target()));
        Sheet *back = read.getSheet(round % 3 == 2 ? 3 : round % 3 == 0 ? data : other);
        ASSERT_TRUE(back) << qPrintable(read.errorMessage());
        EXPECT_EQ(back->hyperlinkSize(), sheet->hyperlinkSize());
        EXPECT_EQ(back->mergeSize(), sheet->mergeSize());
        for (int row = 0; row < 40; ++row) {
            EXPECT_EQ(back->rowHidden(row), sheet->rowHidden(row));
            for (int column = 0; column < 12; ++column) {
                SCOPED_TRACE(row * 100 + column);
                if (sheet->isFormula(row, column) && sheet->cells().formula(row, column)->stored.isEmpty()) {
                    EXPECT_TRUE(back->isFormula(row, column));
                    continue;
                }
                EXPECT_EQ(back->readStr(row, column), sheet->readStr(row, column));
                EXPECT_EQ(back->readNum(row, column), sheet->readNum(row, column));
                EXPECT_EQ(back->isDate(row, column), sheet->isDate(row, column));
            }
        }
    }
}

/// Damage of any part is found, or what is written is whole.
TEST_F(XlsxEdit, DamagedWorkbooksAreRefusedOrSavedWhole)
{
    unsigned seed = 99;
    const auto random = [&seed](int below) {
        seed = seed * 1664525u + 1013904223u;
        return static_cast<int>((seed >> 8) % static_cast<unsigned>(below));
    };
    const TestPackage sound = foreignWorkbook();
    int savedCount = 0;
    for (int round = 0; round < 150; ++round) {
        SCOPED_TRACE(round);
        TestPackage package = sound;
        TestPackage::Part &part = package.parts[static_cast<size_t>(random(static_cast<int>(package.parts.size())))];
        for (int change = 0; change <= random(3); ++change) {
            const int place = random(qMax(part.bytes.size(), 1));
            const int length = 1 + random(30);
            switch (random(4)) {
            case 0:
                part.bytes[place] = static_cast<char>(random(256));
                break;
            case 1:
                part.bytes.remove(place, length);
                break;
            case 2:
                part.bytes.insert(place, part.bytes.mid(random(qMax(part.bytes.size(), 1)), length));
                break;
            default:
                part.bytes.replace(place, 1, QByteArray::number(random(100000)));
            }
        }
        ASSERT_TRUE(package.write(source()));
        Book book(FileKind::Xlsx);
        Sheet *sheet = book.load(source()) ? book.getSheet(data) : nullptr;
        if (!sheet) {
            EXPECT_FALSE(book.errorMessage().isEmpty() && book.sheetType(data) == 0);
            continue;
        }
        sheet->writeStr(1, 0, QStringLiteral("written"), book.addFormat());
        sheet->addHyperlink(QStringLiteral("http://new.example/"), 1, 1, 0, 0);
        const bool hasAdded = book.addSheet(QStringLiteral("Added"));
        if (!book.save(target())) {
            EXPECT_FALSE(book.errorMessage().isEmpty());
            continue;
        }
        ++savedCount;
        Book read(FileKind::Xlsx);
        ASSERT_TRUE(read.load(target())) << qPrintable(part.name + read.errorMessage());
        ASSERT_EQ(read.sheetCount(), book.sheetCount());
        Sheet *back = read.getSheet(data);
        ASSERT_TRUE(back) << qPrintable(part.name + read.errorMessage());
        EXPECT_EQ(back->readStr(1, 0), QStringLiteral("written")) << qPrintable(part.name);
        EXPECT_EQ(back->hyperlinkSize(), sheet->hyperlinkSize()) << qPrintable(part.name);
        EXPECT_TRUE(!hasAdded || read.getSheet(read.sheetCount() - 1)) << qPrintable(part.name);
    }
    EXPECT_GT(savedCount, 20);
}

} // namespace
