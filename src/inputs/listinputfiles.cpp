#include "inputs/listinputfiles.h"

#include "files/filesheet.h"
#include "platform/paths.h"
#include "settings/settings.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace {

class InputFileList
{
public:
    InputFileList(const QStringList &filters, const QString &blockedExtensions, bool recurse, QStringList *warnings)
        : m_filters(filters)
        , m_blockedExtensions(blockedExtensions)
        , m_recurse(recurse)
        , m_warnings(*warnings)
    {
    }

    void addFolder(const QString &path)
    {
        const QFileInfo folder(path);
        if (!folder.isDir() || m_listed.contains(folder.canonicalFilePath())) {
            return;
        }
        m_listed.insert(folder.canonicalFilePath());
        if (!folder.isReadable()) {
            warn("Folder '%1' is not readable", path);
            return;
        }
        const QDir dir(path);
        for (const QFileInfo &file : dir.entryInfoList(m_filters, QDir::Files, QDir::Name)) {
            addFile(file);
        }
        if (m_recurse) {
            for (const QString &name : dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
                addFolder(dir.filePath(name));
            }
        }
    }

    const QStringList &paths() const { return m_paths; }

private:
    void addFile(const QFileInfo &file)
    {
        if (!file.isReadable()) {
            warn("File '%1' is not readable", file.filePath());
        } else if (file.size() == 0) {
            warn("File '%1' is 0 bytes", file.filePath());
        } else if (Settings::isExtensionBlocked(file.suffix(), m_blockedExtensions)) {
            warn("File '%1' extension blocked in 'Preferences>Input Extensions'", file.filePath());
        } else {
            m_paths.append(platform::resolvedPath(file.filePath()));
        }
    }

    void warn(const char *text, const QString &path)
    {
        m_warnings.append(QString::fromLatin1(text).arg(absoluteNativePath(path)));
    }

    const QStringList m_filters;
    const QString m_blockedExtensions;
    const bool m_recurse;
    QStringList &m_warnings;
    QSet<QString> m_listed; // folders without links in their paths
    QStringList m_paths;
};

} // namespace

QStringList listInputFiles(const QString &folder, const QStringList &filters, const QString &blockedExtensions,
    bool recurse, QStringList *warnings)
{
    InputFileList list(filters, blockedExtensions, recurse, warnings);
    list.addFolder(folder);
    return list.paths();
}
