#include "data/values.h"
#include "files/filesheet.h"
#include "graph/colors.h"
#include "graph/nodetext.h"
#include "inputnode/inputnode.h"
#include "inputs/delimitedreader.h"

#include <QDir>
#include <QFileInfo>

// What an input says of itself: names, rows of information, colours.

namespace {

QString headerText(int mode)
{
    return mode == InputOptions::DecideAtFirstRead ? QStringLiteral("Automatic")
                                                   : NodeText::yesNo(mode == InputOptions::FirstRowIsHeader);
}

QString metaText(int position)
{
    static const QStringList texts{QStringLiteral("None"), QStringLiteral("New first row"),
        QStringLiteral("New last row"), QStringLiteral("New column")};
    return texts.value(position);
}

QString widthsText(const InputOptions &options)
{
    if (options.autoFixedWidths) {
        return QStringLiteral("Automatic");
    }
    QStringList widths;
    for (int width : options.fixedWidths) {
        widths.append(QString::number(width));
    }
    return widths.join(QStringLiteral(", "));
}

QString delimiterText(const InputOptions &options)
{
    const QString label = DelimiterKind::label(options.delimiter);
    return options.delimiter == DelimiterKind::Custom
               ? QStringLiteral("%1 (%2)").arg(label, QString(options.customDelimiter))
               : label;
}

} // namespace

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
    const InputOptions o = options();
    InfoRows rows;
    const auto add = [&rows](const char *label, const QString &value) {
        rows.append({QString::fromLatin1(label), value});
    };
    if (o.applies(InputOptions::Delimiter)) {
        add("Delimiter", delimiterText(o));
        add("Ignore repeated delim", NodeText::yesNo(o.ignoreRepeatedDelimiter));
        add("Quoting", InputQuoting::label(o.quoting));
    }
    if (o.applies(InputOptions::Columns)) {
        add("Columns", widthsText(o));
    }
    if (o.applies(InputOptions::Encoding)) {
        add("Encoding", o.encoding);
    }
    if (o.applies(InputOptions::Format)) {
        add("Format",
            o.arraysBecomeRows() ? QStringLiteral("Long (more rows)") : QStringLiteral("Wide (more columns)"));
    }
    if (o.applies(InputOptions::IgnoredRows)) {
        add("Ignore", QStringLiteral("First %1 row(s)").arg(formatInteger(o.ignoredRows, true)));
    }
    add("Has header", headerText(o.headerMode));
    add("Trim whitespace", NodeText::yesNo(o.trim));
    add("Simplify whitespace", NodeText::yesNo(o.simplify));
    add("Ignore empty rows", NodeText::yesNo(o.ignoreEmptyRows));
    add("Ignore empty columns", NodeText::yesNo(o.ignoreEmptyColumns));
    if (o.applies(InputOptions::HiddenRowsAndColumns)) {
        add("Ignore hidden Excel rows", NodeText::yesNo(o.ignoreHiddenRows));
        add("Ignore hidden Excel columns", NodeText::yesNo(o.ignoreHiddenColumns));
    }
    add("Meta information", metaText(o.metaPosition));
    add("Uses schema", NodeText::yesNo(o.schema.inUse));
    add("Alias", alias());
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
