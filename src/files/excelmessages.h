#pragma once

#include <QString>

/// What reading and writing of workbooks both say.
namespace ExcelMessages {

/// For a workbook that can't be loaded; `reason` may be empty.
QString notLoaded(const QString &path, const QString &reason);
/// The text with the reason on a line of its own; as it is without one.
QString withReason(const QString &text, const QString &reason);

} // namespace ExcelMessages
