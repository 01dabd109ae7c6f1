#pragma once

#include <QChar>
#include <QString>
#include <QStringList>

/// What parts the columns of delimited text. The numbers stand in documents and settings.
namespace DelimiterKind {
enum {
    Automatic = 0,
    Comma = 1,
    SemiColon = 2,
    Colon = 3,
    Tab = 4,
    Pipe = 5,
    Caret = 6,
    Space = 7,
    Custom = 8,
    UnitSeparator = 9
};

/// "Comma (,)" and so on; empty for a number outside the table.
QString label(int kind);
/// All labels, in the order of the numbers.
QStringList labels();
/// The one character; `custom` for Custom, a null character for Automatic and numbers outside the table.
QChar character(int kind, QChar custom);

} // namespace DelimiterKind
