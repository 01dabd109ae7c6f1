#pragma once

#include <QDateTime>
#include <QString>

struct DocumentToSave;

/// The copy of a changed document that is kept for the case that the program ends unexpectedly. There is one for each
/// user, in a folder that other users may write to: it can be read by its owner only, and one that isn't the user's own
/// is never opened.
namespace RecoveryFile {

QString path();
bool isRecoveryFile(const QString &path);
/// True when there is one of this user, and no other instance may be keeping it: `instances` run, this one included.
bool canBeOffered(int instances);
/// How long ago it was written, such as "5 minute(s)".
QString ageText();
/// "5 minute(s)" and the like, in the largest unit that fits.
QString ageText(qint64 seconds);
/// True when there is none or it is more than a minute old.
bool isOld();
/// False sets `error`.
bool save(const DocumentToSave &document, QString &error);
void remove();

} // namespace RecoveryFile
