#include "outputs/sheetstyle.h"

#include "files/filesheet.h"
#include "outputs/excelbook.h"
#include "platform/waitcursor.h"

#include <QFileInfo>
#include <map>
#include <utility>

using spreadsheet::Book;
using spreadsheet::Format;
using spreadsheet::Sheet;

namespace {

bool isSameFile(const QString &a, const QString &b)
{
    return QFileInfo(a) == QFileInfo(b);
}

/// Null with the reason in `error`.
Sheet *open(Book &book, const QString &path, const QString &sheet, QString *error)
{
    const QString shownPath = absoluteNativePath(path);
    if (!book.load(path)) {
        *error = QStringLiteral("Unable to read '%1'.").arg(shownPath);
        return nullptr;
    }
    Sheet *found = book.getSheet(ExcelBook::indexOfSheet(book, sheet, Qt::CaseInsensitive));
    if (!found) {
        *error = QStringLiteral("Unable to read sheet '%1' from '%2'.").arg(sheet, shownPath);
    }
    return found;
}

/// Copies from one sheet to another, whose book it adds formats to.
class StyleCopy
{
public:
    StyleCopy(const Book &from, const Sheet &model, Book *book, Sheet *sheet)
        : m_from(from)
        , m_model(model)
        , m_book(book)
        , m_sheet(sheet)
        , m_firstColumn(qMin(model.firstCol(), sheet->firstCol()))
        , m_lastColumn(qMax(model.lastCol(), sheet->lastCol()))
        , m_firstRow(qMin(model.firstRow(), sheet->firstRow()))
        , m_lastRow(qMax(model.lastRow(), sheet->lastRow()))
    {
    }

    void copy()
    {
        copyColumns();
        for (int i = 0; i < m_model.mergeSize(); ++i) {
            m_sheet->setMerge(m_model.merge(i));
        }
        copyRows();
        copyFormats();
    }

private:
    void copyColumns()
    {
        const double usual = m_model.layout().defaultWidth;
        for (int i = m_firstColumn; i < m_lastColumn; ++i) {
            const double own = m_model.colWidth(i);
            const double width = own < 0 ? usual : own;
            const bool hidden = m_model.colHidden(i);
            if (width != m_sheet->colWidth(i) || hidden != m_sheet->colHidden(i)) {
                m_sheet->setCol(i, width, hidden);
            }
        }
    }

    void copyRows()
    {
        for (int i = m_firstRow; i < m_lastRow; ++i) {
            const double height = m_model.rowHeight(i);
            const bool hidden = m_model.rowHidden(i);
            if (height != m_sheet->rowHeight(i) || hidden != m_sheet->rowHidden(i)) {
                m_sheet->setRow(i, height, hidden);
            }
        }
    }

    void copyFormats()
    {
        for (const auto &row : m_model.cells()) {
            for (const spreadsheet::CellRecord &cell : row.second.cells) {
                if (const Format *format = m_from.format(cell.format)) {
                    m_sheet->setCellFormat(row.first, cell.column, formatFor(*format, row.first, cell.column));
                }
            }
        }
    }

    /// The template's format in the target's book. A date stays a date, and a time a time, where the template shows
    /// plain numbers: only the look is copied, no content.
    const Format *formatFor(const Format &model, int row, int column)
    {
        int dateNumber = 0;
        if (!showsAsWell(model, row, column) && m_sheet->isDate(row, column)) {
            const Format *present = m_sheet->cellFormat(row, column);
            dateNumber = present->style().numberCode.isEmpty() ? present->style().numberFormat : 0;
        }
        const Format *&copied = m_copied[{model.index(), dateNumber}];
        if (!copied) {
            Format *added = m_book->addFormat(&model);
            if (dateNumber != 0) {
                added->setNumFormat(dateNumber);
            }
            copied = added;
        }
        return copied;
    }

    /// A time of day reads as well as a span of time, a date doesn't.
    bool showsAsWell(const Format &model, int row, int column) const
    {
        return model.isDate()
               || (model.meaning() == spreadsheet::NumberMeaning::ElapsedTime && m_sheet->readNum(row, column) < 1.0);
    }

    const Book &m_from;
    const Sheet &m_model;
    Book *m_book;
    Sheet *m_sheet;
    const int m_firstColumn, m_lastColumn, m_firstRow, m_lastRow;
    std::map<std::pair<quint32, int>, const Format *> m_copied; // by template format and number format kept
};

} // namespace

bool copySheetStyle(const SheetPlace &model, const SheetPlace &target, QString *error)
{
    if (isSameFile(model.file, target.file) && model.sheet.toLower() == target.sheet.toLower()) {
        *error = QStringLiteral("Cannot use a sheet as it's own style template.");
        return false;
    }
    const WaitCursor waiting;
    Book from(ExcelBook::kindOf(model.fileType));
    const Sheet *modelSheet = open(from, model.file, model.sheet, error);
    if (!modelSheet) {
        return false;
    }
    Book book(ExcelBook::kindOf(target.fileType));
    Sheet *targetSheet = open(book, target.file, target.sheet, error);
    if (!targetSheet) {
        return false;
    }
    StyleCopy(from, *modelSheet, &book, targetSheet).copy();
    if (!book.save(target.file)) {
        *error = QStringLiteral("Unable to save changes to '%1'.").arg(absoluteNativePath(target.file));
        return false;
    }
    return true;
}
