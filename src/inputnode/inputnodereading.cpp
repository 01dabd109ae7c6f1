#include "files/filesheet.h"
#include "inputnode/inputnode.h"

#include "data/columnbuilder.h"
#include "data/values.h"
#include "inputs/excelreader.h"
#include "inputs/metainformation.h"
#include "inputs/schemacheck.h"
#include "inputs/sourcereader.h"
#include "settings/settings.h"
#include "text/cappedlist.h"
#include "transforms/frame/messages.h"

#include <QFileInfo>

// How an input reads one source, and what it does with a table at the door.

namespace {

QString unknownDatesWarning(const QString &source, const CappedList &dates)
{
    const QString text = dates.count() == 1
                             ? QStringLiteral(
                                 "%1 cell of '%2' has a date format but holds no date and was read as empty: %3")
                             : QStringLiteral(
                                 "%1 cells of '%2' have a date format but hold no dates and were read as empty: %3");
    return text.arg(Messages::count(dates.count()), source, dates.lines().join(QStringLiteral(", ")));
}

} // namespace

bool InputNode::readSingle()
{
    if (m_medium == Medium::File ? m_path.isEmpty() : m_options.text.isEmpty()) {
        return true;
    }
    if (m_medium == Medium::File) {
        const QString path = absoluteNativePath(m_path);
        if (!QFileInfo::exists(m_path)) {
            m_warnings.append(QStringLiteral("File '%1' not found").arg(path));
            return false;
        }
        if (Settings::isExtensionBlocked(QFileInfo(m_path).suffix(), Settings::current().blockedInputExtensions())) {
            const QString text = QStringLiteral(
                "The extension for this file is blocked in 'Preferences>Input Extensions':\n%1");
            m_warnings.append(text.arg(path));
            return false;
        }
    }
    // Read aside, so that nobody sees half a table when progress lets events in.
    Dataset dataset;
    const bool succeeded = readSource(dataset);
    m_dataset = std::move(dataset);
    if (m_medium == Medium::File) {
        if (succeeded) {
            updateWatch();
        }
        warnOfExtension();
    }
    return succeeded && finishReading();
}

bool InputNode::readSource(Dataset &dataset)
{
    m_readSheet.clear();
    if (m_medium == Medium::Clipboard) {
        return readClipboard(dataset);
    }
    m_stampBefore = FileWatch::stamp(m_path);
    return FileType::isExcel(m_fileType) ? readExcel(m_path, m_sheetName, dataset, 0.0, 1.0)
                                         : readFile(m_path, dataset, 0.0, 1.0);
}

bool InputNode::readClipboard(Dataset &dataset)
{
    SourceReader reader(options());
    reader.setProgress(progressPart(0.0, 1.0));
    const bool success = reader.readText(m_options.text, &dataset);
    takeResults(reader);
    return success;
}

bool InputNode::readFile(const QString &path, Dataset &dataset, double progressStart, double progressEnd)
{
    SourceReader reader(options());
    reader.setProgress(progressPart(progressStart, progressEnd));
    const bool success = reader.readFile(path, &dataset);
    takeResults(reader);
    return success;
}

void InputNode::takeResults(const SourceReader &reader)
{
    m_infos += reader.infos();
    m_warnings += reader.warnings();
    m_fixedWidthSample = reader.fixedWidthSample();
    if (m_fileType != FileType::FixedWidth) {
        return;
    }
    if (m_options.autoFixedWidths || m_options.fixedWidths.isEmpty()) {
        m_options.fixedWidths = reader.fixedWidths();
    }
}

bool InputNode::readExcel(
    const QString &path, const QString &sheet, Dataset &dataset, double progressStart, double progressEnd)
{
    QString error;
    const std::unique_ptr<spreadsheet::Book> book = loadExcelBook(m_fileType, path, &error);
    if (!book) {
        if (!error.isEmpty()) {
            m_warnings.append(error);
        }
        return false;
    }
    return readExcel(*book, path, sheet, dataset, progressStart, progressEnd);
}

