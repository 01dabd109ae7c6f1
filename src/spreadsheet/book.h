#pragma once

#include "spreadsheet/font.h"
#include "spreadsheet/format.h"
#include "spreadsheet/sheet.h"
#include "spreadsheet/sizes.h"

#include <QStringList>
#include <memory>
#include <vector>

namespace spreadsheet {

class BookFile;
struct BookData;
struct CellRecord;
struct DateParts;

/// A workbook, .xlsx or .xls: read, made anew or changed. Sheets are read from the file when they are first asked for.
/// What a loaded file holds beyond cells and layout of sheets stays as it is when the book is saved.
class Book
{
public:
    explicit Book(FileKind kind);
    ~Book();
    Q_DISABLE_COPY(Book)

    FileKind kind() const;
    /// False for a file that can't be read as a workbook of this kind; the book is then empty, and errorMessage() says
    /// why. For a book that nothing was done with yet.
    bool load(const QString &path);
    const QString &errorMessage() const { return m_error; }

    int sheetCount() const;
    /// 0 for a worksheet, else a chart or macro sheet.
    int sheetType(int index) const;
    QString getSheetName(int index) const;
    /// Null when there is no such sheet, when it isn't a worksheet or when it can't be read, see errorMessage().
    Sheet *getSheet(int index);
    /// True when the sheet has a used cell; costs little.
    bool sheetHasCells(int index);
    /// Forgets a sheet that was read and not changed; it will be read again when it is asked for.
    void releaseSheet(int index);
    /// A new sheet behind the others; null for a name that is empty, too long, taken in any case, reserved, begins or
    /// ends with an apostrophe, or holds one of \ / * ? : [ ].
    Sheet *addSheet(const QString &name);

    /// Lives as long as the book.
    Font *addFont();
    /// A new format, like `like` when that is given, which may be one of another book.
    Format *addFormat(const Format *like = nullptr);

    bool dateUnpack(double value, DateParts *parts) const;
    /// A year of 0 gives the time of day alone; -1 for dates that the book can't hold.
    double datePack(int year, int month, int day, int hour, int minute, int second, int msec) const;

    /// Why this book, which was loaded, can be read but not saved, in a whole sentence; empty when it can be saved.
    const QString &whyUnchangeable() const;
    /// False when the file can't be written, see errorMessage(); what was there before is then still there. A book
    /// without sheets can't be saved, and only a plain file is replaced. Where the folder can't be written but the file
    /// can, it is written in place: a book that was loaded from it is to be loaded anew before more is done with it.
    bool save(const QString &path);
    /// What save() or load() could not keep as it was meant.
    const QStringList &warnings() const;

    /// UTF-8, by the number that cells of its sheets hold; valid until the book changes.
    std::string_view text(quint32 id) const;
    const Format *format(quint32 index) const;
    /// As Sheet::isDate().
    bool isDate(const CellRecord &cell) const;

private:
    bool isNameFree(const QString &name) const;

    std::unique_ptr<BookData> m_data;
    std::unique_ptr<BookFile> m_file;
    std::vector<std::unique_ptr<Font>> m_fonts;
    QString m_error;
};

} // namespace spreadsheet
