#include "xlseditbook.h"

#include "spreadsheet/xls/compoundfile.h"
#include "spreadsheet/xls/recordreader.h"

#include <QBuffer>

using namespace spreadsheet;

namespace {

constexpr auto unknownGlobal = RecordId(0x0863), unknownOfSheet = RecordId(0x0867);

QByteArray cell(RecordId id, unsigned row, unsigned column, const QByteArray &data)
{
    return record(id, words({row, column, 15}) + data);
}

/// A text with two runs of fonts.
QByteArray richText(const QString &text)
{
    const QByteArray plain = biffText(text);
    return plain.left(2) + QByteArray(1, '\x08') + words({2}) + plain.mid(3) + words({1, 1, 3, 0});
}

QByteArray formula(unsigned row, unsigned column, double result, const QByteArray &hexTokens, unsigned options = 0)
{
    const QByteArray tokens = QByteArray::fromHex(hexTokens);
    return cell(RecordId::Formula, row, column,
        real(result) + words({options}) + dword(0) + words({unsigned(tokens.size())}) + tokens);
}

QByteArray row(unsigned number, unsigned height = 255, quint32 options = 0x000F0100)
{
    return record(RecordId::Row, words({number, 0, 4, height, 0, 0}) + dword(options));
}

QByteArray globals()
{
    QByteArray records = record(RecordId::CodePage, words({1200}));
    for (int i = 0; i < 5; ++i) {
        records += record(
            RecordId::Font, words({200, 0, 0x7FFF, 400, 0}) + QByteArray(4, '\0') + QByteArray("\1\0F", 3));
    }
    records += record(RecordId::NumberFormat, words({170}) + biffText(QStringLiteral("0.000")));
    for (int i = 0; i < 16; ++i) {
        records += i == 8 ? record(RecordId::HideObjects, words({0})) : QByteArray(); // formats needn't stand together
        records += record(RecordId::ExtendedFormat,
            words({0, i == 15 ? 0u : 170u, i < 15 ? 0xFFF5u : 1u, 0x20, 0, 0, 0, 0, 0, 0x20C0}));
    }
    records += record(RecordId::Palette, words({1}) + QByteArray::fromHex("11223300"));
    return records + record(RecordId::SheetIds, words({4, 9, 2}));
}

QByteArray globalsBehindSheets()
{
    const QByteArray texts = dword(5) + dword(3) + richText(QStringLiteral("rich text"))
                             + biffText(QStringLiteral("plain")) + biffText(QString::fromUtf8("weite Wörter €"));
    return record(RecordId::SupBook, words({1}) + QByteArray("\x05\0\0b.xls", 8) + biffText(QStringLiteral("S")))
           + record(RecordId::ExternName, words({0, 0, 0}) + QByteArray("\1\0x", 3) + words({0}))
           + record(RecordId::SupBook, words({3, 0x0401})) + record(RecordId::ExternSheet, words({2, 1, 1, 1, 0, 0, 0}))
           + record(RecordId::Name, QByteArray::fromHex("000000050700000000000000000000546f74616c3b000000000100000000"))
           + record(RecordId(0x01C1), words({0x01C1, 0, 0x1234, 5})) + record(RecordId::DrawingGroup, "drawings of all")
           + record(RecordId::SharedStrings, texts)
           + record(RecordId::ExtendedStrings, words({8}) + dword(1) + dword(2))
           + record(unknownGlobal, "settings of later programs");
}

QByteArray dataSheet()
{
    QByteArray records = record(RecordId::CalcMode, words({1})) + record(RecordId::DefaultRowHeight, words({0, 255}))
                         + record(RecordId::Setup, QByteArray(34, 'p'))
                         + record(RecordId::DefaultColumnWidth, words({8}))
                         + record(RecordId::ColumnInfo, words({1, 3, 5120, 15, 0x0100, 0}))
                         + record(RecordId::Dimensions, dword(0) + dword(6) + words({0, 4, 0}));
    records += row(0) + row(1) + row(2, 400, 0x000F0142) + row(3) + row(4) + row(5);
    // Twice the cell to the left, in D1:D4.
    const QByteArray shared = record(
        RecordId::SharedFormula, words({0, 3}) + QByteArray::fromHex("030300040a004c0000ffc01e02000515"));
    const QByteArray ofFirst = "0100000300";
    records += cell(RecordId::LabelShared, 0, 0, dword(0)) + formula(0, 3, 1, ofFirst, 8) + shared;
    records += cell(RecordId::LabelShared, 1, 0, dword(2)) + formula(1, 3, 2, ofFirst, 8);
    records += cell(RecordId::Number, 2, 0, real(12.5)) + formula(2, 3, 3, ofFirst, 8);
    records += formula(3, 3, 4, ofFirst, 8);
    records += formula(4, 0, 100, "5a0000000000c0") + formula(5, 0, 7, "5a0100000000c0");
    records += record(RecordId::DBCell, dword(77) + words({1, 2})) + record(RecordId::Drawing, "a drawing")
               + record(RecordId::ObjectRecord, "an object") + bofRecord(0x0020)
               + record(RecordId::Number, "not a cell but of the chart") + record(RecordId::Eof)
               + record(RecordId::Note, "a note") + record(RecordId::Window2, QByteArray(18, 'w'))
               + record(RecordId::MergedCells, words({1, 10, 11, 0, 1}))
               + record(RecordId::ConditionalFormats, "conditions") + record(RecordId::ConditionalFormatRule, "rule");
    const QByteArray link = words({1, 1, 0, 0}) + QByteArray::fromHex("d0c9ea79f9bace118c8200aa004ba90b") + dword(2)
                            + dword(8) + dword(2) + words({'X', 0});
    return records + record(RecordId::HyperLink, link)
           + record(RecordId::HyperLinkTooltip, words({0x0800, 1, 1, 0, 0, 'T', 0}))
           + record(RecordId::DataValidations, QByteArray(18, 'v')) + record(unknownOfSheet, "protected ranges");
}

/// With an index whose positions are right once the sheet stands at `begin`.
QByteArray otherSheet(quint32 begin)
{
    const QByteArray bof = bofRecord(0x0010);
    const QByteArray width = record(RecordId::DefaultColumnWidth, words({8}));
    const QByteArray cells = record(RecordId::Dimensions, dword(0) + dword(1) + words({0, 1, 0})) + row(0)
                             + cell(RecordId::LabelShared, 0, 0, dword(1));
    const int indexSize = 4 + 20;
    const quint32 widthAt = begin + quint32(bof.size()) + indexSize;
    const quint32 blockAt = widthAt + quint32(width.size() + cells.size());
    return record(RecordId::Index, dword(0) + dword(0) + dword(1) + dword(widthAt) + dword(blockAt)) + width + cells
           + record(RecordId::DBCell, dword(34) + words({0})) + record(RecordId::Window2, QByteArray(18, 'w'));
}

} // namespace

