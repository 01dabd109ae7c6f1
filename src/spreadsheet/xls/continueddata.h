#pragma once

#include "spreadsheet/xls/recordreader.h"

#include <string>

namespace spreadsheet {

/// The data of a record and of the CONTINUE records behind it, read as one from front to back. The reader of the
/// records goes along with it.
class ContinuedData
{
public:
    /// Begins at a place of the reader's present record.
    ContinuedData(RecordReader &records, quint32 offset);

    /// False once more was asked for than there is; numbers and texts are then 0 and empty.
    bool isGood() const { return m_isGood; }
    /// True when all was read.
    bool atEnd();

    quint8 u8() { return number<quint8>(); }
    quint16 u16() { return number<quint16>(); }
    quint32 u32() { return number<quint32>(); }
    void skip(quint32 size);
    /// Reads bytes; they replace `bytes`.
    void bytes(quint32 count, std::string *bytes);
    /// Reads characters, of one byte or, when `isWide`, of two; each CONTINUE record says anew which. They replace
    /// `utf8`. Halves of a surrogate pair without the other one become U+FFFD.
    void characters(quint32 count, bool isWide, std::string *utf8);

private:
    bool nextPiece();
    /// True, and the data is no longer good, when nothing is left to read.
    bool isMissing();
    template<typename Integer>
    Integer number();

    RecordReader &m_records;
    const uchar *m_at;
    const uchar *m_end;
    bool m_isGood = true;
};

} // namespace spreadsheet
