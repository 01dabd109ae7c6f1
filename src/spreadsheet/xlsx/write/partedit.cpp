#include "spreadsheet/xlsx/write/partedit.h"

#include "spreadsheet/xlsx/write/deflatedpart.h"

#include <algorithm>

namespace spreadsheet {

void PartEdit::replace(qint64 begin, qint64 end, const QByteArray &bytes)
{
    replace(begin, end, [bytes](DeflatedPart &out) {
        out.write({bytes.constData(), static_cast<size_t>(bytes.size())});
    });
}

void PartEdit::replace(qint64 begin, qint64 end, Writer writer)
{
    m_changes.push_back({begin, end, std::move(writer)});
}

void PartEdit::close(qint64 at, const QByteArray &bytes)
{
    m_closedAt = at;
    m_closing = bytes;
}

void PartEdit::sort()
{
    if (!m_sorted) {
        if (!m_closing.isEmpty()) {
            insert(m_closedAt, m_closing);
        }
        std::stable_sort(m_changes.begin(), m_changes.end(),
            [](const Change &first, const Change &second) { return first.begin < second.begin; });
        m_sorted = true;
    }
}

void PartEdit::feed(const char *bytes, int size, DeflatedPart &out)
{
    sort();
    const qint64 end = m_taken + size;
    const auto copy = [&](qint64 from, qint64 to) {
        const qint64 first = std::max(from, m_taken);
        if (to > first) {
            out.write({bytes + (first - m_taken), static_cast<size_t>(to - first)});
        }
    };
    for (; m_next < m_changes.size() && m_changes[m_next].begin < end; ++m_next) {
        const Change &change = m_changes[m_next];
        copy(m_resume, change.begin);
        change.writer(out);
        m_resume = std::max(m_resume, change.end);
    }
    copy(m_resume, end);
    m_resume = std::max(m_resume, end);
    m_taken = end;
}

void PartEdit::finish(DeflatedPart &out)
{
    sort();
    for (; m_next < m_changes.size(); ++m_next) {
        m_changes[m_next].writer(out);
    }
    out.finish();
}

} // namespace spreadsheet
