#include "document/documentattributes.h"

#include <limits>

QString AttributeReader::stored(const char *name) const
{
    const QString key = QString::fromLatin1(name);
    if (!m_element.hasAttribute(key)) {
        return QString();
    }
    const QString value = m_element.attribute(key);
    return value.isNull() ? QString(QLatin1String("")) : value;
}

void AttributeReader::text(const char *name, QString &field, const QString &fallback) const
{
    field = DocumentValue::toText(stored(name), fallback);
}

void AttributeReader::integer(const char *name, int &field, int fallback) const
{
    field = DocumentValue::toInteger(stored(name), fallback);
}

void AttributeReader::integer(const char *name, int &field, int fallback, int lowest, int highest) const
{
    integer(name, field, fallback);
    if (field < lowest || field > highest) {
        field = fallback;
    }
}

void AttributeReader::boolean(const char *name, bool &field, bool fallback) const
{
    field = DocumentValue::toInteger(stored(name), fallback ? 1 : 0) != 0;
}

void AttributeReader::real(const char *name, double &field, double fallback) const
{
    field = DocumentValue::toReal(stored(name), fallback);
}

void AttributeReader::character(const char *name, QChar &field, QChar fallback) const
{
    field = DocumentValue::toCharacter(stored(name), fallback);
}

void AttributeReader::list(const char *name, QStringList &field) const
{
    field = DocumentValue::toList(stored(name));
}

void AttributeReader::choice(const char *name, int &field, int last) const
{
    integer(name, field, 0, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    if (field < 0 || field > last) {
        field = 1;
    }
}

void AttributeReader::listByPosition(const char *name, QStringList &field) const
{
    field = DocumentValue::toListByPosition(stored(name));
}

void AttributeReader::integerList(const char *name, QList<int> &field) const
{
    field = DocumentValue::toIntegerList(stored(name));
}

void AttributeReader::colour(const char *name, QColor &field, const QColor &fallback) const
{
    field = DocumentValue::toColour(stored(name), fallback);
}

void AttributeReader::point(const char *name, QPointF &field) const
{
    field = DocumentValue::toPoint(stored(name));
}

void AttributeReader::point(const char *name, const char *oldName, QPointF &field) const
{
    point(stored(name).isNull() ? oldName : name, field);
}

void AttributeWriter::put(const char *name, const QString &stored)
{
    if (!stored.isNull()) {
        m_element.setAttribute(QString::fromLatin1(name), stored);
    }
}

void AttributeWriter::text(const char *name, const QString &field, const QString &)
{
    put(name, DocumentValue::fromText(field));
}

void AttributeWriter::integer(const char *name, int field, int)
{
    put(name, DocumentValue::fromInteger(field));
}

void AttributeWriter::boolean(const char *name, bool field, bool)
{
    put(name, DocumentValue::fromInteger(field ? 1 : 0));
}

void AttributeWriter::real(const char *name, double field, double)
{
    put(name, DocumentValue::fromReal(field));
}

void AttributeWriter::character(const char *name, QChar field, QChar)
{
    put(name, DocumentValue::fromCharacter(field));
}

void AttributeWriter::list(const char *name, const QStringList &field)
{
    put(name, DocumentValue::fromList(field));
}

void AttributeWriter::integerList(const char *name, const QList<int> &field)
{
    put(name, DocumentValue::fromIntegerList(field));
}

void AttributeWriter::colour(const char *name, const QColor &field, const QColor &)
{
    put(name, DocumentValue::fromColour(field));
}

void AttributeWriter::point(const char *name, const QPointF &field)
{
    put(name, DocumentValue::fromPoint(field));
}

void AttributeWriter::point(const char *name, const char *oldName, const QPointF &field)
{
    point(name, field);
    put(oldName, DocumentValue::fromPoint(field, DocumentValue::oldSeparator));
}

void AttributeWriter::raw(const char *name, const QString &field)
{
    put(name, DocumentValue::fromRaw(field));
}
