#pragma once

#include "outputs/outputenums.h"

#include <QVariantList>

/// The options of an output item beside those that it shares with inputs (path, type, delimiter, encoding, alias) and
/// those that refer to columns. The defaults are those of a new item; some depend on its path and type, see
/// OutputNode.
struct OutputOptions
{
    int outputTarget = OutputTarget::SingleFile;
    bool confirmMultiFile = true;
    int excelFormatMode = ExcelFormatMode::Automatic;
    int jsonTypeMode = JsonTypeMode::Automatic;
    bool writeBom = true;
    int writeMode = WriteMode::Overwrite;
    int overwriteScope = OverwriteScope::Sheet;
    QString xmlAboveRoot;
    QString xmlRootName = QStringLiteral("root");
    QString xmlBelowRoot;
    QString xmlRowName = QStringLiteral("record");
    bool escapeHtml = true;
    bool removeEmpty = true;
    int quoting = Quoting::AsNeeded;
    int lineEndings = LineEndings::Automatic;
    bool writeHeader = true;
    bool headerOnlyIfEmpty = true;
    QString fileComment = defaultFileComment();
    bool useStyleTemplate = false;
    QString styleTemplatePath;

    /// Names the program and, by variables, its version and the time of writing.
    static QString defaultFileComment();
    /// All fields in their order: two lists are equal exactly when the options are.
    QVariantList values() const;
};

/// The options of an output item that not every kind of file has.
enum class OutputOption {
    Delimiter,
    Quoting,
    LineEndings,
    Encoding,
    ByteOrderMark,
    ExcelFormatting,
    StyleTemplate,
    JsonTypes,
    RemoveEmpty,
    XmlTexts,
    EscapeHtml,
    WriteHeader,
    HeaderOnlyIfEmpty,
    FileComment,
    OverwriteScope,
    FilesColumn,
    ConfirmMultiFile
};
