#pragma once

#include "spreadsheet/book.h"
#include "spreadsheet/xls/bytebuffer.h"
#include "spreadsheet/xls/record.h"

#include <initializer_list>
#include <memory>
#include <vector>

/// Bytes of numbers of 16 bits.
QByteArray words(std::initializer_list<unsigned> values);
QByteArray dword(quint32 value);
QByteArray real(double value);
/// Two bytes of length, flags and characters of one byte or, when one needs it, two.
QByteArray biffText(const QString &text);

/// A record with its header.
QByteArray record(spreadsheet::RecordId id, const QByteArray &data = {});
QByteArray bofRecord(unsigned type, unsigned version = 0x0600);
/// An XF record of a cell with a font and a number format.
QByteArray formatRecord(unsigned font = 0, unsigned numberFormat = 0);

/// The workbook stream of a test: what stands between BOF and EOF of each part.
struct XlsTestBook
{
    struct TestSheet
    {
        QString name;
        QByteArray records;
        unsigned type = 0;
    };
    QByteArray globals;
    std::vector<TestSheet> sheets;
    unsigned version = 0x0600;      ///< 0x0500 for one whose texts are bytes
    QByteArray globalsBehindSheets; ///< of the first part, what stands behind the list of sheets

    QByteArray stream() const;
};

/// A compound file that holds a stream.
QByteArray compoundFile(const QByteArray &stream, const QString &name = QStringLiteral("Workbook"));

/// A book read from bytes that were put into a file.
class LoadedXls
{
public:
    explicit LoadedXls(const QByteArray &file);
    /// Of one sheet with these records, in a book with a few formats.
    static std::unique_ptr<LoadedXls> sheet(const QByteArray &records, const QByteArray &globals = {});

    bool isLoaded() const { return m_isLoaded; }
    spreadsheet::Book &book() { return m_book; }
    /// Null when it can't be read.
    spreadsheet::Sheet *first() { return m_book.getSheet(0); }
    QString error() const { return m_book.errorMessage(); }

private:
    spreadsheet::Book m_book{spreadsheet::FileKind::Xls};
    bool m_isLoaded = false;
};
