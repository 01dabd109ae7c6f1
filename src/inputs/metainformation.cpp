#include "inputs/metainformation.h"

#include "data/values.h"
#include "files/filesheet.h"
#include "platform/username.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QSysInfo>
#include <iterator>

namespace {

QString shown(const QDateTime &time)
{
    return QLocale::system().toString(time, QLocale::ShortFormat);
}

QString shown(const QDate &date)
{
    return QLocale::system().toString(date, QLocale::ShortFormat);
}

struct ReadFile
{
    const MetaSource &source;
    QFileInfo file;
    QDateTime now;
};

struct Variable
{
    const char *name;
    bool ofFile;
    QString (*value)(const ReadFile &context);
};

// Numbers that go into cells come without grouping.
const Variable table[] = {
    {"CurrentDateTime", false, [](const ReadFile &c) { return shown(c.now); }},
    {"CurrentDate", false, [](const ReadFile &c) { return shown(c.now.date()); }},
    {"ComputerName", false, [](const ReadFile &) { return QSysInfo::machineHostName(); }},
    {"UserName", false, [](const ReadFile &) { return platform::userName(); }},
    {"DataRows", false, [](const ReadFile &c) { return formatInteger(c.source.rows, false); }},
    {"DataColumns", false, [](const ReadFile &c) { return formatInteger(c.source.columns, false); }},
    {"DataValues", false,
        [](const ReadFile &c) { return formatInteger(qlonglong(c.source.rows) * c.source.columns, false); }},
    {"FilePath", true, [](const ReadFile &c) { return absoluteNativePath(c.source.path); }},
    {"FolderPath", true, [](const ReadFile &c) { return QDir::toNativeSeparators(c.file.absolutePath()); }},
    {"FileName", true, [](const ReadFile &c) { return c.file.fileName(); }},
    {"FileSizeBytes", true, [](const ReadFile &c) { return formatInteger(c.file.size(), false); }},
    {"FileCreatedDateTime", true, [](const ReadFile &c) { return shown(c.file.birthTime()); }},
    {"FileUpdatedDateTime", true, [](const ReadFile &c) { return shown(c.file.lastModified()); }},
    {"FileCreatedDate", true, [](const ReadFile &c) { return shown(c.file.birthTime().date()); }},
    {"FileUpdatedDate", true, [](const ReadFile &c) { return shown(c.file.lastModified().date()); }},
    {"FileSheetName", true, [](const ReadFile &c) { return c.source.sheet; }},
};

QString valueOf(const QStringRef &name, const ReadFile &context, bool *known)
{
    for (const Variable &variable : table) {
        if (name == QLatin1String(variable.name)) {
            *known = true;
            return variable.ofFile && !context.file.exists() ? QStringLiteral("(file not found)")
                                                             : variable.value(context);
        }
    }
    *known = false;
    return QString();
}

} // namespace

QStringList MetaInformation::variables()
{
    QStringList names;
    for (const Variable &variable : table) {
        names.append(QStringLiteral("$(%1)").arg(QLatin1String(variable.name)));
    }
    return names;
}

QString MetaInformation::expand(const QString &text, const MetaSource &source)
{
    const ReadFile context{source, QFileInfo(source.path), QDateTime::currentDateTime()};
    QString result;
    int done = 0;
    // One pass from the left: what a variable stands for is never looked into.
    for (int open = text.indexOf(QLatin1String("$(")); open >= 0; open = text.indexOf(QLatin1String("$("), open + 1)) {
        const int close = text.indexOf(QLatin1Char(')'), open);
        if (close < 0) {
            break;
        }
        bool known = false;
        const QString value = valueOf(text.midRef(open + 2, close - open - 2), context, &known);
        if (known) {
            result += text.midRef(done, open - done) + value;
            done = close + 1;
            open = close;
        }
    }
    return result + text.midRef(done);
}
