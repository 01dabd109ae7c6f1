#pragma once

class Node;
class QIcon;
class QPainter;
class QRectF;
class QString;

/// The pictures of the kinds of items, built into the program. `scripts/make-pictures` draws them.
namespace Pictures {

/// The name of a transform's picture, by the type name that documents store.
QString ofTransform(const QString &typeName);
/// The name of the picture of an item on the canvas; empty for a note.
QString ofNode(const Node &node);
/// For light or for dark ground; a null one for a name that has no picture. Sharp at every size.
QIcon icon(const QString &name, bool onDark);
/// Fills a square of the painter's coordinates, as sharp as the painter's scale allows. Nothing without such a picture.
void draw(QPainter &painter, const QRectF &square, const QString &name, bool onDark);
/// The program's own mark.
QIcon programIcon();

} // namespace Pictures
