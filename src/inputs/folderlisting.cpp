#include "inputs/folderlisting.h"

#include "data/values.h"
#include "inputs/excelsheets.h"
#include "inputs/listinputfiles.h"
#include "settings/filetypes.h"
#include "settings/settings.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace {

bool hasWildcard(const QString &text)
{
    return text.contains(QLatin1Char('*')) || text.contains(QLatin1Char('?'));
}

/// In the words of a listing, which reads nothing yet.
QString worded(QString message)
{
    message.replace(QStringLiteral("' is 0 bytes"), QStringLiteral("' is 0KB"));
    return message.replace(QStringLiteral("' extension blocked"), QStringLiteral("' has extension blocked"));
}

} // namespace

FolderListing::FolderListing(const FolderInput &source, int fileType)
    : m_source(source)
    , m_fileType(fileType)
{
}

QStringList FolderListing::checks() const
{
    const QString folderLabel = QStringLiteral("Folder");
    const QString matchLabel = QStringLiteral("Matching files");
    QStringList lines;
    if (m_source.folder.isEmpty()) {
        lines.append(QStringLiteral("'%1' is unset").arg(folderLabel));
    } else if (hasWildcard(m_source.folder)) {
        lines.append(QStringLiteral("'%1' should not contain '*' or '?' wildcards").arg(folderLabel));
    }
    const QString &match = m_source.fileMatch;
    if (match.isEmpty()) {
        lines.append(QStringLiteral("'%1' is unset").arg(matchLabel));
        return lines;
    }
    if (match.contains(QLatin1Char('\\')) || match.contains(QLatin1Char('/'))) {
        lines.append(QStringLiteral("'%1' should not contain '\\' or '/' characters").arg(matchLabel));
    }
    if (!hasWildcard(match)) {
        lines.append(QStringLiteral("'%1' should usually contain '*' or '?' wildcards").arg(matchLabel));
    }
    const QString extension = QFileInfo(match).suffix();
    const int expected = Settings::current().inputTypeOf(extension);
    if (expected != FileType::None && expected != m_fileType) {
        lines.append(QStringLiteral("File type '%1' may be incorrect for extension '%2'")
                         .arg(FileType::label(m_fileType), extension));
    }
    return lines;
}

void FolderListing::run(const std::function<bool()> &goOn)
{
    m_rows.clear();
    m_messages.clear();
    m_isStopped = false;
    QStringList warnings;
    const QStringList paths = listInputFiles(m_source.folder, {m_source.fileMatch},
        Settings::current().blockedInputExtensions(), m_source.recurse, &warnings);
    for (const QString &warning : qAsConst(warnings)) {
        m_messages.append(worded(warning));
    }
    for (const QString &path : paths) {
        const QFileInfo file(path);
        FolderListingRow row{QDir::toNativeSeparators(file.absolutePath()), file.fileName(), {}, file.size(),
            file.birthTime(), file.lastModified()};
        if (FileType::isExcel(m_fileType)) {
            row.sheets = matchingSheets(m_fileType, path, m_source.sheetMatch);
        }
        m_rows.append(row);
        if (!goOn()) {
            m_isStopped = true;
            m_messages.append(QStringLiteral("Stopped by user"));
            return;
        }
    }
}

QString FolderListing::summary() const
{
    QSet<QString> folders;
    qint64 kilobytes = 0;
    int sheets = 0;
    for (const FolderListingRow &row : m_rows) {
        folders.insert(row.folder);
        kilobytes += row.kilobytes();
        sheets += row.sheets.size();
    }
    const QString sheetText = FileType::isExcel(m_fileType)
                                  ? QStringLiteral(" and %1 sheet(s)").arg(formatInteger(sheets, true))
                                  : QString();
    return QStringLiteral("%1 file(s)%2 matched in %3 folder(s), total size %4KB%5")
        .arg(formatInteger(m_rows.size(), true), sheetText, formatInteger(folders.size(), true),
            formatInteger(kilobytes, true), m_isStopped ? QStringLiteral(" (stopped by user)") : QString());
}
