#include "spreadsheet/xls/xlspalette.h"

#include "spreadsheet/palette.h"

#include <algorithm>

namespace spreadsheet {
namespace {

constexpr QRgb opaque = 0xFF000000;

int distance(QRgb one, QRgb other)
{
    const int red = qRed(one) - qRed(other);
    const int green = qGreen(one) - qGreen(other);
    const int blue = qBlue(one) - qBlue(other);
    return 2 * red * red + 4 * green * green + 3 * blue * blue; // the eye tells greens apart best
}

} // namespace

XlsPalette::XlsPalette()
{
    for (int i = 0; i < count; ++i) {
        m_colors[static_cast<size_t>(i)] = paletteColor(i + static_cast<int>(first)).rgb | opaque;
    }
}

void XlsPalette::load(const Record &record)
{
    constexpr quint32 headSize = 2, entrySize = 4;
    const quint32 entries = std::min<quint32>(record.u16(0), count);
    for (quint32 i = 0; i < entries && headSize + (i + 1) * entrySize <= record.size; ++i) {
        const quint32 at = headSize + i * entrySize;
        m_colors[i] = qRgb(record.u8(at), record.u8(at + 1), record.u8(at + 2));
    }
    freeze();
}

unsigned XlsPalette::number(const StyleColor &color, unsigned automatic)
{
    if (!color.isSet) {
        return automatic;
    }
    const QRgb wanted = color.rgb | opaque;
    auto place = std::find(m_colors.begin(), m_colors.end(), wanted);
    if (place == m_colors.end() && !m_isFrozen) {
        const auto unused = std::find(m_isUsed.rbegin(), m_isUsed.rend(), false);
        if (unused != m_isUsed.rend()) {
            place = m_colors.begin() + (m_isUsed.rend() - unused - 1);
            *place = wanted;
            m_isChanged = true;
        }
    }
    if (place == m_colors.end()) {
        place = std::min_element(m_colors.begin(), m_colors.end(),
            [wanted](QRgb one, QRgb other) { return distance(one, wanted) < distance(other, wanted); });
    }
    const auto index = place - m_colors.begin();
    m_isUsed[static_cast<size_t>(index)] = true;
    return first + static_cast<unsigned>(index);
}

void XlsPalette::write(RecordWriter &out) const
{
    if (!m_isChanged) {
        return;
    }
    out.begin(RecordId::Palette);
    out.buffer().u16(count);
    for (const QRgb color : m_colors) {
        out.buffer().u8(static_cast<unsigned>(qRed(color)));
        out.buffer().u8(static_cast<unsigned>(qGreen(color)));
        out.buffer().u8(static_cast<unsigned>(qBlue(color)));
        out.buffer().u8(0);
    }
    out.end();
}

} // namespace spreadsheet
