#include "data/values.h"
#include "files/delimiters.h"
#include "files/filesheet.h"
#include "graph/colors.h"
#include "outputnode/outputnode.h"

#include <QDir>
#include <QFileInfo>

namespace {

QString yesNo(bool on)
{
    return on ? QStringLiteral("Yes") : QStringLiteral("No");
}

QString multipleFiles()
{
    return OutputTarget::label(OutputTarget::MultipleFiles);
}

} // namespace

QString OutputNode::name() const
{
    if (isPreview()) {
        return QStringLiteral("Output.csv");
    }
    if (isMultiFile()) {
        return multipleFiles();
    }
    const QString fileName = QFileInfo(m_path).fileName();
    if (fileName.isEmpty()) {
        return QStringLiteral("<no file name>");
    }
    return FileType::isExcel(m_fileType) ? fileSheetText(fileName, m_sheetName) : fileName;
}

QString OutputNode::listName() const
{
    if (isMultiFile()) {
        return QStringLiteral("%1: %2 file(s) written")
            .arg(multipleFiles(), formatInteger(m_writtenFiles.size(), true));
    }
    return m_lastFilePath.isEmpty() ? m_path : QDir::toNativeSeparators(m_lastFilePath);
}

QString OutputNode::description() const
{
    return QStringLiteral("Output to %1.").arg(Medium::label(m_medium));
}

QString OutputNode::helpPage() const
{
    return QStringLiteral("Output_data");
}

QString OutputNode::resultText() const
{
    if (state() == NodeState::Failed) {
        return QStringLiteral("Error writing");
    }
    if (m_options.writeMode == WriteMode::Disabled) {
        return WriteMode::label(WriteMode::Disabled);
    }
    if (connections(Direction::Incoming).size() != 1) {
        return QString(); // there was nothing to write
    }
    const bool hasTarget = !isMultiFile() || !m_columns.multiFileColumn().isNull();
    return hasTarget ? QStringLiteral("Written") : QStringLiteral("Not written");
}

QVariantList OutputNode::summaryRow() const
{
    return IONode::summaryRow() + m_options.values() + m_columns.values();
}

InfoRows OutputNode::kindRows() const
{
    InfoRows rows{{QStringLiteral("File type"), FileType::label(m_fileType)}};
    if (isMultiFile()) {
        rows.append({QStringLiteral("Files"), QStringLiteral("From dataset column")});
    } else {
        rows.append({QStringLiteral("File"), m_path});
    }
    rows.append({QStringLiteral("Connections in"), formatInteger(connections(Direction::Incoming).size(), true)});
    rows.append({QStringLiteral("Alias"), alias()});
    return rows;
}

InfoRows OutputNode::optionRows() const
{
    InfoRows rows;
    const auto add = [&](OutputOption option, const QString &label, const QString &value) {
        if (applies(option)) {
            rows.append({label, value});
        }
    };
    add(OutputOption::Delimiter, QStringLiteral("Delimiter"), DelimiterKind::label(m_delimiterKind));
    add(OutputOption::Quoting, QStringLiteral("Quoting"), Quoting::label(m_options.quoting));
    add(OutputOption::LineEndings, QStringLiteral("Line endings"), LineEndings::label(m_options.lineEndings));
    add(OutputOption::Encoding, QStringLiteral("Encoding"), m_encoding);
    add(OutputOption::ByteOrderMark, QStringLiteral("Byte Order Mark"), yesNo(m_options.writeBom));
    add(OutputOption::RemoveEmpty, QStringLiteral("Remove empty"), yesNo(m_options.removeEmpty));
    add(OutputOption::XmlTexts, QStringLiteral("Above root"), m_options.xmlAboveRoot);
    add(OutputOption::XmlTexts, QStringLiteral("Root name"), m_options.xmlRootName);
    add(OutputOption::XmlTexts, QStringLiteral("Below root"), m_options.xmlBelowRoot);
    add(OutputOption::XmlTexts, QStringLiteral("Row name"), m_options.xmlRowName);
    add(OutputOption::EscapeHtml, QStringLiteral("Escape special"), yesNo(m_options.escapeHtml));
    add(OutputOption::ExcelFormatting, QStringLiteral("Formatting"), ExcelFormatMode::label(m_options.excelFormatMode));
    add(OutputOption::JsonTypes, QStringLiteral("Types"), JsonTypeMode::label(m_options.jsonTypeMode));
    QString mode = WriteMode::label(m_options.writeMode);
    if (applies(OutputOption::OverwriteScope)) {
        mode += QLatin1Char('/') + OverwriteScope::label(m_options.overwriteScope);
    }
    rows.append({QStringLiteral("Write mode"), mode});
    QString header = yesNo(m_options.writeHeader);
    if (applies(OutputOption::HeaderOnlyIfEmpty) && m_options.headerOnlyIfEmpty) {
        header += QStringLiteral(" (if empty)");
    }
    add(OutputOption::WriteHeader, QStringLiteral("Write header"), header);
    rows.append({QStringLiteral("Alias"), alias()});
    return rows;
}

QColor OutputNode::borderColor() const
{
    return colors().color(Colors::OutputBorder);
}

QColor OutputNode::boxColor() const
{
    return colors().color(Colors::OutputBox);
}

QColor OutputNode::textColor() const
{
    return colors().color(Colors::OutputText);
}
