#pragma once

#include "spreadsheet/format.h"
#include "spreadsheet/sheet.h"
#include "spreadsheet/sizes.h"
#include "spreadsheet/texttable.h"

#include <QStringList>
#include <memory>
#include <vector>

namespace spreadsheet {

/// A sheet in the book's list, read or not yet.
struct SheetEntry
{
    static constexpr int worksheet = 0;

    QString name;
    int type = worksheet;         ///< anything else is a chart, a macro or a dialog sheet
    int source = -1;              ///< position among the sheets of the file that was loaded; -1 for a sheet made here
    std::unique_ptr<Sheet> sheet; ///< null until it is asked for
};

/// What a book and the readers and writers of its kind share.
struct BookData
{
    FileKind kind = FileKind::Xlsx;
    bool uses1904 = false;
    TextTable texts;
    std::vector<std::unique_ptr<Format>> formats; ///< by number; those of the loaded file come first
    quint32 loadedFormats = 0;
    std::vector<SheetEntry> sheets;
    QString whyUnchangeable; ///< why the loaded file can be read but not be saved with changes; empty when it can
    QStringList warnings;    ///< what could not be kept or written as it was meant

    /// Null for a number that no format has.
    const Format *format(quint32 index) const { return index < formats.size() ? formats[index].get() : nullptr; }
    bool isDateFormat(quint32 index) const
    {
        const Format *found = format(index);
        return found && found->isDate();
    }
    /// For a number whose format shows a date or time of day, and for a strict date whose format shows no span of time.
    bool isDate(const CellRecord &cell) const
    {
        if (cell.type == CellType::StrictDate) {
            const Format *found = format(cell.format);
            return !found || found->meaning() != NumberMeaning::ElapsedTime;
        }
        return cell.type == CellType::Number && isDateFormat(cell.format);
    }
    Format *addFormat(const CellStyle &style)
    {
        formats.push_back(std::make_unique<Format>(static_cast<quint32>(formats.size()), style));
        return formats.back().get();
    }
};

} // namespace spreadsheet
