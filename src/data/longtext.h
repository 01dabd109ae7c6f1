#pragma once

#include "data/textbuffer.h"

#include <QString>

/// Growing texts whose size nobody knows beforehand. Both throw std::length_error, and leave the text as it is, where
/// it would become longer than any cell or QString can be.
namespace LongText {

/// Most bytes of a stored text that still fits a QString.
constexpr int mostBytes = (1 << 30) - 64;

/// Appends `size` stored bytes.
void append(TextBuffer &text, const char *bytes, int size);
/// QString::replace for all places; `find` isn't empty.
void replace(QString &text, const QString &find, const QString &with, Qt::CaseSensitivity sensitivity);

} // namespace LongText
