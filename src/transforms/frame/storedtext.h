#pragma once

#include "data/textbuffer.h"

/// Appends a text in storage form to another; the two halves of a surrogate pair become one character.
void appendStored(TextBuffer &out, const char *bytes, int size);
