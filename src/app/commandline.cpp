#include "app/commandline.h"

#include "platform/paths.h"
#include "settings/product.h"

#include <QDir>
#include <QFileInfo>
#include <cstring>

namespace {

struct VerbosityRow
{
    const char *name;
    const char *description;
};

const VerbosityRow verbosities[] = {
    {"Silent", "No output."},
    {"Summary", "Summary only."},
    {"Normal", "Summary + processing."},
    {"Extra", "Summary + processing + warnings."},
    {"Maximum", "Summary + processing + warnings + info."},
};

/// Walks over the arguments and fills a CommandLine.
class Parser
{
public:
    explicit Parser(const QStringList &arguments)
        : m_arguments(arguments)
    {
    }

    CommandLine parse()
    {
        for (m_index = 1; m_index < m_arguments.size() && m_result.error.isEmpty(); ++m_index) {
            const QString &argument = m_arguments.at(m_index);
            if (argument.startsWith(QLatin1Char('-'))) {
                takeOption(argument);
            } else if (m_result.document.isEmpty()) {
                takeDocument(argument);
            }
        }
        if (m_result.error.isEmpty()) {
            m_result.error = combinationError();
        }
        return m_result;
    }

private:
    void takeOption(const QString &argument)
    {
        const QString name = optionName(argument);
        if (!takeFlag(name) && !takeValueOption(name, argument)) {
            m_result.error = QStringLiteral("Unrecognized argument: %1").arg(argument);
        }
    }

    /// What can't be asked for together, or empty.
    QString combinationError() const
    {
        if (!m_result.reportPath.isEmpty() && (m_result.batch || !m_result.commandLine)) {
            return QStringLiteral("-report only works with -cli, for a single run");
        }
        if (m_result.batch && !m_result.commandLine) {
            return QStringLiteral("-batch only works with -cli");
        }
        return m_result.batch && !m_result.overrides.isEmpty()
                   ? QStringLiteral("-file and -folder can't be used with -batch, whose rows name the files")
                   : QString();
    }

    bool takeFlag(const QString &name)
    {
        static const struct
        {
            const char *name;
            bool CommandLine::*flag;
        } flags[] = {
            {"cli", &CommandLine::commandLine},
            {"batch", &CommandLine::batch},
            {"overwrite", &CommandLine::overwriteLog},
            {"new_window", &CommandLine::newWindow},
            {"version", &CommandLine::printVersion},
            {"build", &CommandLine::printBuild},
        };
        for (const auto &flag : flags) {
            if (name == QLatin1String(flag.name)) {
                m_result.*flag.flag = true;
                return true;
            }
        }
        if (name == QLatin1String("verbose")) {
            m_result.verbosity = Verbosity::Normal;
            m_result.namesVerbosity = true;
            return true;
        }
        return false;
    }

    /// False when there is no such option.
    bool takeValueOption(const QString &name, const QString &argument)
    {
        if (!takesValue(name)) {
            return false;
        }
        if (++m_index >= m_arguments.size()) {
            m_result.error = QStringLiteral("No value following %1 argument").arg(argument);
            return true;
        }
        const QString &value = m_arguments.at(m_index);
        if (name == QLatin1String("file") || name == QLatin1String("folder")) {
            m_result.overrides.append(value);
        } else if (name == QLatin1String("log")) {
            m_result.logPath = value;
        } else if (name == QLatin1String("report")) {
            m_result.reportPath = value;
        } else {
            takeVerbosity(value);
        }
        return true;
    }

    void takeVerbosity(const QString &value)
    {
        bool isNumber = false;
        const int level = value.toInt(&isNumber);
        if (isNumber && level >= Verbosity::Silent && level <= Verbosity::Maximum) {
            m_result.verbosity = level;
            m_result.namesVerbosity = true;
        } else {
            m_result.error = QStringLiteral("Verbosity value '%1' not recognised, %2-%3 expected")
                                 .arg(value, QString::number(Verbosity::Silent), QString::number(Verbosity::Maximum));
        }
    }

    void takeDocument(const QString &path)
    {
        const QFileInfo info(path);
        if (!info.exists()) {
            m_result.error = QStringLiteral("'%1' not found").arg(path);
        } else if (info.suffix().compare(QLatin1String(Product::documentSuffix), Qt::CaseInsensitive) != 0) {
            m_result.error = QStringLiteral("Unrecognized file suffix '%1' in '%2'").arg(info.suffix(), path);
        } else {
            m_result.document = platform::resolvedPath(path);
        }
    }

    const QStringList &m_arguments;
    int m_index = 1;
    CommandLine m_result;
};

} // namespace

QString Verbosity::name(int level)
{
    return level >= Silent && level <= Maximum ? QString::fromLatin1(verbosities[level].name) : QString();
}

QString Verbosity::description(int level)
{
    return level >= Silent && level <= Maximum ? QString::fromLatin1(verbosities[level].description) : QString();
}

QString optionName(const QString &argument)
{
    if (!argument.startsWith(QLatin1Char('-'))) {
        return QString();
    }
    return argument.mid(argument.startsWith(QLatin1String("--")) ? 2 : 1).toLower();
}

bool takesValue(const QString &optionName)
{
    static const QStringList names{QStringLiteral("log"), QStringLiteral("report"), QStringLiteral("verbosity"),
        QStringLiteral("file"), QStringLiteral("folder")};
    return names.contains(optionName);
}

CommandLine parseCommandLine(const QStringList &arguments)
{
    return Parser(arguments).parse();
}

bool asksForCommandLine(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        const QString name = optionName(QString::fromLocal8Bit(argv[i]));
        if (name == QLatin1String("cli")) {
            return true;
        }
        i += takesValue(name) ? 1 : 0;
    }
    return false;
}

bool namesPlatform(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "-platform") == 0 || std::strcmp(argv[i], "--platform") == 0) {
            return true;
        }
    }
    return false;
}
