#pragma once

#include <QString>
#include <QStringList>

/// What meta information can tell of a source that has been read.
struct MetaSource
{
    QString path;  ///< of the file; empty for none
    QString sheet; ///< of a workbook
    int rows = 0;
    int columns = 0;
};

namespace MetaInformation {

/// The variables that a text may hold, such as "$(FileName)", in the order of lists.
QStringList variables();
/// `text` with its variables replaced. Those of a file that isn't there give "(file not found)"; unknown ones stay.
QString expand(const QString &text, const MetaSource &source);

} // namespace MetaInformation
