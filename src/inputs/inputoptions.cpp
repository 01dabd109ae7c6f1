#include "inputs/inputoptions.h"

#include "settings/optionwalk.h"

#include <QFileInfo>

namespace {

int typeOfExtension(const QString &extension)
{
    const int type = Settings::current().inputTypeOf(extension);
    return type == FileType::None ? int(FileType::Delimited) : type;
}

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
    OptionWalk::applyDefaults(
        fields(), *this, {QStringLiteral("inputs"), FileType::label(fileType), sourceExtension()});
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
    return OptionWalk::values(fields(), *this);
}
