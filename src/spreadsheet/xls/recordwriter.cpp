#include "spreadsheet/xls/recordwriter.h"

#include <algorithm>

namespace spreadsheet {

void RecordWriter::write(RecordId id, const QByteArray &data, int largest)
{
    int place = 0;
    do {
        const int size = std::min(data.size() - place, largest);
        begin(place == 0 ? id : RecordId::Continue);
        m_out.bytes(data.constData() + place, size);
        end();
        place += size;
    } while (place < data.size());
}

void RecordWriter::write(RecordId id, std::initializer_list<unsigned> words)
{
    begin(id);
    for (const unsigned word : words) {
        m_out.u16(word);
    }
    end();
}

void RecordWriter::begin(RecordId id)
{
    m_out.u16(static_cast<unsigned>(id));
    m_out.u16(0);
    m_begin = m_out.size();
}

void RecordWriter::end()
{
    m_out.setU16(m_begin - 2, static_cast<unsigned>(m_out.size() - m_begin));
}

} // namespace spreadsheet
