#include "outputs/excelwriter.h"

#include "files/excelmessages.h"
#include "files/filesheet.h"
#include "outputs/cellrows.h"
#include "outputs/excelbook.h"
#include "outputs/sheetrowwriter.h"
#include "platform/waitcursor.h"

#include <QFileInfo>
#include <new>

namespace {

constexpr int progressStep = 1000;

/// Why a workbook may refuse a sheet's name.
QString refusalText(const QString &path, const QString &name)
{
    QString text = QStringLiteral("Unable to add sheet to '%1'.").arg(path);
    if (name.isEmpty()) {
        text += QStringLiteral("\nSheet name cannot be empty.");
    }
    if (name.size() > spreadsheet::maxSheetNameLength) {
        text += QStringLiteral(
            "\nSheet name length is %1 characters. Excel maximum sheet name length is %2 characters.")
                    .arg(QString::number(name.size()), QString::number(spreadsheet::maxSheetNameLength));
    }
    for (const QChar c : QStringLiteral("\\/*?:[]")) {
        if (name.contains(c)) {
            text += QStringLiteral("\n'%1' is not allowed in Excel sheet names.").arg(c);
        }
    }
    if (name.startsWith(QLatin1Char('\'')) || name.endsWith(QLatin1Char('\''))) {
        text += QStringLiteral("\nApostrophes (') are not allowed at the start or end of Excel sheet names.");
    }
    if (name.toLower() == QLatin1String("history")) {
        text += QStringLiteral("\n'History' is a reserved Excel sheet name.");
    }
    return text;
}

void empty(spreadsheet::Sheet &sheet, spreadsheet::FileKind kind)
{
    sheet.clear(0, maxRows(kind) - 1, 0, maxColumns(kind) - 1);
    for (int i = sheet.hyperlinkSize() - 1; i >= 0; --i) {
        sheet.delHyperlink(i);
    }
    // Values inside a merged range would be there and not be seen.
    for (int i = sheet.mergeSize() - 1; i >= 0; --i) {
        sheet.delMerge(i);
    }
}

/// One write, from the request to the saved file.
class SheetWriting
{
public:
    SheetWriting(const ExcelWriteRequest &request, ExcelWriteReport *report)
        : m_request(request)
        , m_report(*report)
        , m_shownPath(absoluteNativePath(request.path))
        , m_book(ExcelBook::kindOf(request.fileType))
    {
    }

    bool write()
    {
        if (!openSheet()) {
            return false;
        }
        if (!m_sheet) {
            m_sheet = m_book.addSheet(m_request.sheet);
        }
        if (!m_sheet) {
            return fail(refusalText(m_shownPath, m_request.sheet));
        }
        writeRows();
        if (!m_book.save(m_request.path)) {
            const QString text = QStringLiteral("Unable to save to '%1'. If this file is already open, close it and "
                                                "click the write to file button in the 'Data' tab.");
            return fail(ExcelMessages::withReason(text.arg(m_shownPath), m_book.errorMessage()));
        }
        m_report.warnings += m_book.warnings();
        return true;
    }

private:
    bool fail(const QString &error)
    {
        m_report.error = error;
        return false;
    }

    /// Finds the sheet in the file that is there, ready to be written to from m_nextRow on. False when the file can't
    /// be read: what else it holds would be lost.
    bool openSheet()
    {
        const QFileInfo file(m_request.path);
        if (!m_request.overwriteSheet || !file.isFile() || file.size() == 0) {
            return true;
        }
        if (!m_book.load(m_request.path)) {
            return fail(ExcelMessages::notLoaded(m_request.path, m_book.errorMessage()));
        }
        if (!m_book.whyUnchangeable().isEmpty()) {
            const QString text = QStringLiteral("Unable to change Excel workbook '%1'.").arg(m_shownPath);
            return fail(ExcelMessages::withReason(text, m_book.whyUnchangeable()));
        }
        const int index = ExcelBook::indexOfSheet(m_book, m_request.sheet, Qt::CaseSensitive);
        m_sheet = m_book.getSheet(index);
        if (!m_sheet) {
            const bool isDamaged = m_book.sheetType(index) == 0;
            return !isDamaged || fail(ExcelMessages::notLoaded(m_request.path, m_book.errorMessage()));
        }
        if (m_request.append) {
            m_nextRow = m_sheet->lastRow();
        } else {
            empty(*m_sheet, m_book.kind());
        }
        return true;
    }

    void writeRows()
    {
        const Dataset &dataset = *m_request.dataset;
        const QStringList names = dataset.columnNames();
        SheetRowWriter writer(&m_book, m_sheet, m_request.formats, dataset.columnCount());
        if (m_request.writeHeader) {
            writer.writeHeader(m_nextRow++, names);
        }
        const CellRows cells(dataset);
        for (int row = 0; row < cells.rowCount(); ++row) {
            if (row % progressStep == 0 && m_request.progress) {
                m_request.progress(row, cells.rowCount());
            }
            writer.writeRow(m_nextRow + row, cells, row);
        }
        m_report.warnings += writer.warnings();
        m_report.textChanges = writer.textChanges().line(names);
    }

    const ExcelWriteRequest &m_request;
    ExcelWriteReport &m_report;
    const QString m_shownPath;
    spreadsheet::Book m_book;
    spreadsheet::Sheet *m_sheet = nullptr;
    int m_nextRow = 0;
};

} // namespace

bool writeSheet(const ExcelWriteRequest &request, ExcelWriteReport *report)
{
    *report = ExcelWriteReport();
    if (request.path.trimmed().isEmpty()) {
        return false;
    }
    const WaitCursor waiting;
    try {
        return SheetWriting(request, report).write();
    } catch (const std::bad_alloc &) {
        report->error = QStringLiteral("Unable to open/create Excel workbook '%1'.")
                            .arg(absoluteNativePath(request.path));
        return false;
    }
}

bool isSheetEmpty(int fileType, const QString &path, const QString &sheet)
{
    spreadsheet::Book book(ExcelBook::kindOf(fileType));
    return !book.load(path) || !book.sheetHasCells(ExcelBook::indexOfSheet(book, sheet, Qt::CaseInsensitive));
}
