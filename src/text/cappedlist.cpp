#include "text/cappedlist.h"

#include <QLocale>

void CappedList::truncate(qint64 count)
{
    m_count = qMin(m_count, count);
    while (m_texts.size() > m_count) {
        m_texts.removeLast();
    }
}

QString CappedList::othersLine(const char *one, const char *many) const
{
    const qint64 number = others();
    return number == 0 ? QString()
                       : QStringLiteral("+ %1 %2").arg(
                           QLocale().toString(number), QString::fromLatin1(number == 1 ? one : many));
}

QStringList CappedList::lines(const char *one, const char *many) const
{
    return others() == 0 ? m_texts : m_texts + QStringList(othersLine(one, many));
}
