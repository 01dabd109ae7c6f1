#include "transforms/frame/cellworker.h"

static constexpr int mostMemoBits = 11;

CellWorker::CellWorker(const CellRule &rule, const CellColumn &column)
    : m_rule(rule)
    , m_edit(column)
    , m_results(rule.row ? 0 : column.size(), mostMemoBits)
{
}

void CellWorker::process(int first, int end)
{
    if (m_rule.row) {
        processByRow(first, end);
    } else {
        processByText(first, end);
    }
}

void CellWorker::processByText(int first, int end)
{
    const Cell *cells = m_edit.source();
    const auto find = [this](const Cell &cell, Cell &result) { result = resultOf(cell); };
    for (int row = first; row < end; ++row) {
        const Cell result = m_results.of(cells[row], find);
        if (result.bits() != cells[row].bits()) {
            m_edit.set(row, result);
            ++m_changed;
        }
    }
}

void CellWorker::processByRow(int first, int end)
{
    const Cell *cells = m_edit.source();
    for (int row = first; row < end; ++row) {
        m_buffer.clear();
        m_rule.row(row, cells[row], m_buffer);
        const Cell result = stored(cells[row], m_buffer);
        if (result.bits() != cells[row].bits()) {
            m_edit.set(row, result);
            ++m_changed;
        }
    }
}

Cell CellWorker::resultOf(const Cell &cell)
{
    if (m_rule.ascii && TextCoding::isAscii(cell.bytes(), cell.size())) {
        return resultOfAscii(cell);
    }
    const QString text = cell.text();
    const QString result = m_rule.text(text);
    return result == text ? cell : m_edit.store(result);
}

Cell CellWorker::resultOfAscii(const Cell &cell)
{
    const int size = cell.size();
    m_buffer.resize(size);
    std::memcpy(m_buffer.data(), cell.bytes(), static_cast<size_t>(size));
    m_buffer.resize(m_rule.ascii(m_buffer.data(), size));
    return stored(cell, m_buffer);
}

/// A cell with this text; the one from before when its text is the same.
Cell CellWorker::stored(const Cell &before, const TextBuffer &bytes)
{
    const bool isSame = bytes.size() == before.size()
                        && std::memcmp(bytes.constData(), before.bytes(), static_cast<size_t>(bytes.size())) == 0;
    return isSame ? before : m_edit.store(bytes.constData(), bytes.size());
}
