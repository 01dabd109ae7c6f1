#include "inputs/treerows.h"

#include "inputs/jsonnumber.h"
#include "inputs/jsonstring.h"
#include "inputs/textcleanup.h"
#include "inputs/treerecord.h"
#include "transforms/frame/tablesize.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

TreeRows::TreeRows(const TreeReadOptions &options, Dataset *dataset)
    : m_options(options)
    , m_dataset(dataset)
    , m_appender(dataset)
{
}

void TreeRows::checkRoom(qint64 rows, int width) const
{
    const qint64 before = m_dataset->rowCount() + static_cast<qint64>(m_rowEnds.size());
    if (!TableSize::isPossible(before + rows, qMax(1, width))) {
        throw std::bad_alloc();
    }
}

/// Room for `size` bytes behind those in use, and padding.
char *TreeRows::room(quint64 size)
{
    const quint64 needed = m_size + size + DatasetAppender::padding;
    if (needed > m_bytes.size()) {
        if (needed > std::numeric_limits<quint32>::max()) {
            throw std::bad_alloc();
        }
        m_bytes.resize(qMax<size_t>(needed, qMin<size_t>(m_bytes.size() * 2, needed + (1 << 26))));
    }
    return m_bytes.data() + m_size;
}

TreeRows::Text TreeRows::stored(const char *bytes, quint32 size)
{
    std::memcpy(room(size), bytes, size);
    const Text text{static_cast<quint32>(m_size), size};
    m_size += size;
    return text;
}

TreeRows::Text TreeRows::literal(const char *bytes, quint32 size)
{
    return stored(bytes, size);
}

TreeRows::Text TreeRows::text(const TreeNode &leaf)
{
    switch (leaf.kind) {
    case TreeNode::Plain: {
        const char *begin = leaf.bytes;
        const char *end = begin + leaf.size;
        if (m_options.trim) {
            while (begin < end && *begin == ' ') {
                ++begin;
            }
            while (begin < end && end[-1] == ' ') {
                --end;
            }
        }
        return stored(begin, static_cast<quint32>(end - begin));
    }
    case TreeNode::Text:
        return cleaned(stored(leaf.bytes, leaf.size));
    case TreeNode::JsonText: {
        const auto size = static_cast<quint32>(JsonString::unescape(leaf.bytes, leaf.size, room(leaf.size)));
        const Text text{static_cast<quint32>(m_size), size};
        m_size += size;
        return cleaned(text);
    }
    case TreeNode::JsonNumber:
        return number(leaf);
    default:
        return stored(leaf.bytes, leaf.size);
    }
}

TreeRows::Text TreeRows::cleaned(Text text)
{
    char *const bytes = m_bytes.data();
    if (m_options.trim) {
        const char *begin = bytes + text.offset;
        const char *end = begin + text.size;
        TextCleanup::trim(begin, end);
        text = {static_cast<quint32>(begin - bytes), static_cast<quint32>(end - begin)};
    }
    if (m_options.simplify) {
        text.size = static_cast<quint32>(TextCleanup::simplify(bytes + text.offset, static_cast<int>(text.size)));
    }
    return text;
}

TreeRows::Text TreeRows::number(const TreeNode &leaf)
{
    double value = 0;
    JsonNumber::read(leaf.bytes, leaf.bytes + leaf.size, &value);
    if (Q_UNLIKELY(std::abs(value) >= JsonDigits::limit)) {
        m_digits.check(leaf.bytes, leaf.bytes + leaf.size, value);
    }
    m_realWriter.write(value, m_numberText);
    return stored(m_numberText.constData(), static_cast<quint32>(m_numberText.size()));
}

TreeRows::Text *TreeRows::beginRow(int width)
{
    const size_t begin = m_texts.size();
    m_texts.resize(begin + static_cast<size_t>(width));
    m_width = width;
    return m_texts.data() + begin;
}

void TreeRows::endRow()
{
    const int begin = m_rowEnds.empty() ? 0 : m_rowEnds.back();
    if (m_options.ignoreEmptyRows
        && std::none_of(m_texts.cbegin() + begin, m_texts.cend(), [](const Text &text) { return text.size > 0; })) {
        ++m_emptyRowsDropped;
        dropRow();
        return;
    }
    m_rowEnds.push_back(static_cast<int>(m_texts.size()));
    if (m_texts.size()
        >= qBound(textsAtOnce, textsAtOnce * static_cast<size_t>(m_width) / usualWidth, mostTextsAtOnce)) {
        flush();
    }
}

void TreeRows::flush()
{
    room(0);
    checkRoom(0, m_width);
    m_appender.appendRows(m_bytes.data(), m_texts.data(), m_rowEnds.data(), static_cast<int>(m_rowEnds.size()));
    m_rowEnds.clear();
    m_texts.clear();
}
