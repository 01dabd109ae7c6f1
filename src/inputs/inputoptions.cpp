#include "inputs/inputoptions.h"

#include "settings/settings.h"

#include <QFileInfo>

namespace {

int typeOfExtension(const QString &extension)
{
    const int type = Settings::current().inputTypeOf(extension);
    return type == FileType::None ? int(FileType::Delimited) : type;
}

/// What the user saved for one kind of source; an option that wasn't saved keeps its value.
class SavedDefaults
{
public:
    explicit SavedDefaults(const InputOptions &options)
        : m_type(FileType::label(options.fileType))
        , m_extension(options.sourceExtension())
    {
    }

    void take(const char *name, int &value) const { value = saved(name, value).toInt(); }
    void take(const char *name, bool &value) const { value = saved(name, value).toBool(); }
    void take(const char *name, QString &value) const { value = saved(name, value).toString(); }
    void take(const char *name, QChar &value) const
    {
        const QString text = saved(name, QString(value)).toString();
        value = text.isEmpty() ? value : text.at(0);
    }

private:
    QVariant saved(const char *name, const QVariant &fallback) const
    {
        return Settings::current().defaultOption(
            QStringLiteral("inputs"), m_type, m_extension, QLatin1String(name), fallback);
    }

    const QString m_type;
    const QString m_extension;
};

} // namespace

InputOptions InputOptions::forFile(const QString &path)
{
    InputOptions options;
    options.path = path;
    options.fileType = typeOfExtension(QFileInfo(path).suffix());
    options.applySavedDefaults();
    return options;
}

InputOptions InputOptions::forFolder(const FolderInput &folder, int fileType)
{
    InputOptions options;
    options.medium = Medium::Folder;
    options.path = folder.folder;
    options.folder = folder;
    options.fileType = fileType == FileType::None ? typeOfExtension(QFileInfo(folder.fileMatch).suffix()) : fileType;
    options.applySavedDefaults();
    return options;
}

InputOptions InputOptions::forClipboard(const QString &text)
{
    InputOptions options;
    options.medium = Medium::Clipboard;
    options.text = text;
    options.fileType = fileTypeOfText(text);
    options.applySavedDefaults();
    return options;
}

QString InputOptions::sourceExtension() const
{
    if (medium == Medium::Clipboard) {
        return QStringLiteral("clipboard");
    }
    const QString name = medium == Medium::Folder ? folder.fileMatch : path;
    const QString extension = QFileInfo(name).suffix().toLower();
    return extension.isEmpty() ? QStringLiteral("(Empty)") : extension;
}

void InputOptions::applySavedDefaults()
{
    const SavedDefaults saved(*this);
    saved.take("delimiter", delimiter);
    saved.take("custom_delimiter", customDelimiter);
    saved.take("encoding", encoding);
    saved.take("simplify_whitespace", simplify);
    saved.take("trim_whitespace", trim);
    saved.take("ignore_empty_rows", ignoreEmptyRows);
    saved.take("ignore_repeated_delim", ignoreRepeatedDelimiter);
    saved.take("ignore_hidden_excel_rows", ignoreHiddenRows);
    saved.take("quoting", quoting);
    saved.take("show_meta_info", metaPosition);
    saved.take("meta_info_text", metaText);
    saved.take("meta_info_col_name", metaColumnName);
    saved.take("long_or_wide", jsonArraysAsRows);
}

int InputOptions::fileTypeOfText(const QString &text)
{
    const QString trimmed = text.trimmed();
    const auto between = [&trimmed](char first, char last) {
        return trimmed.startsWith(QLatin1Char(first)) && trimmed.endsWith(QLatin1Char(last));
    };
    if (between('{', '}') || between('[', ']')) {
        return FileType::Json;
    }
    if (between('<', '>')) {
        return FileType::Xml;
    }
    return trimmed.startsWith(QLatin1String("BEGIN:VCARD"), Qt::CaseInsensitive) ? FileType::VCard
                                                                                 : FileType::Delimited;
}

bool InputOptions::applies(Option option) const
{
    const bool delimited = fileType == FileType::Delimited || fileType == FileType::Yaml || fileType == FileType::Html
                           || fileType == FileType::Markdown;
    switch (option) {
    case Delimiter:
        return delimited;
    case Columns:
        return fileType == FileType::FixedWidth;
    case Encoding:
        return medium != Medium::Clipboard
               && (fileType == FileType::Delimited || fileType == FileType::FixedWidth || fileType == FileType::Xml
                   || fileType == FileType::VCard || fileType == FileType::PlainText);
    case Format:
        return fileType == FileType::Json || fileType == FileType::Xml;
    case IgnoredRows:
        return delimited || fileType == FileType::FixedWidth || fileType == FileType::PlainText
               || FileType::isExcel(fileType);
    case Worksheet:
    case HiddenRowsAndColumns:
        return FileType::isExcel(fileType);
    case Watching:
        return medium == Medium::File;
    }
    return false;
}

QVariantList InputOptions::values() const
{
    QVariantList widths;
    for (int width : fixedWidths) {
        widths.append(width);
    }
    return {medium, fileType, path, worksheet, text, folder.folder, folder.fileMatch, folder.sheetMatch, folder.recurse,
        delimiter, customDelimiter, ignoreRepeatedDelimiter, quoting, autoFixedWidths, widths, encoding,
        jsonArraysAsRows, ignoredRows, headerMode, trim, simplify, ignoreEmptyRows, ignoreEmptyColumns,
        ignoreHiddenRows, ignoreHiddenColumns, metaPosition, metaText, metaColumnName, watching, schema.inUse,
        schema.columnNames, schema.missingValues, schema.missingMode, schema.reorderMode, schema.extraMode};
}
