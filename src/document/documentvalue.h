#pragma once

#include <QColor>
#include <QList>
#include <QPointF>
#include <QString>
#include <QStringList>

/// How documents store values in attributes, both ways. Stored text is plain ASCII; what can't be read gives the
/// fallback. A null `stored` stands for an absent attribute, a null result for one that isn't written.
namespace DocumentValue {

/// Parts the entries of a stored list.
constexpr QChar separator(0x1F);
/// What parted them in old documents.
constexpr QChar oldSeparator(u'^');

QString fromText(const QString &text);
QString fromInteger(int value);
/// Six significant digits.
QString fromReal(double value);
QString fromCharacter(QChar value);
QString fromList(const QStringList &list, QChar by = separator);
QString fromPoint(const QPointF &point, QChar by = separator);
QString fromColour(const QColor &colour);
QString fromIntegerList(const QList<int> &list);
/// Text that is in its stored form already; only what isn't printable ASCII is percent-encoded.
QString fromRaw(const QString &stored);

QString toText(const QString &stored, const QString &fallback = QString());
int toInteger(const QString &stored, int fallback);
double toReal(const QString &stored, double fallback);
QChar toCharacter(const QString &stored, QChar fallback);
/// Empty entries are dropped.
QStringList toList(const QString &stored);
/// Empty entries are kept, for a list whose entries belong to those of another list by position.
QStringList toListByPosition(const QString &stored);
/// (0, 0) unless there are exactly two numbers that a canvas can hold.
QPointF toPoint(const QString &stored);
QColor toColour(const QString &stored, const QColor &fallback);
/// Entries that aren't integers are skipped.
QList<int> toIntegerList(const QString &stored);

} // namespace DocumentValue
