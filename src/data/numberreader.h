#pragma once

#include "data/cell.h"

#include <QLocale>
#include <memory>

class NumberLocale;

/// Reads many texts as numbers under one locale; gives what QLocale::toDouble and toLongLong give for the trimmed text,
/// with "nan", "inf" and "-inf" refused, and takes the plain forms without calling them. Failure gives 0; `ok` may be
/// null.
class NumberReader
{
public:
    /// Reads under the default locale of this moment.
    NumberReader(bool emptyIsOk, bool ignoreCurrency);
    NumberReader(const QLocale &locale, bool emptyIsOk, bool ignoreCurrency);

    double read(const Cell &cell, bool *ok = nullptr) const;
    double read(const QString &text, bool *ok = nullptr) const;
    /// A whole number; zeros behind the decimal point are let pass.
    qlonglong readLongLong(const Cell &cell, bool *ok = nullptr) const;
    qlonglong readLongLong(const QString &text, bool *ok = nullptr) const;
    int readInt(const Cell &cell, bool *ok = nullptr) const;
    int readInt(const QString &text, bool *ok = nullptr) const;
    const QLocale &locale() const;

private:
    template<class Unit, class Value, class Plain, class Slow>
    Value readUnits(const Unit *begin, const Unit *end, bool *ok, Plain plain, Slow slow) const;
    double readSlowly(const QString &text, bool *ok) const;
    qlonglong readWholeSlowly(const QString &text, bool *ok) const;
    static int toInt(qlonglong value, bool read, bool *ok);

    std::shared_ptr<const NumberLocale> m_locale;
    bool m_emptyIsOk;
    bool m_ignoreCurrency;
};
