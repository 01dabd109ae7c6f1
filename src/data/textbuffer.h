#pragma once

#include <QVarLengthArray>

/// Room for one text in its storage form; texts of usual length take no memory of their own.
using TextBuffer = QVarLengthArray<char, 256>;
