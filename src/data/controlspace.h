#pragma once

#include <QString>

/// The rule that makes a text fit one line: carriage returns go, every other whitespace but the blank becomes a blank.
void simplifyControlSpace(QString &text);
/// The same on stored text, in place; returns the new size.
int simplifyControlSpace(char *bytes, int size);
