#include "document/pathrelocation.h"

#include "platform/paths.h"

#include <QDir>
#include <QFileInfo>

namespace {

bool hasDrive(const QString &path)
{
    return path.size() > 2 && path.at(0).isLetter() && path.at(1) == QLatin1Char(':') && path.at(2) == QLatin1Char('/');
}

/// Documents come from other systems, so a drive counts here too.
bool isAbsolute(const QString &path)
{
    return path.startsWith(QLatin1Char('/')) || hasDrive(path);
}

bool isNetworkPath(const QString &path)
{
    return path.startsWith(QLatin1String("//"));
}

/// `path` as seen from `folder`; empty when they share no root. Both are absolute and clean.
QString relativeTo(const QString &folder, const QString &path)
{
    const Qt::CaseSensitivity cs = hasDrive(folder) ? Qt::CaseInsensitive : Qt::CaseSensitive;
    const QStringList from = folder.split(QLatin1Char('/'));
    const QStringList to = path.split(QLatin1Char('/'));
    int common = 0;
    while (common < from.size() && common < to.size() && from.at(common).compare(to.at(common), cs) == 0) {
        ++common;
    }
    if (common == 0) {
        return QString();
    }
    const int rootParts = from.last().isEmpty() ? 1 : 0;
    const int up = qMax(0, from.size() - rootParts - common);
    return QStringLiteral("./") + QStringLiteral("../").repeated(up) + to.mid(common).join(QLatin1Char('/'));
}

} // namespace

PathRelocation::PathRelocation(const QString &savedDocPath, const QString &openedDocPath)
{
    if (savedDocPath.isEmpty() || openedDocPath.isEmpty()) {
        return;
    }
    const QString saved = QDir::cleanPath(cleaned(savedDocPath));
    const QString opened = platform::resolvedPath(openedDocPath);
    if (saved != opened) {
        m_oldFolder = saved.left(qMax(0, saved.lastIndexOf(QLatin1Char('/'))));
        m_newFolder = QFileInfo(opened).path();
    }
}

QString PathRelocation::cleaned(const QString &path)
{
    QString clean = path.trimmed();
#ifdef Q_OS_WIN
    if (clean.startsWith(QLatin1Char('/')) && !clean.startsWith(QLatin1String("//"))) {
        clean.prepend(QLatin1String("C:"));
    }
#endif
    return clean.replace(QLatin1Char('\\'), QLatin1Char('/'));
}

QString PathRelocation::relocated(const QString &path) const
{
    if (m_newFolder.isEmpty() || path.isEmpty() || isNetworkPath(path)) {
        return QString();
    }
    // What stands beside the document may lead through links, so ".." in it is left to the end.
    const QString relative = isAbsolute(path) ? relativeTo(m_oldFolder, QDir::cleanPath(path)) : path;
    return relative.isEmpty() ? QString() : platform::resolvedPath(m_newFolder + QLatin1Char('/') + relative);
}

QString PathRelocation::existing(const QString &path)
{
    if (path.isEmpty() || QFileInfo::exists(path)) {
        return path;
    }
    const QString candidate = relocated(path);
    if (candidate.isEmpty() || !QFileInfo::exists(candidate)) {
        return path;
    }
    m_hasRelocated = true;
    return candidate;
}

QString PathRelocation::writable(const QString &path)
{
    if (!isAbsolute(path) || QFileInfo(path).dir().exists()) {
        return path;
    }
    const QString candidate = relocated(path);
    if (candidate.isEmpty() || !QFileInfo(candidate).dir().exists()) {
        return path;
    }
    m_hasRelocated = true;
    return candidate;
}
