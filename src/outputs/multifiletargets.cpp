#include "outputs/multifiletargets.h"

#include "data/cellcolumn.h"
#include "data/rowkeyindex.h"
#include "files/filesheet.h"
#include "outputs/outputpaths.h"
#include "platform/paths.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

namespace {

enum Fault { None, Empty, EndsInFolder, RelativeToNothing, NotAbsolute, NoFolder, NoName, Blocked };

/// What is made of a text of the Files column.
struct Reading
{
    Fault fault = None;
    int target = -1; ///< of a text without a fault
};

/// What a row of that text is warned of; `Blocked` has a warning of its own.
QString warningOf(Fault fault, const QString &text, int row)
{
    const QString number = QString::number(row + 1);
    switch (fault) {
    case Empty:
        return QStringLiteral("Empty value for row %1").arg(number);
    case EndsInFolder:
        return QStringLiteral("no file name for row %1").arg(number);
    case RelativeToNothing:
        return QStringLiteral(
            "Relative file path for '%1' at row %2, but .transform not saved for it to be relative to.")
            .arg(text, number);
    case NotAbsolute:
        return QStringLiteral("File path not valid for '%1' at row %2").arg(text, number);
    case NoFolder:
        return QStringLiteral("Folder does not exist for '%1' at row %2").arg(text, number);
    case NoName:
        return QStringLiteral("No file name for '%1' at row %2").arg(text, number);
    case None:
    case Blocked:
        break;
    }
    return QString();
}

/// Reads the texts of a Files column, which adds to the targets.
class TargetReader
{
public:
    TargetReader(MultiFileTargets &result, const QString &documentPath)
        : m_result(result)
        , m_folder(documentPath.isEmpty() ? QString() : QFileInfo(documentPath).absolutePath())
    {
    }

    /// `text` is trimmed.
    Reading read(const QString &text)
    {
        if (text.isEmpty()) {
            return {Empty};
        }
        if (text.endsWith(QLatin1Char('/')) || text.endsWith(QLatin1Char('\\'))) {
            return {EndsInFolder};
        }
        FileSheet target = splitFileSheet(text);
        // Documents may come from a system that separates folders by backslashes.
        target.file.replace(QLatin1Char('\\'), QLatin1Char('/'));
        if (QDir::isRelativePath(target.file)) {
            if (m_folder.isEmpty()) {
                return {RelativeToNothing};
            }
            target.file.prepend(m_folder + QLatin1Char('/'));
        }
        return readAbsolute(target);
    }

    /// Paths with a blocked extension that have come since the last call.
    QStringList takeBlocked() { return std::exchange(m_newlyBlocked, {}); }

private:
    Reading readAbsolute(const FileSheet &target)
    {
        const QFileInfo file(target.file);
        if (file.isRelative()) {
            return {NotAbsolute};
        }
        if (!folderExists(file.path())) {
            return {NoFolder};
        }
        if (file.fileName().isEmpty()) {
            return {NoName};
        }
        const QString path = platform::resolvedPath(target.file);
        if (OutputPaths::isBlocked(path)) {
            if (!m_blocked.contains(path)) {
                m_blocked.insert(path);
                m_newlyBlocked.append(path);
            }
            return {Blocked};
        }
        return {None, numberOf(path, target.sheet)};
    }

    bool folderExists(const QString &folder)
    {
        auto known = m_folderExists.constFind(folder);
        if (known == m_folderExists.constEnd()) {
            known = m_folderExists.insert(folder, QFileInfo(folder).isDir());
        }
        return *known;
    }

    int numberOf(const QString &path, const QString &sheet)
    {
        const QString text = sheet.isEmpty() ? path : path + QLatin1Char('[') + sheet + QLatin1Char(']');
        auto known = m_numbers.constFind(text);
        if (known == m_numbers.constEnd()) {
            known = m_numbers.insert(text, static_cast<int>(m_result.targets.size()));
            m_result.targets.push_back({path, sheet, {}});
        }
        return *known;
    }

    MultiFileTargets &m_result;
    const QString m_folder;
    QHash<QString, bool> m_folderExists;
    QHash<QString, int> m_numbers;
    QSet<QString> m_blocked;
    QStringList m_newlyBlocked;
};

} // namespace

MultiFileTargets MultiFileTargets::of(const CellColumn &files, const QString &documentPath, QStringList &warnings)
{
    MultiFileTargets result;
    const auto warn = [&](const QString &warning) {
        if (!result.warningsCapped) {
            warnings.append(warning);
            result.warningsCapped = warnings.size() >= maxWarnings;
        }
    };
    TargetReader reader(result, documentPath);
    RowKeyIndex texts({files.cells.constData()});
    std::vector<Reading> readings;
    for (int row = 0; row < files.size(); ++row) {
        const auto number = static_cast<size_t>(texts.add(row));
        if (number == readings.size()) {
            readings.push_back(reader.read(files.at(row).text().trimmed()));
            for (const QString &path : reader.takeBlocked()) {
                warn(QStringLiteral("Extension for '%1' is blocked in 'Preferences>Output Extensions'.")
                         .arg(QDir::toNativeSeparators(path)));
            }
        }
        const Reading &reading = readings[number];
        if (reading.fault == None) {
            result.targets[static_cast<size_t>(reading.target)].rows.append(row);
        } else if (reading.fault != Blocked && !result.warningsCapped) {
            warn(warningOf(reading.fault, files.at(row).text().trimmed(), row));
        }
    }
    return result;
}
