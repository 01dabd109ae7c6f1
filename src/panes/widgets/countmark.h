#pragma once

class QColor;
class QIcon;
class QWidget;

/// A number in a round mark, for a tab; as high as the text of `widget`. More than 99 are shown as "99+".
QIcon countMark(int count, const QColor &color, const QWidget &widget);
