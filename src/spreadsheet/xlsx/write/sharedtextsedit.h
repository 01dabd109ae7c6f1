#pragma once

#include "spreadsheet/xlsx/xlsxsource.h"

#include <vector>

namespace spreadsheet {

class Package;
class TextTable;

/// Numbers the texts that written sheets use as the shared texts of the file: those of the loaded file keep their
/// numbers, others get the next one when they are first used.
class SharedTextsEdit
{
public:
    /// `source` is null for a new workbook; `presentCount` is how many texts the old part has.
    SharedTextsEdit(const TextTable &texts, const XlsxSource *source, quint32 presentCount);

    /// The file's number of a text of the book.
    quint32 use(quint32 id)
    {
        ++m_useCount;
        const quint32 loaded = id - m_firstLoaded;
        if (loaded < m_loadedCount) {
            return loaded;
        }
        return m_numbers[id] != 0 ? m_numbers[id] - 1 : add(id);
    }
    /// So many uses are no more, since the sheet that had them is written anew.
    void dropUses(int count) { m_droppedUses += static_cast<quint64>(count); }
    bool hasAdded() const { return !m_added.empty(); }
    /// Texts too long for a cell of the programs that the file is for.
    int overlongCount() const;

    /// Adds the texts behind those of the part, which stay byte for byte.
    bool write(Package &package, const QString &part) const;

private:
    quint32 add(quint32 id);

    const TextTable &m_texts;
    quint32 m_firstLoaded = 0, m_loadedCount = 0;
    quint32 m_presentCount;
    quint64 m_useCount = 0, m_droppedUses = 0;
    std::vector<quint32> m_numbers; // by id of the book, one above the file's number; 0 for those not used
    std::vector<quint32> m_added;   // ids of the book
};

} // namespace spreadsheet
