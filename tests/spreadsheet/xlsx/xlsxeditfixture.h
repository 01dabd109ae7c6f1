#pragma once

#include "spreadsheet/book.h"
#include "spreadsheet/xlsx/xlsxeditbook.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

/// Names within foreignWorkbook().
namespace foreignbook {

constexpr int data = 0, other = 2; // worksheets
inline const QString dataPart = QStringLiteral("xl/worksheets/sheet1.xml");
inline const QString dataRelations = QStringLiteral("xl/worksheets/_rels/sheet1.xml.rels");
inline const QString tablePart = QStringLiteral("xl/tables/table1.xml");
inline const QString textsPart = QStringLiteral("xl/sharedStrings.xml");
inline const QString stylesPart = QStringLiteral("xl/styles.xml");
inline const QString workbookPart = QStringLiteral("xl/workbook.xml");

} // namespace foreignbook

/// What editing a workbook of another program does to its parts: loads one, saves it, checks the package and compares.
class XlsxEdit : public ::testing::Test
{
protected:
    QString source() const { return m_folder.filePath(QStringLiteral("source.xlsx")); }
    QString target() const { return m_folder.filePath(QStringLiteral("target.xlsx")); }

    /// A book of the package, which is kept as m_before.
    std::unique_ptr<spreadsheet::Book> load(const TestPackage &package = foreignWorkbook())
    {
        EXPECT_TRUE(package.write(source()));
        m_before = TestPackage::read(source());
        auto book = std::make_unique<spreadsheet::Book>(spreadsheet::FileKind::Xlsx);
        EXPECT_TRUE(book->load(source())) << qPrintable(book->errorMessage());
        return book;
    }
    TestPackage saved(spreadsheet::Book &book)
    {
        EXPECT_TRUE(book.save(target())) << qPrintable(book.errorMessage());
        EXPECT_EQ(checkPackage(target()).join(QLatin1Char('\n')).toStdString(), "");
        return TestPackage::read(target());
    }
    /// The parts that aren't what they were, byte for byte as they are compressed.
    QStringList changedParts(const TestPackage &after) const
    {
        QStringList changed;
        for (const TestPackage::Part &part : m_before.parts) {
            const TestPackage::Part *now = after.find(part.name);
            if (!now || now->packed != part.packed || now->bytes != part.bytes) {
                changed << part.name;
            }
        }
        changed.sort();
        return changed;
    }

    QTemporaryDir m_folder;
    TestPackage m_before;
};

/// The part less what the pattern finds; dots match line ends too.
inline QByteArray without(const QByteArray &part, const char *pattern)
{
    return QString::fromUtf8(part)
        .remove(QRegularExpression(QLatin1String(pattern), QRegularExpression::DotMatchesEverythingOption))
        .toUtf8();
}
