#include "app/openingquestions.h"

#include "charts/chartnode.h"
#include "data/values.h"
#include "graph/graphscene.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"
#include "panes/dialogs/prompts.h"
#include "panes/dialogs/selectfiletypedialog.h"
#include "settings/settings.h"
#include "text/cappedlist.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <algorithm>

namespace {

constexpr int mostWritten = 20;

/// Asks for other sources in the place of those that inputs of one medium name and that are gone.
class MissingSources
{
public:
    MissingSources(GraphScene &scene, int medium, const QString &documentPath, Prompts &prompts)
        : m_medium(medium)
        , m_documentPath(documentPath)
        , m_prompts(prompts)
    {
        for (IONode *node : scene.inputNodes()) {
            auto *input = qobject_cast<InputNode *>(node);
            if (input && input->medium() == medium && !exists(pathOf(*input))) {
                m_inputs.append(input);
                if (!m_paths.contains(pathOf(*input))) {
                    m_paths.append(pathOf(*input));
                }
            }
        }
    }

    /// True when an input got another source.
    bool replace()
    {
        if (m_inputs.isEmpty() || !wantsNewOnes()) {
            return false;
        }
        bool changed = false;
        for (InputNode *input : m_inputs) {
            const QString old = pathOf(*input);
            if (!m_answers.contains(old)) {
                m_answers.insert(old, ask(*input));
            }
            const QString answer = m_answers.value(old);
            if (!answer.isEmpty()) {
                setPath(*input, answer);
                changed = true;
            }
        }
        return changed;
    }

private:
    bool isFolder() const { return m_medium == Medium::Folder; }

    bool exists(const QString &path) const
    {
        return !path.isEmpty() && (isFolder() ? QFileInfo(path).isDir() : QFileInfo::exists(path));
    }

    QString pathOf(const InputNode &input) const { return isFolder() ? input.options().folder.folder : input.path(); }

    bool wantsNewOnes() const
    {
        const QString kind = isFolder() ? QStringLiteral("folder") : QStringLiteral("file");
        const QString list = OpeningQuestions::missingList(m_paths);
        const QString text =
            m_paths.size() == 1
                ? QStringLiteral(
                    "The following input %1 cannot be found:\n\n%2\n\nDo you wish to choose a new input %1?")
                      .arg(kind, list)
                : QStringLiteral(
                    "The following %1 input %2s cannot be found:\n\n%3\n\nDo you wish to choose new input %2s?")
                      .arg(formatInteger(m_paths.size(), true), kind, list);
        return m_prompts.confirm(text);
    }

    QString ask(const InputNode &input) const
    {
        const QString caption = QStringLiteral("Input alias=%1").arg(input.alias());
        QString folder = isFolder() ? pathOf(input) : QFileInfo(pathOf(input)).absolutePath();
        if (pathOf(input).isEmpty() || !QFileInfo(folder).isDir()) {
            folder = QFileInfo(m_documentPath).absolutePath();
        }
        if (isFolder()) {
            return m_prompts.openFolder({caption, folder, QString()});
        }
        return m_prompts.openFile({caption, folder, filterFor(input)});
    }

    /// The extensions of the input's type first.
    static QString filterFor(const InputNode &input)
    {
        const QStringList extensions = Settings::current().inputFileExtensions().keys(input.fileType());
        if (extensions.isEmpty()) {
            return Settings::current().inputFileFilter();
        }
        return QStringLiteral("%1 (*.%2);;%3")
            .arg(FileType::label(input.fileType()), extensions.join(QStringLiteral(" *.")),
                Settings::current().inputFileFilter());
    }

    /// The type by the extension, after asking where that isn't the type of the old file.
    int typeOf(const QString &path, int oldType) const
    {
        const QString extension = QFileInfo(path).suffix();
        const int type = Settings::current().inputTypeOf(extension);
        if (type == FileType::None || type == oldType) {
            return oldType;
        }
        SelectFileTypeDialog dialog(path, type, oldType, m_prompts.window());
        return m_prompts.exec(dialog) == QDialog::Accepted ? dialog.fileType() : oldType;
    }

    void setPath(InputNode &input, const QString &path) const
    {
        if (!isFolder()) {
            input.setFileType(typeOf(path, input.fileType()));
            input.setPath(path, input.sheetName());
            return;
        }
        InputOptions options = input.options();
        options.folder.folder = path;
        input.setOptions(options);
        input.setState(NodeState::NeedsProcessing, true);
    }

