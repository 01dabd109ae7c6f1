#include "data/valuesummary.h"

#include "data/distincttexts.h"
#include "data/numberreader.h"
#include "data/statistics.h"

#include <algorithm>
#include <limits>
#include <numeric>

QString summarizeValues(SummaryKind kind, const QStringList &values)
{
    CellColumn column;
    const TextArenaPointer arena(new TextArena);
    column.keep(arena);
    for (const QString &value : values) {
        column.cells.append(arena->store(value));
    }
    std::vector<int> rows(static_cast<size_t>(values.size()));
    std::iota(rows.begin(), rows.end(), 0);
    TextBuffer text;
    ValueSummary(kind, column).write(rows.data(), rows.data() + rows.size(), text);
    return TextCoding::decode(text.constData(), text.size());
}

ValueSummary::ValueSummary(SummaryKind kind, const CellColumn &column)
    : m_kind(kind)
    , m_column(column)
{
    if (kind == SummaryKind::CountDistinct) {
        m_texts = std::make_unique<DistinctTexts>(column);
    }
    if (!isNumeric(kind)) {
        return;
    }
    const NumberReader reader(false, true);
    m_numbers.resize(static_cast<size_t>(column.size()));
    for (int row = 0; row < column.size(); ++row) {
        bool ok = false;
        const double number = reader.read(column.at(row), &ok);
        m_numbers[static_cast<size_t>(row)] = ok ? number : std::numeric_limits<double>::quiet_NaN();
    }
}

ValueSummary::~ValueSummary() = default;

int ValueSummary::write(const int *begin, const int *end, TextBuffer &out)
{
    if (!isNumeric(m_kind)) {
        return writeCount(begin, end, out);
    }
    m_list.clear();
    for (const int *row = begin; row != end; ++row) {
        if (hasNumber(*row)) {
            m_list.push_back(m_numbers[static_cast<size_t>(*row)]);
        }
    }
    double *const first = m_list.data();
    double *const last = first + m_list.size();
    double value = 0.0;
    switch (m_kind) {
    case SummaryKind::Minimum:
        value = first == last ? 0.0 : *std::min_element(first, last);
        break;
    case SummaryKind::Maximum:
        value = first == last ? 0.0 : *std::max_element(first, last);
        break;
    case SummaryKind::Average:
        value = Statistics::mean(first, last);
        break;
    case SummaryKind::Median:
        value = Statistics::median(first, last);
        break;
    case SummaryKind::Mode:
        writeModes(first, last, out);
        return static_cast<int>(last - first);
    case SummaryKind::StandardDeviation:
        value = Statistics::standardDeviation(first, last);
        break;
    default:
        value = Statistics::sum(first, last);
    }
    m_writer.write(value, out);
    return static_cast<int>(last - first);
}

int ValueSummary::writeCount(const int *begin, const int *end, TextBuffer &out)
{
    int texts = 0;
    int distinct = 0;
    if (m_texts) {
        m_texts->startList();
    }
    for (const int *row = begin; row != end; ++row) {
        if (!m_column.at(*row).isEmpty()) {
            ++texts;
            distinct += m_texts && m_texts->add(*row) == 1;
        }
    }
    m_writer.write(m_texts ? distinct : texts, out);
    return texts;
}

void ValueSummary::writeModes(double *begin, double *end, TextBuffer &out) const
{
    out.clear();
    TextBuffer number;
    for (double mode : Statistics::modes(begin, end)) {
        if (!out.isEmpty()) {
            out.append(',');
        }
        m_writer.write(mode, number);
        out.append(number.constData(), number.size());
    }
}
