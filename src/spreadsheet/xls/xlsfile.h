#pragma once

#include "spreadsheet/bookfile.h"

namespace spreadsheet {

struct XlsSource;

/// Workbooks of the BIFF kind: records in a stream of a compound file. Those of BIFF5 are only read.
class XlsFile final : public BookFile
{
public:
    XlsFile();
    ~XlsFile() override;
    bool load(const QString &path, BookData &book) override;
    bool readSheet(int source, BookData &book, Sheet &sheet) override;
    bool hasCells(int source, BookData &book) override;
    bool save(const QString &path, BookData &book) override;

private:
    std::unique_ptr<XlsSource> m_source; // the loaded file; null for a new book
};

} // namespace spreadsheet
