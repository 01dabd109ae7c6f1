#pragma once

#include "spreadsheet/xlsx/ziparchive.h"

#include <QString>
#include <memory>
#include <vector>

namespace spreadsheet {

/// What is kept of a loaded workbook file. Parts are named from the root of the archive, without a slash at the front.
struct XlsxSource
{
    struct SheetPart
    {
        QString part;       ///< empty when the workbook names none that is there
        QString relationId; ///< of the workbook's relation to the part
        int sheetId = 0;    ///< the workbook's own number of the sheet
    };

    QString path;
    std::unique_ptr<ZipArchive> archive;
    QString workbookPart;
    QString stylesPart;            ///< empty when there are none
    QString themePart;             ///< empty when there is none
    QString textsPart;             ///< the shared texts; empty when there are none
    std::vector<SheetPart> sheets; ///< by SheetEntry::source
    bool textsLoaded = false;      ///< they are read with the first sheet, see loadSharedTexts()
    quint32 firstText = 0;         ///< number in the book of the file's text 0; above 0 when some were written before
    quint32 loadedTexts = 0;       ///< so many texts from there on are those of the file, in its order
};

} // namespace spreadsheet
