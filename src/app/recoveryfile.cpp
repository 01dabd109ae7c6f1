#include "app/recoveryfile.h"

#include "document/documentfile.h"
#include "platform/ownfile.h"
#include "settings/product.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

namespace {

constexpr qint64 oldAfterSeconds = 60;
constexpr qint64 minute = 60;
constexpr qint64 hour = 60 * minute;
constexpr qint64 day = 24 * hour;

qint64 ageSeconds()
{
    return QFileInfo(RecoveryFile::path()).lastModified().secsTo(QDateTime::currentDateTime());
}

} // namespace

QString RecoveryFile::path()
{
    return QDir(QDir::tempPath()).absoluteFilePath(QString::fromLatin1(Product::recoveryFileName));
}

bool RecoveryFile::isRecoveryFile(const QString &path)
{
    return QFileInfo(path) == QFileInfo(RecoveryFile::path());
}

bool RecoveryFile::canBeOffered(int instances)
{
    return instances == 1 && platform::isOwnFile(path());
}

QString RecoveryFile::ageText()
{
    return ageText(ageSeconds());
}

QString RecoveryFile::ageText(qint64 seconds)
{
    if (seconds < minute) {
        return QStringLiteral("%1 second(s)").arg(qMax<qint64>(seconds, 0));
    }
    if (seconds < hour) {
        return QStringLiteral("%1 minute(s)").arg(seconds / minute);
    }
    if (seconds < day) {
        return QStringLiteral("%1 hour(s)").arg(seconds / hour);
    }
    return QStringLiteral("%1 day(s)").arg(seconds / day);
}

bool RecoveryFile::isOld()
{
    return !QFileInfo::exists(path()) || ageSeconds() > oldAfterSeconds;
}

bool RecoveryFile::save(const DocumentToSave &document, QString &error)
{
    // Written under a name that nobody can guess, and only then moved to the one that everybody knows: in a folder that
    // others may write to, a link could lie in wait there.
    const QString scratch = QStringLiteral("%1.%2").arg(path(), QUuid::createUuid().toString(QUuid::WithoutBraces));
    if (!saveDocument(nullptr, scratch, document, error, FileExposure::OwnerOnly)) {
        return false;
    }
    if (!platform::moveOver(scratch, path())) {
        error = QStringLiteral("Can't commit to file. %1").arg(qt_error_string());
        QFile::remove(scratch);
        return false;
    }
    return true;
}

void RecoveryFile::remove()
{
    if (platform::isOwnFile(path())) {
        QFile::remove(path());
    }
}
