#pragma once

#include <QtGlobal>

namespace spreadsheet {

/// Decrypts the data of records in a workbook stream, from front to back.
class StreamCipher
{
public:
    virtual ~StreamCipher() = default;

    /// Decrypts bytes in place that stand at an offset of the stream, in a record with so many bytes of data.
    virtual void decrypt(uchar *bytes, quint32 size, quint32 offset, quint32 recordSize) = 0;
};

} // namespace spreadsheet
