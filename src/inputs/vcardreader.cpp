#include "inputs/vcardreader.h"

#include "data/dataset.h"
#include "data/values.h"
#include "inputs/linescanner.h"
#include "transforms/frame/tablesize.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

constexpr int recordsPerReport = 256;

bool isText(const char *begin, const char *end, const char *text)
{
    const size_t size = std::strlen(text);
    return static_cast<size_t>(end - begin) == size && std::memcmp(begin, text, size) == 0;
}

RowRules withoutIgnoredRows(RowRules rules)
{
    rules.ignoredRows = 0;
    return rules;
}

} // namespace

VCardReader::VCardReader(const RowRules &rules, TextSource *source)
    : m_rules(withoutIgnoredRows(rules))
    , m_reader(source)
{
}

void VCardReader::read(Dataset *dataset)
{
    m_reader.readAll();
    char *const end = unfold(m_reader.begin(), m_reader.end());
    forEachLine(
        m_reader.begin(), end, true, [this](const char *line, const char *lineEnd, bool) { takeLine(line, lineEnd); });
    finishRecord();
    // Known before the first row, the width can't make every record cost more than those before.
    if (!TableSize::isPossible(static_cast<qint64>(m_recordEnds.size()), m_header.size())) {
        throw std::bad_alloc();
    }
    dataset->setColumnCount(m_header.size());
    dataset->setHeader(m_header);
    RowBatch batch(m_rules, dataset);
    addRows(batch);
    if (m_begins != m_ends) {
        m_warnings.append(QStringLiteral("vCard parsing error: %1 'BEGIN:VCARD' and %2 'END:VCARD'")
                              .arg(formatInteger(m_begins, true), formatInteger(m_ends, true)));
    }
    m_infos += batch.infos();
}

/// Joins lines that go on in the next one, which then begins with a blank or a tab that isn't part of the text. Returns
/// the new end.
char *VCardReader::unfold(char *begin, char *end)
{
    char *out = begin;
    for (const char *in = begin; in < end; ++in) {
        const int size = *in == '\r' && in + 1 < end && in[1] == '\n' ? 2 : *in == '\r' || *in == '\n' ? 1 : 0;
        if (size > 0 && in + size < end && (in[size] == ' ' || in[size] == '\t')) {
            in += size;
        } else {
            *out++ = *in;
        }
    }
    return out;
}

void VCardReader::takeLine(const char *begin, const char *end)
{
    const char *textBegin = begin;
    const char *textEnd = end;
    TextCleanup::trim(textBegin, textEnd);
    if (isText(textBegin, textEnd, "BEGIN:VCARD")) {
        finishRecord();
        ++m_begins;
        m_inRecord = true;
    } else if (isText(textBegin, textEnd, "END:VCARD")) {
        finishRecord();
        ++m_ends;
    } else if (m_inRecord) {
        takeValue(begin, end);
    }
}

void VCardReader::takeValue(const char *begin, const char *end)
{
    const char *const colon = std::find(begin, end, ':');
    if (colon == end) {
        return;
    }
    const char *keyEnd = colon;
    TextCleanup::trim(begin, keyEnd);
    if (isText(begin, keyEnd, "VERSION")) {
        return;
    }
    const QByteArray key = QByteArray::fromRawData(begin, static_cast<int>(keyEnd - begin));
    const auto found = m_columns.constFind(key);
    int column = found == m_columns.constEnd() ? -1 : found.value();
    if (column < 0) {
        column = m_header.size();
        m_columns.insert(key, column);
        m_header.append(TextCoding::decode(key.constData(), key.size()));
    }
    m_values.push_back({column, colon + 1, end});
}

void VCardReader::finishRecord()
{
    if (m_inRecord) {
        m_inRecord = false;
        m_recordEnds.push_back(m_values.size());
    }
}

void VCardReader::addRows(RowBatch &batch)
{
    const char *const nothing = m_reader.begin();
    std::vector<Value> row(static_cast<size_t>(m_header.size()), {0, nothing, nothing});
    batch.setBuffer(m_reader.begin());
    size_t next = 0;
    for (size_t record = 0; record < m_recordEnds.size(); ++record) {
        for (; next < m_recordEnds[record]; ++next) {
            row[static_cast<size_t>(m_values[next].column)] = m_values[next];
        }
        for (Value &value : row) {
            batch.addText(value.begin, value.end);
            value.end = value.begin;
        }
        batch.finishRow(true);
        if (m_progress && record % recordsPerReport == 0) {
            m_progress(double(record) / double(m_recordEnds.size()));
        }
    }
    batch.flush();
}
