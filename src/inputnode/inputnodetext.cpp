#include "data/values.h"
#include "files/filesheet.h"
#include "graph/colors.h"
#include "inputnode/inputnode.h"
#include "settings/optionwalk.h"

#include <QDir>
#include <QFileInfo>

// What an input says of itself: names, rows of information, colours.

QString InputNode::defaultOutputName() const
{
    if (isPreview()) {
        return QStringLiteral("Input.csv");
    }
    switch (m_medium) {
    case Medium::Clipboard:
        return Medium::label(Medium::Clipboard);
    case Medium::Folder: {
        const FolderInput &folder = m_options.folder;
        return folder.folder.isEmpty() ? QStringLiteral("<unset>")
                                       : QDir(QDir(folder.folder).dirName()).filePath(folder.fileMatch);
    }
    default:
        return m_path.isEmpty() ? QStringLiteral("<unset>") : QFileInfo(m_path).fileName();
    }
}

QString InputNode::name() const
{
    return defaultOutputName();
}

QString InputNode::listName() const
{
    return options().applies(InputOptions::Worksheet) ? fileSheetText(name(), m_sheetName) : name();
}

QString InputNode::description() const
{
    return QStringLiteral("Input from %1.").arg(name());
}

QString InputNode::resultText() const
{
    if (m_state == NodeState::Failed) {
        return QStringLiteral("Error reading");
    }
    if (m_medium == Medium::File && m_path.isEmpty()) {
        return QString(); // there was nothing to read
    }
    if (m_medium != Medium::Folder) {
        return QStringLiteral("Read");
    }
    const QString files = formatInteger(m_filesRead, true);
    return FileType::isExcel(m_fileType)
               ? QStringLiteral("Read %1 sheet(s) from %2 file(s)").arg(formatInteger(m_sheetsRead, true), files)
               : QStringLiteral("Read %1 file(s)").arg(files);
}

InfoRows InputNode::informationRows() const
{
    InfoRows rows{{QStringLiteral("Type"), Medium::label(m_medium)}};
    if (m_medium == Medium::File) {
        rows += fileRows(m_path);
    } else if (m_medium == Medium::Folder) {
        rows += folderRows(m_options.folder.folder, m_options.folder.fileMatch, m_options.folder.recurse);
    } else {
        const QString size = QStringLiteral("%1 characters").arg(formatInteger(m_options.text.size(), true));
        rows.append({QStringLiteral("Size"), size});
    }
    rows.append({QStringLiteral("Read"), hasRun() ? sizeText() : QString()});
    rows.append({QStringLiteral("Connections out"), formatInteger(connections(Direction::Outgoing).size(), true)});
    return rows;
}

InfoRows InputNode::optionSummary() const
{
    InfoRows rows = OptionWalk::summary(InputOptions::fields(), options());
    rows.append({QStringLiteral("Alias"), alias()});
    return rows;
}

QColor InputNode::borderColor() const
{
    return colors().color(Colors::InputBorder);
}

QColor InputNode::boxColor() const
{
    return colors().color(Colors::InputBox);
}

QColor InputNode::textColor() const
{
    return colors().color(Colors::InputText);
}
