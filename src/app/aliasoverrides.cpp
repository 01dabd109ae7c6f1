#include "app/aliasoverrides.h"

#include "app/itempaths.h"
#include "charts/chartnode.h"
#include "files/filesheet.h"
#include "graph/graphscene.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"

#include <QFileInfo>

namespace {

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
            setOutputFile(*output, m_value);
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
        if (!QFileInfo(fileOfInput(input, m_value).file).isFile()) {
            return QStringLiteral("File '%1' does not exist").arg(m_value);
        }
        m_isKnown = true;
        setInputFile(input, m_value);
        return QString();
    }

    QString setFolder(InputNode &input)
    {
        const QFileInfo folder(m_value);
        if (!folder.isDir()) {
            return QStringLiteral("Folder '%1' does not exist").arg(m_value);
        }
        m_isKnown = true;
        setInputFolder(input, m_value);
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
