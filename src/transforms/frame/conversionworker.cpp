#include "transforms/frame/conversionworker.h"

#include "transforms/frame/memobits.h"

static constexpr int mostSlotBits = 12;

ConversionWorker::ConversionWorker(const Rule &rule, const std::optional<QString> &unreadText, const CellColumn &column)
    : m_rule(rule)
    , m_unreadText(unreadText)
    , m_edit(column)
    , m_slotBits(memoBits(column.size(), mostSlotBits))
    , m_known(size_t(1) << m_slotBits)
{
}

void ConversionWorker::process(int first, int end)
{
    const Cell *cells = m_edit.source();
    const int shift = 64 - m_slotBits;
    for (int row = first; row < end; ++row) {
        const quint64 bits = cells[row].bits();
        Known &known = m_known[bits * 0x9E3779B97F4A7C15ULL >> shift];
        if (known.bits != bits) {
            learn(cells[row], known);
        }
        const bool isChanged = known.result.bits() != bits;
        if (isChanged) {
            m_edit.set(row, known.result);
        }
        if (known.isRead) {
            m_changed += isChanged;
            continue;
        }
        ++m_unread;
        m_unreadChanged += isChanged;
        if (m_unreadRows.size() < mostExamples) {
            m_unreadRows.push_back(row);
        }
    }
}

void ConversionWorker::learn(const Cell &cell, Known &known)
{
    known.bits = cell.bits();
    known.result = cell;
    known.isRead = m_rule(cell, m_buffer);
    if (!known.isRead) {
        if (!m_unreadText) {
            return;
        }
        setText(m_buffer, *m_unreadText);
    }
    const int size = m_buffer.size();
    if (size != cell.size() || std::memcmp(m_buffer.constData(), cell.bytes(), static_cast<size_t>(size)) != 0) {
        known.result = m_edit.store(m_buffer.constData(), size);
    }
}
