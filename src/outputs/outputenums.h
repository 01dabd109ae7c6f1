#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Choices of an output item. The numbers stand in documents and settings; a label of a number outside its table is
// empty.

namespace WriteMode {
enum { Disabled = 0, Overwrite = 1, Append = 2, New = 3 };
QStringList labels();
QString label(int mode);
} // namespace WriteMode

namespace LineEndings {
enum { Automatic = 0, Windows = 1, Unix = 2, OldMac = 3, RecordSeparator = 4 };
QStringList labels();
QString label(int endings);
/// Automatic, and a number outside the table, gives what is standard for the operating system.
int resolved(int endings);
/// The one or two characters that are written.
QByteArray bytes(int endings);
} // namespace LineEndings

namespace Quoting {
enum { AsNeeded = 0, Always = 1, Never = 2 };
QStringList labels();
QString label(int quoting);
} // namespace Quoting

namespace OutputTarget {
enum { SingleFile = 0, MultipleFiles = 1 };
QStringList labels();
QString label(int target);
} // namespace OutputTarget

/// What overwriting replaces in an Excel workbook.
namespace OverwriteScope {
enum { File = 0, Sheet = 1 };
QStringList labels();
QString label(int scope);
} // namespace OverwriteScope

namespace ExcelFormatMode {
enum { Automatic = 0, General = 1, Manual = 2 };
QStringList labels();
QString label(int mode);
} // namespace ExcelFormatMode

namespace JsonTypeMode {
enum { Automatic = 0, String = 1, Manual = 2 };
QStringList labels();
QString label(int mode);
} // namespace JsonTypeMode
