#include "graph/excellimits.h"

#include "graph/filetypes.h"

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

} // namespace

QString ExcelLimits::warning(int fileType, int rows, int columns)
{
    for (const Limit &limit : limits) {
        if (limit.type == fileType && (rows > limit.rows || columns > limit.columns)) {
            return QStringLiteral("The output dataset exceeds the maximum size for an Excel .%3 file of %1 rows x %2 "
                                  "columns. It may be truncated.")
                .arg(QString::number(limit.rows), QString::number(limit.columns), QString::fromLatin1(limit.extension));
        }
    }
    return QString();
}
