#include "app/commandlinetext.h"

#include "files/filesheet.h"
#include "graph/ionode.h"
#include "outputs/outputenums.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace {

QString quoted(const QString &text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

/// Looks for what keeps aliases from being used, one check after the other.
class AliasCheck
{
public:
    explicit AliasCheck(const QList<CommandLineItem> &items)
    {
        for (const CommandLineItem &item : items) {
            (item.kind == CommandLineItem::Input       ? m_inputs
                : item.kind == CommandLineItem::Output ? m_outputs
                                                       : m_charts)
                .append(item);
        }
    }

    QStringList warnings()
    {
        checkInputs();
        checkOutputs();
        checkCharts();
        if (usable(m_outputs).isEmpty() && usable(m_charts).isEmpty()) {
            m_warnings.append(
                QStringLiteral("No %1 are written to.")
                    .arg(m_charts.isEmpty() ? QStringLiteral("Output items") : QStringLiteral("Output/Chart items")));
        }
        return m_warnings;
    }

    /// Those that can be replaced on the command line.
    QList<CommandLineItem> usable() const { return usable(m_inputs) + usable(m_outputs) + usable(m_charts); }

private:
    using Items = QList<CommandLineItem>;

    Items usable(const Items &items) const
    {
        Items good;
        for (const CommandLineItem &item : items) {
            if (!item.alias.isEmpty() && !m_badAliases.contains(item.alias)) {
                good.append(item);
            }
        }
        return good;
    }

    void warn(const CommandLineItem &item, const QString &text)
    {
        m_badAliases.insert(item.alias);
        m_warnings.append(text);
    }

    void warnOfEmpty(const Items &items, const QString &text)
    {
        for (const CommandLineItem &item : items) {
            if (item.alias.isEmpty()) {
                m_warnings.append(text);
            }
        }
    }

    void warnOfRepeated(const Items &items, const QString &text)
    {
        QHash<QString, int> counts;
        for (const CommandLineItem &item : items) {
            if (!item.alias.isEmpty() && ++counts[item.alias] == 2) {
                warn(item, text.arg(item.alias));
            }
        }
    }

    void warnOfUnconnected(const Items &items, const QString &text)
    {
        for (const CommandLineItem &item : items) {
            if (!item.alias.isEmpty() && !item.isConnected) {
                warn(item, text.arg(item.alias));
            }
        }
    }

    void warnOfShared(const Items &items, const QString &text)
    {
        QSet<QString> inputAliases;
        for (const CommandLineItem &input : m_inputs) {
            inputAliases.insert(input.alias);
        }
        for (const CommandLineItem &item : items) {
            if (!item.alias.isEmpty() && inputAliases.contains(item.alias)) {
                warn(item, text.arg(item.alias));
            }
        }
    }

    void checkInputs()
    {
        warnOfEmpty(m_inputs, QStringLiteral("Empty input alias."));
        warnOfRepeated(m_inputs, QStringLiteral("Input alias '%1' occurs more than once."));
        warnOfUnconnected(
            m_inputs, QStringLiteral("Input with alias '%1' is not connected to an output and will be ignored."));
        if (usable(m_inputs).isEmpty()) {
            m_warnings.append(QStringLiteral("No input aliases that can be used."));
        }
    }

    void checkOutputs()
    {
        for (const CommandLineItem &item : m_outputs) {
            if (item.writeMode == WriteMode::Disabled) {
                warn(item, QStringLiteral("Output with alias '%1' has 'Write mode'='%2' and will be ignored.")
                               .arg(item.alias, WriteMode::label(item.writeMode)));
            }
        }
        warnOfShared(m_outputs, QStringLiteral("Alias '%1' occurs for both input and output."));
        warnOfEmpty(m_outputs, QStringLiteral("Empty output alias"));
        warnOfRepeated(m_outputs, QStringLiteral("Output alias '%1' occurs more than once."));
        for (const CommandLineItem &item : m_outputs) {
            if (item.lacksFilesColumn) {
                warn(item,
                    QStringLiteral("Files column not set for multi-file output with alias '%1'.").arg(item.alias));
            }
        }
        warnOfUnconnected(
            m_outputs, QStringLiteral("Output with alias '%1' is not connected to an input and will be ignored."));
    }

    void checkCharts()
    {
        warnOfShared(m_charts, QStringLiteral("Alias '%1' occurs for both Input and Chart items."));
        warnOfEmpty(m_charts, QStringLiteral("Empty chart alias"));
        warnOfRepeated(m_charts, QStringLiteral("Chart alias '%1' occurs more than once."));
        warnOfUnconnected(
            m_charts, QStringLiteral("Chart with alias '%1' is not connected to an Input item and will be ignored."));
    }

    Items m_inputs;
    Items m_outputs;
    Items m_charts;
    QSet<QString> m_badAliases;
    QStringList m_warnings;
};

QString loopVariable(const CommandLineTextOptions &options)
{
    return options.format == CommandLineTextOptions::BatFile ? QStringLiteral("%%f") : QStringLiteral("%f");
}

QString valueOf(const CommandLineItem &item, const CommandLineTextOptions &options)
{
    const bool isLooped = options.loop && item.kind == CommandLineItem::Input && item.alias == options.loopAlias;
    return isLooped ? loopVariable(options) + loopPatternOf(item.path).worksheetSuffix : item.path;
}

QStringList runArguments(const CommandLineTextOptions &options)
{
    QStringList arguments{QStringLiteral("-cli")};
    if (options.verbosity != Verbosity::Silent) {
        arguments << QStringLiteral("-verbosity") << QString::number(options.verbosity);
        if (options.logging && !options.logPath.trimmed().isEmpty()) {
            arguments << QStringLiteral("-log") << quoted(options.logPath);
            if (options.overwriteLog) {
                arguments << QStringLiteral("-overwrite");
            }
        }
    }
    return arguments;
}

QString looped(const QString &command, const CommandLineTextOptions &options)
{
    const QString files = options.loopFolder + QDir::separator() + options.loopMatching;
    const QString pause = options.pauseSeconds < 1 ? QString()
                                                   : QStringLiteral(" & timeout /t %1 > nil").arg(options.pauseSeconds);
    // One call, so that a "%1" in a path stays what it is.
    return QStringLiteral("for /f \"delims=\" %1 in ('dir /b %2') do ( %3%4 )")
        .arg(loopVariable(options), files, command, pause);
}

} // namespace

