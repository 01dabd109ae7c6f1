#include "transforms/frame/conversionworker.h"

#include "text/cappedlist.h"

static constexpr int mostMemoBits = 12;

ConversionWorker::ConversionWorker(const Rule &rule, const std::optional<QString> &unreadText, const CellColumn &column)
    : m_rule(rule)
    , m_unreadText(unreadText)
    , m_edit(column)
    , m_known(column.size(), mostMemoBits)
{
}

void ConversionWorker::process(int first, int end)
{
    const Cell *cells = m_edit.source();
    const auto find = [this](const Cell &cell, Known &known) { learn(cell, known); };
    for (int row = first; row < end; ++row) {
        const Known &known = m_known.of(cells[row], find);
        const bool isNew = known.result.bits() != cells[row].bits();
        if (isNew) {
            m_edit.set(row, known.result);
        }
        if (known.isRead) {
            m_changed += isNew;
            continue;
        }
        ++m_unread;
        m_unreadChanged += isNew;
        if (m_unreadRows.size() < CappedList::usualLimit) {
            m_unreadRows.push_back(row);
        }
    }
}

void ConversionWorker::learn(const Cell &cell, Known &known)
{
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
