#include "app/report/reportfile.h"

#include "platform/paths.h"

#include <QDir>

bool ReportFile::open(const QString &path, bool overwrite)
{
    m_file.close();
    m_file.setFileName(platform::resolvedPath(path));
    const QIODevice::OpenMode mode = overwrite ? QIODevice::Truncate : QIODevice::Append;
    return !path.isEmpty() && m_file.open(QIODevice::WriteOnly | QIODevice::Text | mode);
}

QString ReportFile::nativePath() const
{
    return isOpen() ? QDir::toNativeSeparators(m_file.fileName()) : QString();
}

void ReportFile::info(const QString &text)
{
    if (isOpen()) {
        m_file.write(text.toUtf8() + '\n');
        m_file.flush();
    }
}

void ReportFile::error(const QString &text)
{
    info(m_errorsMarked ? QStringLiteral("** %1 **").arg(text) : text);
}

void ReportFile::writeBytes(const char *bytes)
{
    if (isOpen()) {
        m_file.write(bytes);
        m_file.flush();
    }
}
