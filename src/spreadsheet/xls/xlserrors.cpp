#include "spreadsheet/xls/xlserrors.h"

namespace spreadsheet {
namespace {

/// Records that begin workbooks from before there were compound files: 0009, 0209 and 0409, with their sizes.
bool isOldWorkbook(const QByteArray &head)
{
    const auto at = [&head](int place) { return place < head.size() ? static_cast<uchar>(head.at(place)) : 0; };
    const bool hasVersion = at(1) == 0 || at(1) == 2 || at(1) == 4;
    return at(0) == 0x09 && hasVersion && (at(2) == 4 || at(2) == 6 || at(2) == 8) && at(3) == 0 && head.size() > 4;
}

QString notXls(const char *what)
{
    return QStringLiteral("The file is %1, not an .xls workbook.").arg(QLatin1String(what));
}

} // namespace

QString damagedText(const QString &what)
{
    return QStringLiteral("The workbook is damaged: %1.").arg(what);
}

QString encryptedText()
{
    return QStringLiteral("The workbook is encrypted.");
}

QString oldVersionText()
{
    return QStringLiteral("The workbook is of a version before 5.0 and 95, which isn't supported.");
}

QString foreignFileText(const QByteArray &head)
{
    if (isOldWorkbook(head)) {
        return oldVersionText();
    }
    if (head.startsWith(QByteArrayLiteral("PK\3\4"))) {
        return notXls("an .xlsx workbook or another zip archive");
    }
    const bool hasMark = head.startsWith(QByteArrayLiteral("\xEF\xBB\xBF"));
    const QByteArray text = head.mid(hasMark ? 3 : 0).trimmed().toLower();
    if (text.startsWith("<html") || text.startsWith("<!doctype html") || text.startsWith("<table")) {
        return notXls("an HTML page");
    }
    if (text.startsWith("<")) {
        return notXls("an XML document");
    }
    const bool isUtf16 = head.startsWith(QByteArrayLiteral("\xFF\xFE"))
                         || head.startsWith(QByteArrayLiteral("\xFE\xFF"));
    if (!text.isEmpty() && (isUtf16 || !head.contains('\0'))) {
        return notXls("a text file");
    }
    return QStringLiteral("The file is not an .xls workbook.");
}

} // namespace spreadsheet
