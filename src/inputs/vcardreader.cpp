#include "inputs/vcardreader.h"

#include "data/dataset.h"
#include "data/values.h"
#include "inputs/linescanner.h"

#include <algorithm>
#include <cstring>

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
    RowBatch batch(m_rules, dataset);
    batch.setBuffer(m_reader.begin());
    char *const end = unfold(m_reader.begin(), m_reader.end());
    forEachLine(m_reader.begin(), end, true,
        [&](const char *line, const char *lineEnd, bool) { takeLine(line, lineEnd, batch); });
    finishRecord(batch);
    batch.flush();
    dataset->setColumnCount(m_header.size());
    dataset->setHeader(m_header);
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

void VCardReader::takeLine(const char *begin, const char *end, RowBatch &batch)
{
    const char *textBegin = begin;
    const char *textEnd = end;
    TextCleanup::trim(textBegin, textEnd);
    if (isText(textBegin, textEnd, "BEGIN:VCARD")) {
        finishRecord(batch);
        ++m_begins;
        m_inRecord = true;
        if (m_progress && m_begins % recordsPerReport == 0) {
            m_progress(double(begin - m_reader.begin()) / m_reader.size());
        }
    } else if (isText(textBegin, textEnd, "END:VCARD")) {
        finishRecord(batch);
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
        m_values.emplace_back(m_reader.begin(), m_reader.begin());
    }
    m_values[static_cast<size_t>(column)] = {colon + 1, end};
}

void VCardReader::finishRecord(RowBatch &batch)
{
    if (!m_inRecord) {
        return;
    }
    m_inRecord = false;
    for (Text &value : m_values) {
        batch.addText(value.first, value.second);
        value.second = value.first;
    }
    batch.finishRow(true);
}
