#pragma once

#include <QImage>
#include <functional>

class QPalette;
class QTextDocument;

/// What a page of the help looks like.
namespace HelpStyle {

/// Gives tables lines and room, code a background, and headings the names by which links reach them. The colours are
/// those of the palette, so that pages can be read in light and dark.
void apply(QTextDocument &document, const QPalette &palette);
/// Gives a picture in its full size by the name that the page has for it.
using Pictures = std::function<QImage(const QString &name)>;
/// Makes pictures that are wider than `width` fit; `pixelRatio` is that of the screen.
void fitPictures(QTextDocument &document, int width, double pixelRatio, const Pictures &pictureOf);

} // namespace HelpStyle
