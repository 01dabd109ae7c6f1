#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <ostream>

// Lets a failed comparison show texts and not their bytes.

inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList &texts, std::ostream *out)
{
    *out << "{\"" << texts.join(QStringLiteral("\", \"")).toStdString() << "\"}";
}

inline void PrintTo(const QDate &date, std::ostream *out)
{
    *out << (date.isValid() ? date.toString(Qt::ISODate).toStdString() : "no date");
}