bool InputNode::readExcel(spreadsheet::Book &book, const QString &path, const QString &sheet, Dataset &dataset,
    double progressStart, double progressEnd)
{
    const InputOptions &o = m_options;
    const ExcelReadOptions options{
        o.trim, o.simplify, o.ignoreEmptyRows, o.ignoredRows, o.ignoreHiddenColumns, o.ignoreHiddenRows};
    ExcelReadResult result;
    if (!readExcelSheet(book, path, sheet, options, progressPart(progressStart, progressEnd), &result)) {
        if (!result.error.isEmpty()) {
            m_warnings.append(result.error);
        }
        return false;
    }
    dataset = std::move(result.dataset);
    m_readSheet = result.sheetName;
    const QString source = fileSheetText(absoluteNativePath(path), sheet);
    m_infos.append(QStringLiteral("Read sheet '%1'").arg(source));
    const auto tell = [this](int count, const char *what) {
        if (count > 0) {
            m_infos.append(QStringLiteral("%1 %2 ignored").arg(formatInteger(count, true), QLatin1String(what)));
        }
    };
    tell(result.hiddenRowCount, "hidden row(s)");
    tell(result.hiddenColumnCount, "hidden column(s)");
    tell(result.emptyRowCount, "empty row(s)");
    if (result.unknownDates.count() > 0) {
        m_warnings.append(unknownDatesWarning(source, result.unknownDates));
    }
    return true;
}

/// What is done with a table once it is read.
bool InputNode::finishReading()
{
    applyHeader();
    m_previousColumnNames = m_dataset.columnNames();
    const bool isValid = validateSchema(m_dataset);
    addMetaInformation(m_dataset, m_medium == Medium::File ? m_path : QString(), m_readSheet);
    return isValid;
}

void InputNode::warnOfExtension()
{
    const QString extension = QFileInfo(m_path).suffix();
    const int expected = Settings::current().inputTypeOf(extension);
    if (expected != FileType::None && expected != m_fileType) {
        m_warnings.append(QStringLiteral("File extension '%1' may not match data type: %2")
                              .arg(extension, FileType::label(m_fileType)));
    }
}

// Header and meta information

void InputNode::applyHeader()
{
    if (m_options.headerMode == InputOptions::DecideAtFirstRead) {
        m_options.headerMode = guessHeader() ? InputOptions::FirstRowIsHeader : InputOptions::NoHeader;
    }
    m_dataset.setHasHeader(m_options.headerMode == InputOptions::FirstRowIsHeader);
}

bool InputNode::guessHeader() const
{
    if (m_dataset.hasHeader()) {
        return true;
    }
    if (m_dataset.rowCount() < 2) {
        return false;
    }
    const QStringList formats = dateFormats();
    for (const QString &value : m_dataset.row(RowIndex(0))) {
        bool isNumber = false;
        parseNumber(value, false, true, &isNumber);
        if (isNumber || parseDate(value, formats, nullptr).isValid()) {
            return false;
        }
    }
    return true;
}

bool InputNode::validateSchema(Dataset &dataset)
{
    SchemaCheck check(m_options.schema);
    const bool valid = check.run(&dataset);
    m_infos += check.infos();
    m_warnings += check.warnings();
    return valid;
}

void InputNode::addMetaInformation(Dataset &dataset, const QString &path, const QString &sheet) const
{
    if (m_options.metaPosition == InputOptions::NoMeta || !dataset.hasColumns()) {
        return;
    }
    const QString text = MetaInformation::expand(
        m_options.metaText, {path, sheet, dataset.rowCount(), dataset.columnCount()});
    if (m_options.metaPosition == InputOptions::MetaFirstRow) {
        dataset.prependRow({text});
    } else if (m_options.metaPosition == InputOptions::MetaLastRow) {
        dataset.appendRow({text});
    } else {
        dataset.appendColumn(ColumnBuilder::filled(text, dataset.rowCount()), m_options.metaColumnName);
    }
}