LoopPattern loopPatternOf(const QString &path)
{
    LoopPattern pattern;
    const QString file = splitFileSheet(path).file;
    pattern.worksheetSuffix = path.mid(file.size());
    const QFileInfo info(file);
    pattern.folder = QDir::toNativeSeparators(info.absolutePath());
    const QString suffix = info.completeSuffix();
    pattern.matching = info.fileName().contains(QLatin1Char('.')) ? QStringLiteral("*.") + suffix : QStringLiteral("*");
    return pattern;
}

CommandLineText commandLineText(const QString &program, const QString &document, const QList<CommandLineItem> &items,
    const CommandLineTextOptions &options)
{
    AliasCheck check(items);
    CommandLineText result;
    result.warnings = check.warnings();
    if (options.hasUnsavedChanges) {
        result.warnings.append(QStringLiteral("This .transform file has unsaved changes."));
    }
    QStringList parts{quoted(program), quoted(document)};
    for (const CommandLineItem &item : check.usable()) {
        QString alias = item.alias;
        alias.replace(QLatin1Char('"'), QLatin1String("\\\""));
        parts << (item.isFolder ? QStringLiteral("-folder") : QStringLiteral("-file"))
              << quoted(alias + QLatin1Char('=') + valueOf(item, options));
    }
    const QString command = (parts + runArguments(options)).join(QLatin1Char(' '));
    result.text = options.loop ? looped(command, options) : command;
    return result;
}
