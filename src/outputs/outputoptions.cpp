#include "outputs/outputoptions.h"

#include "settings/product.h"

QString OutputOptions::defaultFileComment()
{
    return QStringLiteral(" File created by %1 %2 at %3 %4 ")
        .arg(QLatin1String(Product::name), QStringLiteral("{version}"), QStringLiteral("{date}"),
            QStringLiteral("{time}"));
}

QVariantList OutputOptions::values() const
{
    return {outputTarget, confirmMultiFile, excelFormatMode, jsonTypeMode, writeBom, writeMode, overwriteScope,
        xmlAboveRoot, xmlRootName, xmlBelowRoot, xmlRowName, escapeHtml, removeEmpty, quoting, lineEndings, writeHeader,
        headerOnlyIfEmpty, fileComment, useStyleTemplate, styleTemplatePath};
}
