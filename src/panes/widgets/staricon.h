#pragma once

class QIcon;
class QWidget;

/// A star in the text colour of `widget`, filled or as an outline.
QIcon starIcon(bool filled, const QWidget &widget);
