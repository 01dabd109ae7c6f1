#include "data/values.h"
#include "files/filesheet.h"
#include "graph/runcontrol.h"
#include "inputnode/inputnode.h"
#include "inputs/datasetstack.h"
#include "inputs/excelreader.h"
#include "inputs/excelsheets.h"
#include "inputs/headercomparison.h"
#include "inputs/listinputfiles.h"
#include "inputs/readmessages.h"
#include "settings/settings.h"

#include <QDir>
#include <QFileInfo>
#include <new>

// How an input reads the files of a folder and puts their tables one below the other.

/// A reading of a folder under way.
struct InputNode::FolderReading
{
    explicit FolderReading(bool keepLastColumn)
        : stack(keepLastColumn)
    {
    }

    DatasetStack stack;
    bool isFirst = true;
    QStringList mismatches; // told at the end
};

bool InputNode::readFolder()
{
    m_filesRead = 0;
    m_sheetsRead = 0;
    const FolderInput folder = m_options.folder;
    if (folder.folder.isEmpty() || !QFileInfo(folder.folder).isDir()) {
        m_warnings.append(QStringLiteral("Folder '%1' not found").arg(absoluteNativePath(folder.folder)));
        return false;
    }
    const QStringList files = listInputFiles(
        folder.folder, {folder.fileMatch}, Settings::current().blockedInputExtensions(), folder.recurse, &m_warnings);
    FolderReading reading(m_options.metaPosition == InputOptions::MetaColumn);
    for (int i = 0; i < files.size() && !stopRequested; ++i) {
        const double start = static_cast<double>(i) / files.size();
        onProcessed(start);
        try {
            readFolderFile(files.at(i), start, static_cast<double>(i + 1) / files.size(), reading);
        } catch (const std::bad_alloc &) {
            m_warnings.append(tooBigToRead(absoluteNativePath(files.at(i))));
        }
    }
    if (stopRequested) {
        m_warnings.append(QStringLiteral("Stopped by user"));
    }
    if (reading.stack.isEmpty()) {
        warnOfEmptyFolder();
        return false;
    }
    const QString fileCount = formatInteger(m_filesRead, true);
    m_infos.append(
        FileType::isExcel(m_fileType)
            ? QStringLiteral("%1 sheet(s) read from %2 file(s)").arg(formatInteger(m_sheetsRead, true), fileCount)
            : QStringLiteral("%1 file(s) read").arg(fileCount));
    m_warnings += reading.mismatches;
    m_dataset = reading.stack.take();
    return true;
}

void InputNode::warnOfEmptyFolder()
{
    const QString extension = QFileInfo(m_options.folder.fileMatch).suffix();
    const int expected = Settings::current().inputTypeOf(extension);
    if (expected != FileType::None && expected != m_fileType) {
        m_warnings.append(QStringLiteral("File match filter '%1' may not match data type: %2")
                              .arg(m_options.folder.fileMatch, FileType::label(m_fileType)));
    }
    m_warnings.append(QStringLiteral("No files read"));
}

void InputNode::readFolderFile(const QString &path, double progressStart, double progressEnd, FolderReading &reading)
{
    const QFileInfo file(path);
    if (!file.exists()) {
        return;
    }
    if (Settings::isExtensionBlocked(file.suffix(), Settings::current().blockedInputExtensions())) {
        m_warnings.append(QStringLiteral("The extension for '%1' is blocked in 'Preferences>Input Extensions'")
                              .arg(absoluteNativePath(path)));
        return;
    }
    if (FileType::isExcel(m_fileType)) {
        readFolderBook(path, progressStart, progressEnd, reading);
        return;
    }
    Dataset dataset;
    const bool success = readFile(path, dataset, progressStart, progressEnd);
    m_filesRead += finishFolderItem(path, QString(), success, dataset, reading);
}

/// The sheets of a workbook, which is opened once for all of them.
void InputNode::readFolderBook(const QString &path, double progressStart, double progressEnd, FolderReading &reading)
{
    QString error;
    const std::unique_ptr<spreadsheet::Book> book = loadExcelBook(m_fileType, path, &error);
    if (!book) {
        if (!error.isEmpty()) {
            m_warnings.append(error);
        }
        Dataset nothing;
        finishFolderItem(path, QString(), false, nothing, reading);
        return;
    }
    const QStringList sheets = matchingSheets(*book, m_options.folder.sheetMatch);
    const double share = (progressEnd - progressStart) / qMax(1, sheets.size());
    const int sheetsBefore = m_sheetsRead;
    for (int i = 0; i < sheets.size() && !stopRequested; ++i) {
        const double start = progressStart + i * share;
        Dataset dataset;
        const bool success = readExcel(*book, path, sheets.at(i), dataset, start, start + share);
        m_sheetsRead += finishFolderItem(path, sheets.at(i), success, dataset, reading);
    }
    m_filesRead += m_sheetsRead > sheetsBefore;
}

/// Puts what was read of a file or sheet below the rest. False when it was left out, which the warnings then tell.
bool InputNode::finishFolderItem(
    const QString &path, const QString &sheet, bool success, Dataset &dataset, FolderReading &reading)
{
    const QString name = fileSheetText(path, sheet);
    if (!success) {
        m_warnings.append(QStringLiteral("'%1' cannot be read").arg(name));
        return false;
    }
    if (!dataset.hasColumns()) {
        m_warnings.append(QStringLiteral("'%1' has no data").arg(name));
        return false;
    }
    m_infos.append(QStringLiteral("%1 Read %2 column(s) x %3 row(s)")
                       .arg(name, formatInteger(dataset.columnCount(), true), formatInteger(dataset.rowCount(), true)));
    dataset.setHasHeader(m_options.headerMode != InputOptions::NoHeader);
    if (reading.isFirst) {
        m_previousColumnNames = dataset.columnNames();
        reading.isFirst = false;
    }
    if (!validateSchema(dataset)) {
        m_warnings.append(QStringLiteral("'%1' schema validation error").arg(name));
        return false;
    }
    addMetaInformation(dataset, path, sheet);
    const bool isFirst = reading.stack.isEmpty();
    reading.stack.append(dataset);
    if (!isFirst) {
        const QString mismatch = headerMismatch(name, reading.stack.firstNames(), dataset.columnNames());
        if (!mismatch.isEmpty()) {
            reading.mismatches.append(mismatch);
        }
    }
    return true;
}
