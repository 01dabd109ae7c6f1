#include "spreadsheet/xls/celltablewriter.h"
#include "spreadsheet/xls/recordreader.h"
#include "spreadsheet/xls/sheetlayoutwriter.h"
#include "spreadsheet/xls/substreams.h"
#include "spreadsheet/xls/xlssheetwriter.h"

namespace spreadsheet {
namespace {

/// Goes through a sheet of the file and writes it with what is new in place of what it replaces.
class ChangedSheetWriter
{
public:
    ChangedSheetWriter(SaveContext &context, const Sheet &sheet, const XlsSource::SheetPart &part, RecordWriter &out)
        : m_context(context)
        , m_layout(sheet.layout())
        , m_cells(context, sheet, SharedFormulas(*context.source, part), out)
        , m_records(stream(*context.source), part.offset + part.size, part.offset)
        , m_out(out)
    {
        findTooltips();
    }

    void write()
    {
        m_records.next();
        m_out.copy(m_records.record()); // BOF
        while (m_records.next()) {
            writeRecord();
        }
    }

private:
    static const uchar *stream(const XlsSource &source)
    {
        return reinterpret_cast<const uchar *>(source.workbook.constData());
    }

    void findTooltips()
    {
        RecordReader records = m_records;
        while (records.next()) {
            if (records.record().id == RecordId::HyperLinkTooltip) {
                m_tooltips.push_back(records.record());
            }
        }
    }

    static bool isCell(RecordId id);
    static bool comesBehindMerges(RecordId id);
    static bool comesBehindLinks(RecordId id);
    bool isReplaced(RecordId id) const;
    void writeRecord();
    void writeWhatComesBefore(RecordId id);
    void writeColumnsOnce();
    void writeCellsOnce();
    void writeMergesOnce();
    void writeLinksOnce();

