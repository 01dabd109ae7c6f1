#include "outputs/outputoptions.h"

#include "settings/optionwalk.h"
#include "settings/product.h"

#include <QFileInfo>

QString OutputOptions::defaultFileComment()
{
    return QStringLiteral(" File created by %1 %2 at %3 %4 ")
        .arg(QLatin1String(Product::name), QStringLiteral("{version}"), QStringLiteral("{date}"),
            QStringLiteral("{time}"));
}

bool OutputOptions::isTabbed(const QString &path)
{
    return QFileInfo(path).suffix().startsWith(QLatin1Char('t'));
}

bool OutputOptions::applies(OutputOption option) const
{
    const bool isText = !FileType::isExcel(fileType);
    const bool hasHeader = !isText || fileType == FileType::Delimited || fileType == FileType::Html
                           || fileType == FileType::Markdown || fileType == FileType::PlainText;
    switch (option) {
    case OutputOption::Delimiter:
    case OutputOption::Quoting:
        return fileType == FileType::Delimited;
    case OutputOption::LineEndings:
    case OutputOption::Encoding:
        return isText;
    case OutputOption::ByteOrderMark:
        return isText && encoding.contains(QLatin1String("utf"), Qt::CaseInsensitive);
    case OutputOption::ExcelFormatting:
    case OutputOption::StyleTemplate:
        return !isText;
    case OutputOption::JsonTypes:
        return fileType == FileType::Json;
    case OutputOption::RemoveEmpty:
        return fileType == FileType::Json || fileType == FileType::Xml;
    case OutputOption::XmlTexts:
        return fileType == FileType::Xml;
    case OutputOption::EscapeHtml:
        return fileType == FileType::Html;
    case OutputOption::WriteHeader:
        return hasHeader;
    case OutputOption::HeaderOnlyIfEmpty:
        return hasHeader && writeMode == WriteMode::Append;
    case OutputOption::FileComment:
        return fileType == FileType::Xml || fileType == FileType::Yaml || fileType == FileType::Html
               || fileType == FileType::Markdown;
    case OutputOption::OverwriteScope:
        return !isText && writeMode == WriteMode::Overwrite;
    case OutputOption::FilesColumn:
    case OutputOption::ConfirmMultiFile:
        return outputTarget == OutputTarget::MultipleFiles;
    }
    return false;
}

QVariantList OutputOptions::values() const
{
    return OptionWalk::values(fields(), *this);
}
