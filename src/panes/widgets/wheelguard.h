#pragma once

class QWidget;

/// Lets the wheel scroll the panel under the pointer instead of changing a number or a choice that hasn't the focus.
void guardFromWheel(QWidget &widget);
