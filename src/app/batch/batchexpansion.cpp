#include "app/batch/batchexpansion.h"

#include "files/filesheet.h"
#include "inputs/excelreader.h"
#include "inputs/excelsheets.h"
#include "settings/filetypes.h"
#include "settings/settings.h"

#include <QDir>
#include <QFileInfo>
#include <QRegExp>

namespace {

bool hasWildcard(const QString &text)
{
    return text.contains(QLatin1Char('*')) || text.contains(QLatin1Char('?'));
}

BatchExpansion failure(const QString &message)
{
    return {{}, {message}, 1};
}

/// What is in the wildcard's folder and matches its last part, by name.
BatchExpansion matches(const QString &wildcard, QDir::Filters kind)
{
    const QFileInfo pattern(wildcard);
    const QDir folder = pattern.dir();
    if (folder.exists() && !QFileInfo(folder.path()).isReadable()) {
        return failure(QStringLiteral("Folder '%1' is not readable").arg(absoluteNativePath(folder.path())));
    }
    const QRegExp name(pattern.fileName(), Qt::CaseInsensitive, QRegExp::Wildcard);
    BatchExpansion expansion;
    for (const QString &entry :
        folder.entryList(kind | QDir::Hidden | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name)) {
        if (name.exactMatch(entry)) {
            expansion.paths.append(folder.filePath(entry));
        }
    }
    if (expansion.paths.isEmpty()) {
        expansion.messages.append(
            QStringLiteral("No files match wildcard '%1'.").arg(QDir::toNativeSeparators(wildcard)));
    }
    return expansion;
}

BatchExpansion filesOf(const QString &path, const QString &shownPath)
{
    if (hasWildcard(path)) {
        return matches(path, QDir::Files);
    }
    return QFileInfo(path).isFile()
               ? BatchExpansion{{path}, {}, 0}
               : failure(QStringLiteral("Input file '%1' not found.").arg(QDir::toNativeSeparators(shownPath)));
}

/// The sheet that a cell asks for, when it is one of a workbook.
FileSheet partedWorkbook(const QString &text)
{
    FileSheet source = splitFileSheet(text);
    const bool isExcel = FileType::isExcel(Settings::current().inputTypeOf(QFileInfo(source.file).suffix()));
    const bool isWhole = source.sheet.isEmpty() || !isExcel || QFileInfo(text).isFile();
    return isWhole ? FileSheet{text, QString()} : source;
}

/// Adds the sheets of a workbook that match, as paths.
void addSheets(const QString &file, const QString &wildcard, BatchExpansion &expansion)
{
    const int type = Settings::current().inputTypeOf(QFileInfo(file).suffix());
    QString error;
    const std::unique_ptr<spreadsheet::Book> book = loadExcelBook(type, file, &error);
    if (!book) {
        expansion.messages.append(error.isEmpty() ? QStringLiteral("Input file '%1' not found.").arg(file)
                                                  : error.replace(QLatin1Char('\n'), QLatin1Char(' ')));
        ++expansion.errors;
        return;
    }
    for (const QString &sheet : matchingSheets(*book, wildcard)) {
        expansion.paths.append(QStringLiteral("%1[%2]").arg(file, sheet));
    }
}

} // namespace

BatchExpansion expandBatchFile(const QString &text, const std::function<bool()> &goesOn)
{
    const FileSheet source = partedWorkbook(text);
    const BatchExpansion files = filesOf(source.file, text);
    if (source.sheet.isEmpty() || files.paths.isEmpty()) {
        return files;
    }
    BatchExpansion expansion;
    for (const QString &file : files.paths) {
        if (!hasWildcard(source.sheet)) {
            // The input finds the sheet by name or number, and says so when it can't.
            expansion.paths.append(QStringLiteral("%1[%2]").arg(file, source.sheet));
        } else if (goesOn()) {
            addSheets(file, source.sheet, expansion);
        }
    }
    if (expansion.paths.isEmpty() && expansion.messages.isEmpty()) {
        expansion.messages.append(QStringLiteral("No sheets match wildcard '%1'.").arg(QDir::toNativeSeparators(text)));
    }
    return expansion;
}

BatchExpansion expandBatchFolder(const QString &text)
{
    if (hasWildcard(text)) {
        return matches(text, QDir::Dirs);
    }
    return QFileInfo(text).isDir()
               ? BatchExpansion{{text}, {}, 0}
               : failure(QStringLiteral("Input folder '%1' not found.").arg(QDir::toNativeSeparators(text)));
}
