#include "data/values.h"
#include "files/filesheet.h"
#include "graph/colors.h"
#include "outputnode/outputnode.h"
#include "settings/optionwalk.h"

#include <QDir>
#include <QFileInfo>

namespace {

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
    return IONode::summaryRow() + options().values() + m_columns.values();
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
    InfoRows rows = OptionWalk::summary(OutputOptions::fields(), options());
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
