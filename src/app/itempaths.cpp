#include "app/itempaths.h"

#include "files/filesheet.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"
#include "platform/paths.h"

#include <QFileInfo>

namespace {

FileSheet parted(const IONode &node, const QString &value)
{
    FileSheet source{value, node.sheetName()};
    if (FileType::isExcel(node.fileType()) && !QFileInfo::exists(value)) {
        const FileSheet split = splitFileSheet(value);
        source = split.file == value ? source : split;
    }
    return source;
}

} // namespace

FileSheet fileOfInput(const InputNode &input, const QString &value)
{
    return parted(input, value);
}

void setInputFile(InputNode &input, const QString &value)
{
    const FileSheet source = parted(input, value);
    input.setPath(platform::resolvedPath(source.file), source.sheet);
    input.setState(NodeState::NeedsProcessing, true);
}

void setInputFolder(InputNode &input, const QString &folder)
{
    InputOptions options = input.options();
    options.folder.folder = platform::resolvedPath(folder);
    input.setOptions(options);
    input.clearDataset();
    input.setState(NodeState::NeedsProcessing, true);
}

void setOutputFile(OutputNode &output, const QString &value)
{
    const FileSheet target = parted(output, value);
    output.setPath(target.file, target.sheet);
    output.setState(NodeState::NeedsProcessing, true);
}
