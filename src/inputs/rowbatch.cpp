#include "inputs/rowbatch.h"

#include "data/values.h"
#include "transforms/frame/tablesize.h"

#include <new>

RowBatch::RowBatch(const RowRules &rules, Dataset *dataset)
    : m_rules(rules)
    , m_dataset(dataset)
    , m_appender(dataset)
    , m_widths(rules.ignoredRows)
    , m_texts(textsAtOnce)
{
}

void RowBatch::addQuotedText(const char *begin, const char *end)
{
    m_quotedTexts.push_back(m_count);
    addText(begin, begin);
    m_texts[m_count - 1].size = static_cast<quint32>(end - begin);
    m_rowSize += static_cast<size_t>(end - begin);
}

void RowBatch::finishRow(bool unusual)
{
    if (m_rowsSeen < m_rules.ignoredRows) {
        ++m_rowsSeen;
        dropUnfinishedRow();
        return;
    }
    m_widths.add(static_cast<int>(m_count - m_rowBegin));
    if (!m_quotedTexts.empty()) {
        countStrayTexts();
        cleanQuotedTexts();
    }
    if (unusual) {
        cleanRow();
    }
    if (m_rowSize == 0 && m_rules.ignoreEmptyRows) {
        ++m_emptyRowsDropped;
        dropUnfinishedRow();
        return;
    }
    m_rowEnds.push_back(static_cast<int>(m_count));
    m_rowBegin = m_count;
    m_rowSize = 0;
    if (m_count >= textsAtOnce) {
        flush();
    }
}

/// A text whose quote closes inside holds quotes, so no other row needs to be looked at.
void RowBatch::countStrayTexts()
{
    if (m_strayTexts > 0 && m_strayTextsInAll == 0) {
        m_firstStrayRow = m_widths.rowsTaken();
    }
    m_strayTextsInAll += m_strayTexts;
    m_strayTexts = 0;
    m_strayText = noText;
}

void RowBatch::cleanQuotedTexts()
{
    for (size_t i : m_quotedTexts) {
        DatasetAppender::Text &text = m_texts[i];
        m_rowSize -= text.size;
        text.size = static_cast<quint32>(TextCleanup::unquote(m_bytes + text.offset, static_cast<int>(text.size)));
        cleanText(text);
        m_rowSize += text.size;
    }
    m_quotedTexts.clear();
}

void RowBatch::cleanRow()
{
    m_rowSize = 0;
    for (size_t i = m_rowBegin; i < m_count; ++i) {
        cleanText(m_texts[i]);
        m_rowSize += m_texts[i].size;
    }
}

void RowBatch::cleanText(DatasetAppender::Text &text) const
{
    if (m_rules.trim) {
        const char *begin = m_bytes + text.offset;
        const char *end = begin + text.size;
        TextCleanup::trim(begin, end);
        text = {static_cast<quint32>(begin - m_bytes), static_cast<quint32>(end - begin)};
    }
    if (m_rules.simplify) {
        text.size = static_cast<quint32>(TextCleanup::simplify(m_bytes + text.offset, static_cast<int>(text.size)));
    }
}

void RowBatch::dropUnfinishedRow()
{
    m_count = m_rowBegin;
    m_rowSize = 0;
    m_quotedTexts.clear();
    m_strayTexts = 0;
    m_strayText = noText;
}

void RowBatch::flush()
{
    const qint64 rows = m_dataset->rowCount() + static_cast<qint64>(m_rowEnds.size());
    if (!TableSize::isPossible(rows, qMax(m_dataset->columnCount(), m_widths.widest()))) {
        throw std::bad_alloc();
    }
    m_appender.appendRows(m_bytes, m_texts.data(), m_rowEnds.data(), static_cast<int>(m_rowEnds.size()));
    m_rowEnds.clear();
    m_count = 0;
    m_rowBegin = 0;
}

QStringList RowBatch::strayQuoteWarnings() const
{
    if (m_strayTextsInAll == 0) {
        return QStringList();
    }
    const QString times = m_strayTextsInAll == 1 ? QStringLiteral("time") : QStringLiteral("times");
    const QString text = QStringLiteral(
        "Quote closed inside a value %1 %2, so rows behind it may be part of it: E.g. input row %3");
    return {text.arg(formatInteger(m_strayTextsInAll, true), times, formatInteger(m_firstStrayRow, true))};
}

QStringList RowBatch::emptyRowsInfos(qint64 emptyRowsDropped)
{
    if (emptyRowsDropped == 0) {
        return QStringList();
    }
    return {QStringLiteral("%1 empty row(s) ignored").arg(formatInteger(emptyRowsDropped, true))};
}
