#include "files/excellimits.h"
#include "files/filesheet.h"
#include "graph/graphscene.h"
#include "outputnode/outputnode.h"
#include "outputs/excelformats.h"
#include "outputs/excelwriter.h"
#include "outputs/outputpaths.h"
#include "outputs/sheetstyle.h"
#include "settings/product.h"

#include <QDir>
#include <QFileInfo>

// How an output writes sheets of workbooks.

namespace {

QString doneText(const ExcelWriteRequest &request, bool existed)
{
    const QString path = absoluteNativePath(request.path);
    if (!existed) {
        return QStringLiteral("Created file '%1'").arg(path);
    }
    if (request.append) {
        return QStringLiteral("Appended sheet '%1[%2]'").arg(path, request.sheet);
    }
    if (request.overwriteSheet) {
        return QStringLiteral("Overwrote sheet '%1[%2]'").arg(path, request.sheet);
    }
    return QStringLiteral("Overwrote file '%1'").arg(path);
}

/// Lines that tell what each column is written as.
QStringList formatInfos(const Dataset &dataset, const ExcelFormats &formats)
{
    QStringList lines{QStringLiteral("Formatting=Automatic sets Excel column formats as:")};
    for (const ColumnIndex column : dataset.allColumns()) {
        const int format = formats.formats.value(column.toInt(), ExcelColumnFormat::Text);
        lines.append(QStringLiteral("%1: %2").arg(dataset.columnName(column), ExcelColumnFormat::label(format)));
    }
    lines.append(QStringLiteral("Set 'Formatting' option to change"));
    return lines;
}

} // namespace

bool OutputNode::writeExcelFile(
    const QString &path, const QString &sheet, const Dataset &dataset, const ExcelFormats &formats)
{
    if (m_options.writeMode == WriteMode::Disabled) {
        return false;
    }
    if (m_options.writeMode == WriteMode::New && QFileInfo::exists(path)) {
        m_infos.append(QStringLiteral("Write mode='%1' and '%2' already exists")
                           .arg(WriteMode::label(WriteMode::New), absoluteNativePath(path)));
        return false;
    }
    const QString sheetName = sheet.isEmpty() ? QString::fromLatin1(Product::name) : sheet;
    const QString sizeWarning = ExcelLimits::writingWarning(m_fileType, dataset.rowCount(), dataset.columnCount());
    if (!sizeWarning.isEmpty()) {
        m_warnings.append(sizeWarning);
    }
    QString textChanges;
    const bool written = writeSheetByMode(path, sheetName, dataset, formats, &textChanges);
    if (m_options.excelFormatMode == ExcelFormatMode::Automatic) {
        m_infos += formatInfos(dataset, formats);
    }
    if (!textChanges.isEmpty()) {
        m_infos.append(textChanges);
    }
    // Also after a write that failed: the sheet may be there from an earlier one.
    if (m_options.useStyleTemplate) {
        copyTemplateStyle(path, sheetName);
    }
    return written;
}

bool OutputNode::writeSheetByMode(const QString &path, const QString &sheet, const Dataset &dataset,
    const ExcelFormats &formats, QString *textChanges)
{
    const bool existed = QFileInfo::exists(path);
    ExcelWriteRequest request;
    request.fileType = m_fileType;
    request.path = path;
    request.sheet = sheet;
    request.append = m_options.writeMode == WriteMode::Append;
    request.overwriteSheet = request.append
                             || (m_options.writeMode == WriteMode::Overwrite
                                 && m_options.overwriteScope == OverwriteScope::Sheet);
    request.writeHeader = shouldWriteHeader(path, sheet);
    request.dataset = &dataset;
    request.formats = formats;
    request.progress = [this](int row, int rowCount) { reportRow(row, rowCount); };
    ExcelWriteReport report;
    const bool written = writeSheet(request, &report);
    m_warnings += report.warnings;
    if (!written) {
        m_warnings.append(report.error.isEmpty()
                              ? QStringLiteral("Failed to write to %1[%2]").arg(absoluteNativePath(path), sheet)
                              : report.error);
        return false;
    }
    *textChanges = report.textChanges;
    m_infos.append(doneText(request, existed));
    return true;
}

void OutputNode::copyTemplateStyle(const QString &path, const QString &sheet)
{
    FileSheet model = splitFileSheet(m_options.styleTemplatePath.trimmed());
    if (model.sheet.isEmpty()) {
        return;
    }
    if (QFileInfo(model.file).isRelative()) {
        const QString document = graphScene() ? graphScene()->documentPath() : QString();
        if (document.isEmpty()) {
            m_warnings.append(
                QStringLiteral("Relative file path for '%1', but .transform not saved for it to be relative to")
                    .arg(model.file));
            return;
        }
        model.file = QFileInfo(document).absoluteDir().absoluteFilePath(model.file);
    }
    const bool isXls = OutputPaths::extension(model.file) == FileType::defaultExtension(FileType::ExcelXls);
    const QString shownFile = QDir::toNativeSeparators(model.file);
    QString error;
    const SheetPlace from{isXls ? FileType::ExcelXls : FileType::ExcelXlsx, model.file, model.sheet};
    if (copySheetStyle(from, {m_fileType, path, sheet}, &error)) {
        m_infos.append(QStringLiteral("Copied styling from '%1[%2]'").arg(shownFile, model.sheet));
    } else {
        m_warnings.append(QStringLiteral("Unable to copy styling from '%1[%2]: %3").arg(shownFile, model.sheet, error));
    }
}

bool OutputNode::shouldWriteHeader(const QString &path, const QString &sheet) const
{
    if (!m_options.writeHeader || shouldWriteHeader(path)) {
        return m_options.writeHeader;
    }
    const int fileType = OutputPaths::fileType(path, m_fileType);
    return !sheet.isEmpty() && FileType::isExcel(fileType) && isSheetEmpty(fileType, path, sheet);
}
