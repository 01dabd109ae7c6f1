#include "files/excellimits.h"

#include "settings/filetypes.h"

namespace {

struct Limit
{
    int type;
    int rows;
    int columns;
    const char *extension;
};

constexpr Limit limits[] = {
    {FileType::ExcelXlsx, 0x100000, 16384, "xlsx"},
    {FileType::ExcelXls, 0x10000, 256, "xls"},
};

/// Null when the table fits.
const Limit *exceededLimit(int fileType, int rows, int columns)
{
    for (const Limit &limit : limits) {
        if (limit.type == fileType && (rows > limit.rows || columns > limit.columns)) {
            return &limit;
        }
    }
    return nullptr;
}

QString filled(const QString &text, const Limit &limit)
{
    return text.arg(QString::number(limit.rows), QString::number(limit.columns), QString::fromLatin1(limit.extension));
}

} // namespace

QString ExcelLimits::warning(int fileType, int rows, int columns)
{
    const Limit *limit = exceededLimit(fileType, rows, columns);
    const QString text = QStringLiteral("The output dataset exceeds the maximum size for an Excel .%3 file of %1 rows "
                                        "x %2 columns. It may be truncated.");
    return limit ? filled(text, *limit) : QString();
}

QString ExcelLimits::writingWarning(int fileType, int rows, int columns)
{
    const Limit *limit = exceededLimit(fileType, rows, columns);
    QString text = QStringLiteral("The output dataset exceeds the maximum size for an Excel .%3 file of %1 rows x %2 "
                                  "columns, it may be truncated by Excel");
    if (fileType == FileType::ExcelXls) {
        text += QStringLiteral(" (the Excel .xlsx format supports larger files)");
    }
    return limit ? filled(text, *limit) : QString();
}
