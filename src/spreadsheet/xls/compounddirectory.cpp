#include "spreadsheet/xls/compounddirectory.h"

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>
#include <vector>

namespace spreadsheet {
namespace {

constexpr int headerSize = 512;
constexpr int entrySize = 128;
constexpr int tableSectorsInHeader = 109;
constexpr quint32 endOfChain = 0xFFFFFFFE;

quint32 number(const QByteArray &bytes, int at)
{
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

/// Sectors of a compound file and the table that chains them.
class SectorTable
{
public:
    /// False when the header can't be one.
    bool open(QIODevice &file)
    {
        m_file = &file;
        const QByteArray header = read(0, headerSize);
        if (header.size() < headerSize) {
            return false;
        }
        const int shift = qFromLittleEndian<quint16>(header.constData() + 30);
        if (shift != 9 && shift != 12) {
            return false;
        }
        m_sectorSize = 1 << shift;
        m_perSector = static_cast<quint32>(m_sectorSize) / 4;
        m_firstOfDirectory = number(header, 48);
        for (int i = 0; i < tableSectorsInHeader; ++i) {
            m_tableSectors.push_back(number(header, 76 + 4 * i));
        }
        return readFurtherTableSectors(number(header, 68), number(header, 72));
    }

    int sectorSize() const { return m_sectorSize; }
    quint32 firstOfDirectory() const { return m_firstOfDirectory; }

    /// The sector behind one of a chain, or endOfChain; any other number without a sector is damage.
    quint32 next(quint32 sector) const
    {
        const quint32 place = sector / m_perSector;
        if (place >= m_tableSectors.size()) {
            return sector; // a circle to the caller
        }
        const QByteArray entry = read(offset(m_tableSectors[place]) + 4 * qint64(sector % m_perSector), 4);
        return entry.size() == 4 ? number(entry, 0) : sector;
    }

private:
    qint64 offset(quint32 sector) const { return (qint64(sector) + 1) * m_sectorSize; }

    QByteArray read(qint64 at, int size) const
    {
        return at < m_file->size() && m_file->seek(at) ? m_file->read(size) : QByteArray();
    }

    /// The table's own sectors beyond those in the header stand in a chain of lists.
    bool readFurtherTableSectors(quint32 sector, quint32 lists)
    {
        const auto most = static_cast<size_t>(m_file->size() / m_sectorSize + tableSectorsInHeader);
        for (; lists > 0 && offset(sector) < m_file->size(); --lists) {
            const QByteArray list = read(offset(sector), m_sectorSize);
            if (list.size() < m_sectorSize || m_tableSectors.size() > most) {
                return false;
            }
            for (quint32 i = 0; i + 1 < m_perSector; ++i) {
                m_tableSectors.push_back(number(list, static_cast<int>(4 * i)));
            }
            sector = number(list, m_sectorSize - 4);
        }
        return true;
    }

    QIODevice *m_file = nullptr;
    int m_sectorSize = 0;
    quint32 m_perSector = 0;
    quint32 m_firstOfDirectory = 0;
    std::vector<quint32> m_tableSectors;
};

} // namespace

bool hasSaneDirectory(QIODevice &file, int maxEntries)
{
    SectorTable sectors;
    if (!sectors.open(file)) {
        return false;
    }
    quint32 sector = sectors.firstOfDirectory();
    for (int entries = 0; entries <= maxEntries; entries += sectors.sectorSize() / entrySize) {
        if (sector == endOfChain) {
            return true;
        }
        const quint32 next = sectors.next(sector);
        if (next == sector) {
            return false;
        }
        sector = next;
    }
    return false;
}

} // namespace spreadsheet