    SaveContext &m_context;
    const SheetLayout &m_layout;
    CellTableWriter m_cells;
    RecordReader m_records;
    RecordWriter &m_out;
    std::vector<Record> m_tooltips;
    bool m_hasColumns = false, m_hasCells = false, m_isBehindWindow = false, m_hasMerges = false, m_hasLinks = false;
};

/// Records of the rows and cells, and those that tell where they stand.
bool ChangedSheetWriter::isCell(RecordId id)
{
    switch (id) {
    case RecordId::Dimensions:
    case RecordId::Index:
    case RecordId::DBCell:
    case RecordId::Row:
    case RecordId::Formula:
    case RecordId::FormulaOfVersion3:
    case RecordId::FormulaOfVersion4:
    case RecordId::Array:
    case RecordId::SharedFormula:
    case RecordId::Table:
    case RecordId::String:
    case RecordId::Blank:
    case RecordId::MultipleBlank:
    case RecordId::Number:
    case RecordId::Rk:
    case RecordId::MultipleRk:
    case RecordId::Label:
    case RecordId::RichLabel:
    case RecordId::LabelShared:
    case RecordId::BoolError:
        return true;
    default:
        return false;
    }
}

bool ChangedSheetWriter::comesBehindMerges(RecordId id)
{
    switch (static_cast<unsigned>(id)) {
    case 0x00EF: // phonetic settings
    case 0x015F: // label ranges
    case 0x0879: // conditional formats with more than three rules
    case static_cast<unsigned>(RecordId::ConditionalFormats):
    case static_cast<unsigned>(RecordId::HyperLink):
    case static_cast<unsigned>(RecordId::HyperLinkTooltip):
        return true;
    default:
        return comesBehindLinks(id);
    }
}

bool ChangedSheetWriter::comesBehindLinks(RecordId id)
{
    switch (static_cast<unsigned>(id)) {
    case static_cast<unsigned>(RecordId::DataValidations):
    case static_cast<unsigned>(RecordId::CodeName):
    case static_cast<unsigned>(RecordId::SheetExtension):
    case 0x0863: // extended workbook settings
    case 0x0867: // features such as protected ranges
    case 0x0868:
    case 0x0871:
    case 0x0872:
    case 0x0878:
    case static_cast<unsigned>(RecordId::Eof):
        return true;
    default:
        return false;
    }
}

bool ChangedSheetWriter::isReplaced(RecordId id) const
{
    switch (id) {
    case RecordId::ColumnInfo:
        return m_layout.columnsChanged;
    case RecordId::MergedCells:
        return m_layout.mergesChanged;
    case RecordId::HyperLink:
    case RecordId::HyperLinkTooltip:
        return m_layout.hyperlinksChanged;
    default:
        return isCell(id);
    }
}

void ChangedSheetWriter::writeRecord()
{
    const RecordId id = m_records.record().id;
    writeWhatComesBefore(id);
    if (isReplaced(id)) {
        if (id == RecordId::LabelShared) {
            m_context.texts.dropUse();
        }
        while (m_records.nextIf(RecordId::Continue)) {
        }
        return;
    }
    const Record begin = m_records.record();
    if (id == RecordId::Bof) { // a chart
        skipSubstream(m_records);
    }
    const auto *bytes = reinterpret_cast<const char *>(begin.begin());
    m_out.buffer().bytes(bytes, static_cast<int>(m_records.record().end() - begin.begin()));
}

void ChangedSheetWriter::writeWhatComesBefore(RecordId id)
{
    if (id == RecordId::ColumnInfo || (isCell(id) && id != RecordId::Index)) {
        writeColumnsOnce();
    }
    if (isCell(id) && id != RecordId::Index) {
        writeCellsOnce();
    }
    if (id == RecordId::Window2 || id == RecordId::Eof) {
        writeColumnsOnce();
        writeCellsOnce();
        m_isBehindWindow = true;
    }
    if (m_isBehindWindow && (id == RecordId::MergedCells || comesBehindMerges(id))) {
        writeMergesOnce();
    }
    if (m_isBehindWindow && (id == RecordId::HyperLink || comesBehindLinks(id))) {
        writeLinksOnce();
    }
}

void ChangedSheetWriter::writeColumnsOnce()
{
    if (!m_hasColumns && m_layout.columnsChanged) {
        writeColumns(m_layout, m_context.styles, m_out);
    }
    m_hasColumns = true;
}

void ChangedSheetWriter::writeCellsOnce()
{
    if (!m_hasCells) {
        m_cells.writeDimensions();
        m_cells.writeCells();
    }
    m_hasCells = true;
}

void ChangedSheetWriter::writeMergesOnce()
{
    if (!m_hasMerges && m_layout.mergesChanged) {
        writeMerges(m_layout, m_out);
    }
    m_hasMerges = true;
}

void ChangedSheetWriter::writeLinksOnce()
{
    if (!m_hasLinks && m_layout.hyperlinksChanged) {
        writeHyperlinks(m_layout, m_tooltips, m_out);
    }
    m_hasLinks = true;
}

} // namespace

void writeChangedSheet(SaveContext &context, const Sheet &sheet, const XlsSource::SheetPart &part, RecordWriter &out)
{
    ChangedSheetWriter(context, sheet, part, out).write();
}

void copySheet(const XlsSource &source, const XlsSource::SheetPart &part, qint64 shift, RecordWriter &out)
{
    constexpr quint32 firstPosition = 12, positionSize = 4;
    const int begin = out.position();
    out.buffer().bytes(source.workbook.constData() + part.offset, static_cast<int>(part.size));
    RecordReader records(
        reinterpret_cast<const uchar *>(source.workbook.constData()), part.offset + part.size, part.offset);
    while (shift != 0 && records.next()) {
        const Record &record = records.record();
        if (record.id != RecordId::Index) {
            continue;
        }
        const auto *sheet = reinterpret_cast<const uchar *>(source.workbook.constData()) + part.offset;
        const int inSheet = static_cast<int>(record.data - sheet);
        for (quint32 at = firstPosition; at + positionSize <= record.size; at += positionSize) {
            const quint32 position = record.u32(at);
            if (position >= part.offset && position < part.offset + part.size) {
                out.buffer().setU32(begin + inSheet + static_cast<int>(at), static_cast<quint32>(position + shift));
            }
        }
    }
}

} // namespace spreadsheet
