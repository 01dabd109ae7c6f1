#include "platform/filereplacement.h"
#include "spreadsheet/xls/compoundfile.h"
#include "spreadsheet/xls/globalswriter.h"
#include "spreadsheet/xls/xlsfile.h"
#include "spreadsheet/xls/xlssheetwriter.h"

#include <algorithm>

namespace spreadsheet {
namespace {

constexpr qint64 largestStream = CompoundFile::maxStreamSize;

/// The SST record of the file and the CONTINUE records behind it.
std::vector<Record> sharedTextRecords(const GlobalRecords &globals)
{
    const auto begin = std::find_if(
        globals.begin(), globals.end(), [](const Record &record) { return record.id == RecordId::SharedStrings; });
    if (begin == globals.end()) {
        return {};
    }
    const auto end = std::find_if(
        begin + 1, globals.end(), [](const Record &record) { return record.id != RecordId::Continue; });
    return {begin, end};
}

SaveContext makeContext(BookData &book, const XlsSource *source)
{
    const GlobalRecords globals = source ? globalRecords(*source) : GlobalRecords();
    return {book, source, globals, source ? StyleWriter(book, globals, source->defaultFormat) : StyleWriter(book),
        SharedTextsWriter(book.texts, source ? source->loadedTexts : 0, sharedTextRecords(globals)),
        SheetReferences(book, globals), {}, {}};
}

bool isChanged(const SheetEntry &entry)
{
    return entry.sheet && (entry.source < 0 || entry.sheet->isChanged());
}

/// Writes the sheets and what tells of the workbook into one stream.
class WorkbookStream
{
public:
    WorkbookStream(BookData &book, const XlsSource *source)
        : m_context(makeContext(book, source))
        , m_source(source)
    {
    }

    /// False when it would be larger than a file of this kind can be.
    bool write()
    {
        const std::vector<SheetEntry> &sheets = m_context.book.sheets;
        std::vector<RecordWriter> written(sheets.size());
        for (size_t i = 0; i < sheets.size(); ++i) {
            writeSheet(i, written[i]);
        }
        GlobalsWriter globals(m_context, m_stream);
        if (m_source) {
            globals.writeChanged(std::none_of(sheets.begin(), sheets.end(), isChanged));
        } else {
            globals.writeNew();
        }
        for (size_t i = 0; i < sheets.size(); ++i) {
            if (!appendSheet(sheets[i], written[i], globals, i)) {
                return false;
            }
        }
        return true;
    }

    const QByteArray &data() const { return m_stream.data(); }
    bool losesDates() const { return m_context.styles.losesDates(); }

    void appendWarnings()
    {
        QStringList &warnings = m_context.book.warnings;
        warnings += m_context.formulaWarnings.lines() + m_context.textWarnings.lines();
        if (m_context.styles.isFull()) {
            warnings.append(QStringLiteral(
                "The workbook has more cell formats than .xls can hold, some cells were written without theirs"));
        }
    }

private:
    /// Sheets that stay as they are follow later, since their places must be known.
    void writeSheet(size_t index, RecordWriter &out)
    {
        const SheetEntry &entry = m_context.book.sheets[index];
        if (entry.source < 0) {
            writeNewSheet(m_context, *entry.sheet, !m_source && index == 0, out);
        } else if (isChanged(entry)) {
            writeChangedSheet(m_context, *entry.sheet, m_source->sheets[static_cast<size_t>(entry.source)], out);
        }
    }

    bool appendSheet(const SheetEntry &entry, RecordWriter &written, GlobalsWriter &globals, size_t index)
    {
        const int begin = m_stream.position();
        const auto *part = entry.source < 0 ? nullptr : &m_source->sheets[static_cast<size_t>(entry.source)];
        const bool isCopied = part && !isChanged(entry);
        const qint64 size = isCopied ? static_cast<qint64>(part->size) : written.position();
        if (begin + size > largestStream) {
            return false;
        }
        globals.setSheetBegin(index, static_cast<quint32>(begin));
        if (isCopied) {
            copySheet(*m_source, *part, begin - static_cast<qint64>(part->offset), m_stream);
        } else {
            m_stream.buffer().bytes(written.data());
            written = RecordWriter(); // its memory is free for what follows
        }
        return true;
    }

    SaveContext m_context;
    const XlsSource *m_source;
    RecordWriter m_stream;
};

/// True for what would contradict the changed workbook: its other form for older programs, and its signatures.
bool isOutdated(const CompoundPart &part, const QString &streamName)
{
    const QString name = part.path.section(QLatin1Char('/'), 0, 0);
    const auto isNamed = [&name](const char *other) {
        return name.compare(QLatin1String(other), Qt::CaseInsensitive) == 0;
    };
    return (isNamed("Book") && name != streamName) || isNamed("_signatures") || isNamed("_xmlsignatures");
}

/// The parts of the file that is written: those of the loaded one with the workbook's stream replaced.
std::vector<CompoundPart> partsWith(const QByteArray &workbook, const CompoundFile &original, const QString &streamName)
{
    std::vector<CompoundPart> parts;
    for (const CompoundPart &part : original.parts()) {
        if (isOutdated(part, streamName)) {
            continue;
        }
        parts.push_back(part);
        if (part.path == streamName) {
            parts.back().content = workbook;
            parts.back().copyOf = -1;
        }
    }
    return parts;
}

std::vector<CompoundPart> newParts(const QByteArray &workbook)
{
    CompoundPart root, stream;
    root.isStorage = true;
    root.classId = QByteArray::fromHex("2008020000000000c000000000000046");
    stream.path = QStringLiteral("Workbook");
    stream.content = workbook;
    return {root, stream};
}

} // namespace

bool XlsFile::save(const QString &path, BookData &book)
{
    if (book.sheets.empty()) {
        return fail(QStringLiteral("A workbook needs a sheet."));
    }
    CompoundFile original;
    if (m_source && !original.open(m_source->path)) {
        return fail(QStringLiteral("The workbook that was read is no longer there."));
    }
    WorkbookStream stream(book, m_source.get());
    if (!stream.write()) {
        return fail(QStringLiteral("The workbook is too large for .xls."));
    }
    if (stream.losesDates()) {
        return fail(noFormatForDates());
    }
    const auto parts = m_source ? partsWith(stream.data(), original, m_source->streamName) : newParts(stream.data());
    platform::FileReplacement target(path);
    CompoundFile written;
    if (!target.open()) {
        return fail(target.error());
    }
    if (!written.write(target.file(), parts, &original)) {
        return fail(written.error().isEmpty() ? QStringLiteral("The file can't be written.") : written.error());
    }
    if (!target.commit()) {
        return fail(target.error());
    }
    stream.appendWarnings();
    return true;
}

} // namespace spreadsheet
