#include "outputs/filenamevariables.h"

#include "platform/paths.h"
#include "platform/username.h"
#include "settings/version.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QSysInfo>

namespace {

struct DateVariable
{
    const char *name;
    const char *format;
};

const DateVariable dateVariables[] = {
    {"{date}", "yyyy_MM_dd"},
    {"{time}", "HH_mm_ss_zzz"},
    {"{datetime}", "yyyy_MM_dd_HH_mm_ss_zzz"},
    {"{day}", "dd"},
    {"{month}", "MM"},
    {"{year}", "yyyy"},
    {"{hour}", "HH"},
    {"{minute}", "mm"},
    {"{second}", "ss"},
};

const char *const hostVariables[] = {"{version}", "{computername}", "{username}", "{transformfname}"};

QString hostValue(QLatin1String name, const QString &documentPath)
{
    if (name == QLatin1String("{version}")) {
        return QStringLiteral("v%1_%2_%3").arg(Version::major).arg(Version::minor).arg(Version::patch);
    }
    if (name == QLatin1String("{computername}")) {
        return QSysInfo::machineHostName();
    }
    if (name == QLatin1String("{username}")) {
        return platform::userName();
    }
    return QFileInfo(documentPath).baseName();
}

void replaceSource(QString &path, QString &sheet, const FileNameVariables::Source &source)
{
    const QFileInfo file(source.path);
    const QString stem = file.completeBaseName();
    const QString folder = source.path.isEmpty() ? QString() : QFileInfo(platform::resolvedPath(source.path)).path();
    const auto variable = [&source](const char *part) {
        return QLatin1Char('{') + source.alias + QLatin1String(part) + QLatin1Char('}');
    };
    const auto replaceInBoth = [&](const char *part, const QString &value) {
        path.replace(variable(part), value);
        sheet.replace(variable(part), value);
    };
    replaceInBoth("", source.sheet.isEmpty() ? stem : stem + QLatin1Char('_') + source.sheet);
    replaceInBoth(".fname", stem);
    replaceInBoth(".folder", QDir::toNativeSeparators(folder));
    path.replace(variable(".lastfolder"), QDir(folder).dirName());
    replaceInBoth(".ext", file.suffix());
    replaceInBoth(".sheet", source.sheet);
}

void replaceDatesAndHost(QString &text, const QString &documentPath, const QDateTime &now)
{
    for (const DateVariable &variable : dateVariables) {
        const QLatin1String name(variable.name);
        if (text.contains(name)) {
            text.replace(name, now.toString(QLatin1String(variable.format)));
        }
    }
    for (const char *variable : hostVariables) {
        const QLatin1String name(variable);
        if (text.contains(name)) {
            text.replace(name, hostValue(name, documentPath));
        }
    }
}

} // namespace

void FileNameVariables::expand(QString &path, QString &sheet, const Context &context, const QDateTime &now)
{
    if (!path.contains(QLatin1Char('{')) && !sheet.contains(QLatin1Char('{'))) {
        return;
    }
    QSet<QString> seen;
    for (const Source &source : context.sources) {
        if (!seen.contains(source.alias)) {
            seen.insert(source.alias);
            replaceSource(path, sheet, source);
        }
    }
    replaceDatesAndHost(path, context.documentPath, now);
    replaceDatesAndHost(sheet, context.documentPath, now);
}

QString FileNameVariables::expanded(const QString &text, const Context &context, const QDateTime &now)
{
    QString result = text;
    QString noSheet;
    expand(result, noSheet, context, now);
    return result;
}

QStringList FileNameVariables::names()
{
    QStringList names;
    for (const DateVariable &variable : dateVariables) {
        names.append(QLatin1String(variable.name));
    }
    for (const char *variable : hostVariables) {
        names.append(QLatin1String(variable));
    }
    return names;
}
