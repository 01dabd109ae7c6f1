#include "xlstestbook.h"

#include "spreadsheet/xls/compoundfile.h"
#include "spreadsheet/xls/substreams.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

using namespace spreadsheet;

QByteArray words(std::initializer_list<unsigned> values)
{
    ByteBuffer bytes;
    for (unsigned value : values) {
        bytes.u16(value);
    }
    return bytes.data();
}

QByteArray dword(quint32 value)
{
    return words({value & 0xFFFF, value >> 16});
}

QByteArray real(double value)
{
    ByteBuffer bytes;
    bytes.f64(value);
    return bytes.data();
}

QByteArray biffText(const QString &text)
{
    ByteBuffer bytes;
    bytes.u16(static_cast<unsigned>(text.size()));
    bytes.characters(text);
    return bytes.data();
}

QByteArray record(RecordId id, const QByteArray &data)
{
    return words({static_cast<unsigned>(id), static_cast<unsigned>(data.size())}) + data;
}

QByteArray bofRecord(unsigned type, unsigned version)
{
    return record(RecordId::Bof, words({version, type, 0, 0, 0, 0, 0, 0}));
}

QByteArray formatRecord(unsigned font, unsigned numberFormat)
{
    return record(RecordId::ExtendedFormat, words({font, numberFormat, 1, 0x20, 0, 0, 0, 0, 0, 0x20C0}));
}

QByteArray XlsTestBook::stream() const
{
    const auto named = [this](const TestSheet &sheet, int offset) {
        ByteBuffer data;
        data.u32(static_cast<quint32>(offset));
        data.u8(0);
        data.u8(sheet.type);
        data.u8(static_cast<unsigned>(sheet.name.size()));
        if (version == biff8Version) {
            data.characters(sheet.name);
        } else {
            data.bytes(sheet.name.toLatin1());
        }
        return record(RecordId::BoundSheet, data.data());
    };
    const QByteArray begin = bofRecord(0x0005, version) + globals;
    const QByteArray end = record(RecordId::Eof);
    int size = begin.size() + globalsBehindSheets.size() + end.size();
    for (const TestSheet &sheet : sheets) {
        size += named(sheet, 0).size();
    }
    QByteArray list, parts;
    for (const TestSheet &sheet : sheets) {
        list += named(sheet, size + parts.size());
        parts += bofRecord(0x0010, version) + sheet.records + end;
    }
    return begin + list + globalsBehindSheets + end + parts;
}

QByteArray compoundFile(const QByteArray &stream, const QString &name)
{
    CompoundPart part;
    part.path = name;
    part.content = stream;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    CompoundFile().write(buffer, {part}, nullptr);
    return buffer.data();
}

LoadedXls::LoadedXls(const QByteArray &file)
{
    static const QTemporaryDir folder; // one for all, since making one takes longer than reading a book
    const QString path = folder.filePath(QStringLiteral("book.xls"));
    QFile output(path);
    if (output.open(QIODevice::WriteOnly) && output.write(file) == file.size()) {
        output.close();
        m_isLoaded = m_book.load(path);
    }
}

std::unique_ptr<LoadedXls> LoadedXls::sheet(const QByteArray &records, const QByteArray &globals)
{
    XlsTestBook book;
    book.globals = formatRecord() + formatRecord(0, 14) + formatRecord(0, 4) + globals;
    book.sheets = {{QStringLiteral("Data"), records}};
    return std::make_unique<LoadedXls>(compoundFile(book.stream()));
}
