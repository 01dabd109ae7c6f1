#pragma once

#include "spreadsheet/texttable.h"
#include "spreadsheet/xls/recordwriter.h"

#include <vector>

namespace spreadsheet {

/// The texts that cells of a workbook share, as they are written: first those of the loaded file with all that they
/// have beside their characters, then those that cells use beyond them.
class SharedTextsWriter
{
public:
    /// `loaded`: so many texts of the table are those of the loaded file. `records`: its SST record and the CONTINUE
    /// records behind it, in a stream that must outlive this object.
    SharedTextsWriter(const TextTable &texts, quint32 loaded, std::vector<Record> records);

    /// What a cell with a text of the table holds.
    quint32 numberOf(quint32 text)
    {
        ++m_uses;
        if (text < m_numbers.size() && m_numbers[text] != none) {
            return m_numbers[text];
        }
        return addNumberOf(text);
    }
    /// A cell of the loaded file that isn't written any more had one.
    void dropUse() { m_uses -= m_uses > 0 ? 1 : 0; }
    /// Writes the texts, and where every few of them begin; the writer's position is that in the stream. Nothing when
    /// there is no text.
    void write(RecordWriter &out);

    /// True when a text of the table is longer than a cell can hold; it is then written up to there.
    bool isTooLong(quint32 text) const;

private:
    static constexpr quint32 none = 0xFFFFFFFF;

    quint32 addNumberOf(quint32 text);
    void copyLoaded(RecordWriter &out);
    void appendText(RecordWriter &out, std::string_view text);
    void appendPieces(RecordWriter &out, unsigned width, unsigned count, const char *bytes);
    void noteBegin(RecordWriter &out);
    void writeIndex(RecordWriter &out) const;
    unsigned room(RecordWriter &out) const;

    const TextTable &m_texts;
    quint32 m_loaded;
    std::vector<Record> m_records;
    std::vector<quint32> m_numbers; // by text of the table
    std::vector<quint32> m_added;   // texts of the table, in the order in which they are written
    quint32 m_uses = 0;

    struct Begin
    {
        quint32 position;
        quint16 inRecord; // counted from the record's header on
    };
    std::vector<Begin> m_begins; // of every few texts
    quint32 m_step = 8;
    quint32 m_written = 0;
    int m_recordBegin = 0;
};

} // namespace spreadsheet
