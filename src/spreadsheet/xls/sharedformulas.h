#pragma once

#include "spreadsheet/xls/xlssource.h"

#include <QHash>
#include <QSet>

namespace spreadsheet {

/// The formulas of a loaded sheet that several of its cells share. They are kept with the first of the cells; when that
/// one is gone, the others need the formula, or its last result, for themselves.
class SharedFormulas
{
public:
    /// For a new sheet, which has none.
    SharedFormulas() = default;
    /// Of a sheet in the file.
    SharedFormulas(const XlsSource &source, const XlsSource::SheetPart &part);

    enum class Form {
        AsStored, ///< whole, or with what it shares already written
        Expanded, ///< made independent
        Lost      ///< the cell can only keep its last result
    };
    /// To be called for each formula in the order in which they are written; `stored` is that of the cell, and changes
    /// when the result says so.
    Form prepare(QByteArray *stored);

private:
    QHash<quint32, QByteArray> m_tokens; // by row and column of the first cell
    QSet<quint32> m_written;             // first cells
};

} // namespace spreadsheet
