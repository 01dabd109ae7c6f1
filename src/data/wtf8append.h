#pragma once

#include "data/textbuffer.h"

/// Appends a text in WTF-8 to another; the two halves of a surrogate pair become one character.
void appendWtf8(TextBuffer &out, const char *bytes, int size);
