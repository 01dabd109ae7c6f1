#pragma once

#include "files/delimiters.h"
#include "outputs/outputenums.h"
#include "settings/filetypes.h"
#include "settings/optionfield.h"

#include <QVariantList>

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

/// All options of an output item but its columns, as documents store them and panels edit them. The defaults are those
/// of a new item; some depend on its path and type, see OutputNode.
struct OutputOptions
{
    // What IONode holds
    QString path; ///< as entered, variables unexpanded
    int fileType = FileType::Delimited;
    QString worksheet;
    int delimiter = DelimiterKind::Comma;
    QChar customDelimiter = QLatin1Char('*');
    QString encoding = QStringLiteral("UTF-8");

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
    /// True for the paths of files whose columns are parted by tabs, by their extension.
    static bool isTabbed(const QString &path);
    /// True when the option has a meaning for the type, encoding and modes.
    bool applies(OutputOption option) const;
    /// What is declared of each option, in the order of a document's attributes.
    static const OptionFields<OutputOptions> &fields();
    /// All fields in their order: two lists are equal exactly when the options are.
    QVariantList values() const;
};
