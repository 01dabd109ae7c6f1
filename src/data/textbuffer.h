#pragma once

#include "data/textcoding.h"

#include <QVarLengthArray>

/// Room for one text in WTF-8; texts of usual length take no memory of their own.
using TextBuffer = QVarLengthArray<char, 256>;

/// Replaces what `buffer` holds by the WTF-8 of `text`.
inline void setText(TextBuffer &buffer, const QString &text)
{
    buffer.resize(TextCoding::encodedCapacity(text.constData(), text.size()));
    buffer.resize(TextCoding::encode(buffer.data(), text.constData(), text.size()));
}