    const int m_medium;
    const QString m_documentPath;
    Prompts &m_prompts;
    QList<InputNode *> m_inputs;
    QStringList m_paths;
    QHash<QString, QString> m_answers;
};

bool writesFiles(const Node &node)
{
    if (const auto *output = qobject_cast<const OutputNode *>(&node)) {
        return output->writeMode() != WriteMode::Disabled;
    }
    const auto *chart = qobject_cast<const ChartNode *>(&node);
    return chart && chart->writesFile();
}

/// Outputs, then charts.
QList<Node *> writingNodes(const GraphScene &scene)
{
    QList<Node *> writing;
    for (IONode *node : scene.outputNodes()) {
        writing.append(node);
    }
    writing += scene.chartNodes();
    writing.erase(std::remove_if(writing.begin(), writing.end(), [](const Node *node) { return !writesFiles(*node); }),
        writing.end());
    return writing;
}

QString writtenLine(const Node &node)
{
    if (const auto *output = qobject_cast<const OutputNode *>(&node)) {
        return output->isMultiFile()
                   ? QStringLiteral("%1 (paths calculated from data)").arg(QStringLiteral("Multiple files"))
                   : QStringLiteral("%1 (%2)").arg(
                       QDir::toNativeSeparators(output->path()), WriteMode::label(output->writeMode()));
    }
    const auto &chart = static_cast<const ChartNode &>(node);
    return QStringLiteral("%1 (%2)").arg(
        QDir::toNativeSeparators(chart.path()), WriteMode::label(WriteMode::Overwrite));
}

void disableOutputs(GraphScene &scene)
{
    for (Node *node : writingNodes(scene)) {
        if (auto *output = qobject_cast<OutputNode *>(node)) {
            output->setWriteMode(WriteMode::Disabled);
        } else if (auto *chart = qobject_cast<ChartNode *>(node)) {
            chart->setWritesFile(false);
        }
    }
}

bool wantsAutoRunOff(const QString &document, const QString &list, Prompts &prompts)
{
    return prompts.choose(
        QStringLiteral("Output items in '%1' write to these file(s):\n\n%2\n\nDo you wish to disable auto run (you can "
                       "re-enable it any time)?\n\nYou can disable this check in 'Preferences'.")
            .arg(document, list),
        QStringLiteral("Disable auto run"), QStringLiteral("Keep auto run enabled"));
}

bool wantsOutputsOff(const QString &document, const QString &list, Prompts &prompts)
{
    return prompts.choose(
        QStringLiteral("%1 items in '%2' write to these file(s):\n\n%3\n\nDo you wish to disable all Output items (you "
                       "can re-enable them at any time)?\n\nYou can disable this check in 'Preferences'.")
            .arg(QStringLiteral("Output/Chart"), document, list),
        QStringLiteral("Disable output(s)"), QStringLiteral("Write to output(s)"));
}

} // namespace

bool OpeningQuestions::replaceMissingInputs(GraphScene &scene, const QString &documentPath, Prompts &prompts)
{
    const bool files = MissingSources(scene, Medium::File, documentPath, prompts).replace();
    const bool folders = MissingSources(scene, Medium::Folder, documentPath, prompts).replace();
    return files || folders;
}

QString OpeningQuestions::missingList(const QStringList &paths)
{
    CappedList list;
    for (const QString &path : paths) {
        list.add(path.isEmpty() ? QStringLiteral("<unset>") : QDir::toNativeSeparators(path));
    }
    return list.lines("more", "more").join(QLatin1Char('\n'));
}

QString OpeningQuestions::writtenFilesList(const GraphScene &scene)
{
    const QList<Node *> nodes = writingNodes(scene);
    QStringList lines;
    for (const Node *node : nodes.mid(0, mostWritten)) {
        lines.append(writtenLine(*node));
    }
    if (nodes.size() > mostWritten) {
        lines.append(QStringLiteral("...+%1 more").arg(formatInteger(nodes.size() - mostWritten, true)));
    }
    return lines.join(QLatin1Char('\n'));
}

bool OpeningQuestions::guardOutputs(GraphScene &scene, const QString &documentPath, bool &autoRun, Prompts &prompts)
{
    if (!autoRun) {
        return false;
    }
    const QString list = writtenFilesList(scene);
    const QString document = QDir::toNativeSeparators(documentPath);
    switch (Settings::current().openAutoRun()) {
    case AutoRunChoice::AskToDisableAutoRun:
        autoRun = list.isEmpty() || !wantsAutoRunOff(document, list, prompts);
        return !autoRun;
    case AutoRunChoice::AskToDisableOutputs:
        if (list.isEmpty() || !wantsOutputsOff(document, list, prompts)) {
            return false;
        }
        disableOutputs(scene);
        return true;
    case AutoRunChoice::DisableAutoRun:
        autoRun = false;
        return true;
    case AutoRunChoice::DisableOutputs:
        disableOutputs(scene);
        return !list.isEmpty();
    case AutoRunChoice::LeaveAutoRun:
        break;
    }
    return false;
}
