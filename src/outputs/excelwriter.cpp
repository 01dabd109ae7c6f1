#include "outputs/excelwriter.h"

#include "graph/ionode.h"
#include "graph/waitcursor.h"
#include "outputs/cellrows.h"
#include "outputs/excelbook.h"
#include "outputs/sheetrowwriter.h"

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
    SheetWriting(const ExcelWriteRequest &request, QString *error, QStringList *warnings)
        : m_request(request)
        , m_error(*error)
        , m_warnings(*warnings)
        , m_shownPath(IONode::absoluteNativePath(request.path))
        , m_book(ExcelBook::kindOf(request.fileType))
    {
    }

    bool write()
    {
        spreadsheet::Sheet *sheet = m_request.overwriteSheet && QFileInfo::exists(m_request.path) ? openSheet()
                                                                                                  : nullptr;
        if (!sheet) {
            sheet = m_book.addSheet(m_request.sheet);
        }
        if (!sheet) {
            m_error = refusalText(m_shownPath, m_request.sheet);
            return false;
        }
        writeRows(*sheet);
        if (!m_book.save(m_request.path)) {
            const QString text = QStringLiteral("Unable to save to '%1'. If this file is already open, close it and "
                                                "click the write to file button in the 'Data' tab.");
            m_error = text.arg(m_shownPath);
            return false;
        }
        m_warnings += m_book.warnings();
        return true;
    }

private:
    /// The sheet of the file that is there, ready to be written to from m_nextRow on; null when there is none.
    spreadsheet::Sheet *openSheet()
    {
        if (!m_book.load(m_request.path)) {
            if (QFileInfo(m_request.path).size() > 0) {
                m_warnings.append(QStringLiteral("Unable to load Excel workbook '%1' information.").arg(m_shownPath));
            }
            return nullptr;
        }
        const int index = ExcelBook::indexOfSheet(m_book, m_request.sheet, Qt::CaseSensitive);
        spreadsheet::Sheet *sheet = m_book.getSheet(index);
        if (!sheet) {
            return nullptr;
        }
        if (m_request.append) {
            m_nextRow = sheet->lastRow();
        } else {
            empty(*sheet, m_book.kind());
        }
        return sheet;
    }

    void writeRows(spreadsheet::Sheet &sheet)
    {
        const Dataset &dataset = *m_request.dataset;
        SheetRowWriter writer(&m_book, &sheet, m_request.formats, dataset.columnCount());
        if (m_request.writeHeader) {
            writer.writeHeader(m_nextRow++, dataset.columnNames());
        }
        const CellRows cells(dataset);
        for (int row = 0; row < cells.rowCount(); ++row) {
            if (row % progressStep == 0 && m_request.progress) {
                m_request.progress(row, cells.rowCount());
            }
            writer.writeRow(m_nextRow + row, cells, row);
        }
        m_warnings += writer.warnings();
    }

    const ExcelWriteRequest &m_request;
    QString &m_error;
    QStringList &m_warnings;
    const QString m_shownPath;
    spreadsheet::Book m_book;
    int m_nextRow = 0;
};

} // namespace

bool writeSheet(const ExcelWriteRequest &request, QString *error, QStringList *warnings)
{
    if (request.path.trimmed().isEmpty()) {
        return false;
    }
    const WaitCursor waiting;
    try {
        return SheetWriting(request, error, warnings).write();
    } catch (const std::bad_alloc &) {
        *error = QStringLiteral("Unable to open/create Excel workbook '%1'.")
                     .arg(IONode::absoluteNativePath(request.path));
        return false;
    }
}

bool isSheetEmpty(int fileType, const QString &path, const QString &sheet)
{
    spreadsheet::Book book(ExcelBook::kindOf(fileType));
    return !book.load(path) || !book.sheetHasCells(ExcelBook::indexOfSheet(book, sheet, Qt::CaseInsensitive));
}
