#pragma once

#include "document/documentvalue.h"

#include <QDomElement>

/// Takes fields from the attributes of one element. Field lists name each field once and run over this to read and
/// over AttributeWriter to write; an absent or unreadable attribute gives the fallback.
class AttributeReader
{
public:
    explicit AttributeReader(const QDomElement &element)
        : m_element(element)
    {
    }

    static constexpr bool isReading = true;
    QString stored(const char *name) const;

    void text(const char *name, QString &field, const QString &fallback = QString()) const;
    void integer(const char *name, int &field, int fallback) const;
    /// Numbers outside `lowest` to `highest` count as unreadable.
    void integer(const char *name, int &field, int fallback, int lowest, int highest) const;
    void boolean(const char *name, bool &field, bool fallback) const;
    void real(const char *name, double &field, double fallback) const;
    void character(const char *name, QChar &field, QChar fallback) const;
    /// A choice from 0 to `last`, 0 when it isn't there; a number beyond it says no more than "not 0" and means 1.
    void choice(const char *name, int &field, int last) const;
    void list(const char *name, QStringList &field) const;
    void listByPosition(const char *name, QStringList &field) const;
    void integerList(const char *name, QList<int> &field) const;
    void colour(const char *name, QColor &field, const QColor &fallback) const;
    void point(const char *name, QPointF &field) const;
    /// The point under `name`, or under `oldName` where there is none.
    void point(const char *name, const char *oldName, QPointF &field) const;
    void raw(const char *name, QString &field) const { text(name, field); }

private:
    QDomElement m_element;
};

/// Puts fields into the attributes of one element. Fallbacks and limits serve the reader only.
class AttributeWriter
{
public:
    explicit AttributeWriter(const QDomElement &element)
        : m_element(element)
    {
    }

    static constexpr bool isReading = false;

    void text(const char *name, const QString &field, const QString & = QString());
    void integer(const char *name, int field, int);
    void integer(const char *name, int field, int, int, int) { integer(name, field, 0); }
    void boolean(const char *name, bool field, bool);
    void real(const char *name, double field, double);
    void character(const char *name, QChar field, QChar);
    void choice(const char *name, int field, int) { integer(name, field, 0, 0, 0); }
    void list(const char *name, const QStringList &field);
    void listByPosition(const char *name, const QStringList &field) { list(name, field); }
    void integerList(const char *name, const QList<int> &field);
    void colour(const char *name, const QColor &field, const QColor &);
    void point(const char *name, const QPointF &field);
    void point(const char *name, const char *oldName, const QPointF &field);
    /// Text that is in its stored form already.
    void raw(const char *name, const QString &field);

private:
    /// A null text leaves the attribute out.
    void put(const char *name, const QString &stored);

    QDomElement m_element;
};
