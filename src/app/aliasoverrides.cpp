#include "app/aliasoverrides.h"

#include "charts/chartnode.h"
#include "files/filesheet.h"
#include "graph/graphscene.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"
#include "platform/paths.h"

#include <QFileInfo>

namespace {

/// Parts the sheet in brackets from the path of a workbook; without one, the item's sheet stays.
FileSheet parted(const QString &value, const IONode &node)
{
    FileSheet source{value, node.sheetName()};
    if (FileType::isExcel(node.fileType()) && !QFileInfo::exists(value)) {
        const FileSheet split = splitFileSheet(value);
        source = split.file == value ? source : split;
    }
    return source;
}

/// Gives one alias of a scene another file or folder.
class Override
{
public:
    Override(GraphScene &scene, const QString &alias, const QString &value)
        : m_scene(scene)
        , m_alias(alias.trimmed())
        , m_value(value)
    {
    }

    /// Empty, or why it can't be applied.
    QString apply()
    {
        for (Node *node : m_scene.nodes()) {
            if (node->alias().trimmed() != m_alias || m_alias.isEmpty()) {
                continue;
            }
            QString error = applyTo(*node);
            if (!error.isEmpty()) {
                return error;
            }
        }
        return m_isKnown ? QString() : QStringLiteral("Alias '%1' not recognized").arg(m_alias);
    }

private:
    QString applyTo(Node &node)
    {
        if (auto *input = qobject_cast<InputNode *>(&node)) {
            return input->medium() == Medium::Folder ? setFolder(*input) : setFile(*input);
        }
        if (auto *output = qobject_cast<OutputNode *>(&node)) {
            const FileSheet target = parted(m_value, *output);
            output->setPath(target.file, target.sheet);
        } else if (auto *chart = qobject_cast<ChartNode *>(&node)) {
            chart->setPath(m_value);
        } else {
            return QString();
        }
        m_isKnown = true;
        node.setState(NodeState::NeedsProcessing, true);
        return QString();
    }

    QString setFile(InputNode &input)
    {
        if (input.medium() != Medium::File) {
            return QString();
        }
        const FileSheet source = parted(m_value, input);
        const QFileInfo file(source.file);
        if (!file.isFile()) {
            return QStringLiteral("File '%1' does not exist").arg(m_value);
        }
        m_isKnown = true;
        input.setPath(platform::resolvedPath(source.file), source.sheet);
        return QString();
    }

    QString setFolder(InputNode &input)
    {
        const QFileInfo folder(m_value);
        if (!folder.isDir()) {
            return QStringLiteral("Folder '%1' does not exist").arg(m_value);
        }
        m_isKnown = true;
        InputOptions options = input.options();
        options.folder.folder = platform::resolvedPath(m_value);
        input.setOptions(options);
        input.clearDataset();
        input.setState(NodeState::NeedsProcessing, true);
        return QString();
    }

    GraphScene &m_scene;
    const QString m_alias;
    const QString m_value;
    bool m_isKnown = false;
};

} // namespace

OverrideResult applyOverrides(const QStringList &overrides, GraphScene &scene)
{
    OverrideResult result;
    for (const QString &entry : overrides) {
        const QStringList parts = entry.split(QLatin1Char('='));
        if (parts.size() != 2) {
            result.error = QStringLiteral("Expected <alias>=<value> for %1 argument").arg(entry);
            return result;
        }
        result.error = Override(scene, parts.at(0), parts.at(1)).apply();
        if (!result.error.isEmpty()) {
            return result;
        }
        result.changed = true;
    }
    return result;
}
