#pragma once

class QPalette;
class QTextDocument;

/// What a page of the help looks like.
namespace HelpStyle {

/// Gives tables lines and room, code a background, and headings the names by which links reach them. The colours are
/// those of the palette, so that pages can be read in light and dark.
void apply(QTextDocument &document, const QPalette &palette);
/// Makes pictures that are wider than `width` pixels fit.
void fitPictures(QTextDocument &document, int width);

} // namespace HelpStyle
