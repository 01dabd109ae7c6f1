#pragma once

#include "spreadsheet/bookfile.h"

namespace spreadsheet {

struct XlsxSource;

/// Workbooks of the Office Open XML kind: parts of XML in a zip archive.
class XlsxFile final : public BookFile
{
public:
    XlsxFile();
    ~XlsxFile() override;
    bool load(const QString &path, BookData &book) override;
    bool readSheet(int source, BookData &book, Sheet &sheet) override;
    bool hasCells(int source, BookData &book) override;
    bool save(const QString &path, BookData &book) override;

private:
    std::unique_ptr<XlsxSource> m_source; // the loaded file; null for a new book
};

} // namespace spreadsheet