XlsTestBook foreignXls()
{
    XlsTestBook book;
    book.globals = globals();
    book.globalsBehindSheets = globalsBehindSheets();
    book.sheets = {{QStringLiteral("Data"), dataSheet()}, {QStringLiteral("Other"), otherSheet(0)},
        {QStringLiteral("Chart"), record(RecordId(0x1001), "chart"), 2}};
    book.sheets[1].records = otherSheet(sheetBegin(book.stream(), 1));
    return book;
}

QByteArray foreignXlsFile(const QByteArray &stream)
{
    const auto part = [](const char *path, const QByteArray &content, bool isStorage = false) {
        CompoundPart made;
        made.path = QString::fromLatin1(path);
        made.content = content;
        made.isStorage = isStorage;
        return made;
    };
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    CompoundFile().write(buffer,
        {part("\5SummaryInformation", "who wrote it"), part("Workbook", stream),
            part("_signatures", "of the old content"), part("_VBA_PROJECT_CUR", {}, true),
            part("_VBA_PROJECT_CUR/PROJECT", QByteArray(5000, 'm'))},
        nullptr);
    return buffer.data();
}

quint32 sheetBegin(const QByteArray &stream, int sheet)
{
    const QList<QByteArray> sheets = recordsOf(stream, RecordId::BoundSheet);
    return sheet < sheets.size() ? qFromLittleEndian<quint32>(sheets[sheet].constData())
                                 : static_cast<quint32>(stream.size());
}

QByteArray sheetBytes(const QByteArray &stream, int sheet)
{
    const quint32 begin = sheetBegin(stream, sheet);
    return stream.mid(int(begin), int(sheetBegin(stream, sheet + 1) - begin));
}

QByteArray globalBytes(const QByteArray &stream)
{
    return stream.left(int(sheetBegin(stream, 0)));
}

QList<QByteArray> recordsOf(const QByteArray &part, RecordId id)
{
    QList<QByteArray> found;
    RecordReader records(reinterpret_cast<const uchar *>(part.constData()), quint32(part.size()));
    while (records.next()) {
        if (records.record().id == id) {
            found.append({reinterpret_cast<const char *>(records.record().data), int(records.record().size)});
        }
    }
    return found;
}

QByteArray withoutRecords(const QByteArray &part, const QList<RecordId> &ids)
{
    QByteArray kept;
    RecordReader records(reinterpret_cast<const uchar *>(part.constData()), quint32(part.size()));
    while (records.next()) {
        if (!ids.contains(records.record().id)) {
            kept.append({reinterpret_cast<const char *>(records.record().begin()),
                int(records.record().end() - records.record().begin())});
        }
    }
    return kept;
}
