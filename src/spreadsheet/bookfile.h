#pragma once

#include <QString>
#include <memory>

namespace spreadsheet {

class Sheet;
struct BookData;
enum class FileKind;

/// How workbooks of one kind are read and written. It keeps of a loaded file what is needed to read its sheets later
/// and to carry over what the book knows nothing of. Each function that gives false leaves a text in error(); none
/// throws but std::bad_alloc.
class BookFile
{
public:
    virtual ~BookFile() = default;

    /// Fills an empty book with the sheets' names, the formats and the date system. Texts may follow with the first
    /// sheet.
    virtual bool load(const QString &path, BookData &book) = 0;
    /// Fills an empty sheet; `source` is its position in the file.
    virtual bool readSheet(int source, BookData &book, Sheet &sheet) = 0;
    /// Whether the sheet has a used cell, found without reading all of it.
    virtual bool hasCells(int source, BookData &book) = 0;
    /// Writes the book so that `path` holds either all of it or what it held before, see Book::save(). Sheets that are
    /// unchanged or were never read, and all parts that nobody knows, stay as they were in the loaded file.
    virtual bool save(const QString &path, BookData &book) = 0;

    const QString &error() const { return m_error; }

    static std::unique_ptr<BookFile> create(FileKind kind);
    /// Why a book isn't saved: in the usual format a date would be a number.
    static QString noFormatForDates()
    {
        return QStringLiteral(
            "The workbook has as many cell formats as it can hold, and none for dates and times as they are written");
    }

protected:
    /// Notes an error, in words for the user; false, for returning.
    bool fail(const QString &error)
    {
        m_error = error;
        return false;
    }

private:
    QString m_error;
};

} // namespace spreadsheet
