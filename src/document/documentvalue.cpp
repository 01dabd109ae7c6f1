#include "document/documentvalue.h"

#include <QUrl>
#include <cmath>

namespace {

QStringList splitList(const QString &stored, Qt::SplitBehavior behavior)
{
    const bool isCurrent = stored.contains(DocumentValue::separator);
    QStringList list = stored.split(isCurrent ? DocumentValue::separator : DocumentValue::oldSeparator, behavior);
    for (QString &part : list) {
        part = DocumentValue::toText(part);
    }
    return list;
}

} // namespace

QString DocumentValue::fromText(const QString &text)
{
    return text.isEmpty() ? QString() : QString::fromLatin1(QUrl::toPercentEncoding(text));
}

QString DocumentValue::fromInteger(int value)
{
    return QString::number(value);
}

QString DocumentValue::fromReal(double value)
{
    return QString::number(value, 'g', 6);
}

QString DocumentValue::fromCharacter(QChar value)
{
    // No character has a form of its own: left out, it would come back as the reader's default.
    return fromText(QString(value));
}

QString DocumentValue::fromList(const QStringList &list, QChar by)
{
    QStringList parts;
    parts.reserve(list.size());
    for (const QString &text : list) {
        parts.append(fromText(text));
    }
    return list.isEmpty() ? QString() : parts.join(by);
}

QString DocumentValue::fromPoint(const QPointF &point, QChar by)
{
    return fromList({fromReal(point.x()), fromReal(point.y())}, by);
}

QString DocumentValue::fromColour(const QColor &colour)
{
    if (!colour.isValid()) {
        return QString();
    }
    return fromIntegerList({colour.red(), colour.green(), colour.blue()});
}

QString DocumentValue::fromIntegerList(const QList<int> &list)
{
    QStringList parts;
    parts.reserve(list.size());
    for (int number : list) {
        parts.append(fromInteger(number));
    }
    return fromList(parts);
}

QString DocumentValue::fromRaw(const QString &stored)
{
    QString text(QLatin1String(""));
    text.reserve(stored.size());
    for (const uint character : stored.toUcs4()) {
        const bool plain = (character >= 0x20 && character < 0x7F) || character == separator.unicode();
        const QString one = QString::fromUcs4(&character, 1);
        text += plain ? one : fromText(one);
    }
    return text;
}

QString DocumentValue::toText(const QString &stored, const QString &fallback)
{
    return stored.isNull() ? fallback : QUrl::fromPercentEncoding(stored.toUtf8());
}

int DocumentValue::toInteger(const QString &stored, int fallback)
{
    bool ok = false;
    const int value = stored.toInt(&ok, 10);
    return ok ? value : fallback;
}

double DocumentValue::toReal(const QString &stored, double fallback)
{
    bool ok = false;
    const double value = stored.toDouble(&ok);
    return ok && std::isfinite(value) ? value : fallback;
}

QChar DocumentValue::toCharacter(const QString &stored, QChar fallback)
{
    const QString text = toText(stored);
    return text.isEmpty() ? fallback : text.at(0);
}

QStringList DocumentValue::toList(const QString &stored)
{
    return splitList(stored, Qt::SkipEmptyParts);
}

QStringList DocumentValue::toListByPosition(const QString &stored)
{
    return stored.isEmpty() ? QStringList() : splitList(stored, Qt::KeepEmptyParts);
}

QPointF DocumentValue::toPoint(const QString &stored)
{
    constexpr double farthest = 1e8;
    constexpr double unreadable = 2 * farthest;
    const QStringList parts = toList(stored);
    if (parts.size() != 2) {
        return QPointF();
    }
    const QPointF point(toReal(parts.at(0), unreadable), toReal(parts.at(1), unreadable));
    return std::abs(point.x()) <= farthest && std::abs(point.y()) <= farthest ? point : QPointF();
}

QColor DocumentValue::toColour(const QString &stored, const QColor &fallback)
{
    const QStringList parts = toList(stored);
    if (parts.size() < 3) {
        return fallback;
    }
    const QColor colour(toInteger(parts.at(0), -1), toInteger(parts.at(1), -1), toInteger(parts.at(2), -1));
    return colour.isValid() ? colour : fallback;
}

QList<int> DocumentValue::toIntegerList(const QString &stored)
{
    QList<int> list;
    const QStringList parts = toList(stored);
    for (const QString &part : parts) {
        bool ok = false;
        const int number = part.toInt(&ok, 10);
        if (ok) {
            list.append(number);
        }
    }
    return list;
}
