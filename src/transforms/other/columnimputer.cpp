#include "transforms/other/columnimputer.h"

#include "data/numberreader.h"
#include "data/rowkeyindex.h"
#include "data/statistics.h"
#include "data/values.h"

#include <cmath>
#include <limits>

namespace {

/// `figure` of the numbers, also where their sum is beyond the largest number.
template<class Figure>
double figureOf(std::vector<double> &numbers, Figure figure)
{
    const double value = figure(numbers.data(), numbers.data() + numbers.size());
    if (std::isfinite(value)) {
        return value;
    }
    constexpr int digits = 32;
    for (double &number : numbers) {
        number = std::ldexp(number, -digits);
    }
    return std::ldexp(figure(numbers.data(), numbers.data() + numbers.size()), digits);
}

std::vector<double> numbersOf(const CellColumn &column)
{
    const NumberReader reader(false, true);
    std::vector<double> numbers;
    numbers.reserve(static_cast<size_t>(column.size()));
    for (int row = 0; row < column.size(); ++row) {
        bool ok = false;
        const double number = reader.read(column.at(row), &ok);
        numbers.push_back(ok ? number : std::numeric_limits<double>::quiet_NaN());
    }
    return numbers;
}

} // namespace

ColumnImputer::ColumnImputer(const CellColumn &column, Using what)
    : m_using(what)
{
    if (what != Mode) {
        m_numbers = numbersOf(column);
        return;
    }
    RowKeyIndex index({column.cells.constData()});
    m_texts.reserve(static_cast<size_t>(column.size()));
    for (int row = 0; row < column.size(); ++row) {
        m_texts.push_back(index.add(row));
    }
    m_counts.resize(static_cast<size_t>(index.size()));
}

ColumnImputer::Value ColumnImputer::value(const int *begin, const int *end)
{
    if (m_using == Mode) {
        return mode(begin, end);
    }
    m_list.clear();
    for (const int *row = begin; row != end; ++row) {
        const double number = m_numbers[static_cast<size_t>(*row)];
        if (!std::isnan(number)) {
            m_list.push_back(number);
        }
    }
    Value value;
    if (!m_list.empty()) {
        value.isKnown = true;
        value.text = formatReal(
            m_using == Average ? figureOf(m_list, Statistics::mean) : figureOf(m_list, Statistics::median), false, -1,
            true);
    }
    return value;
}

ColumnImputer::Value ColumnImputer::mode(const int *begin, const int *end)
{
    const auto countOf = [this](int row) -> int & {
        return m_counts[static_cast<size_t>(m_texts[static_cast<size_t>(row)])];
    };
    Value value;
    for (const int *row = begin; row != end; ++row) {
        value.times = qMax(value.times, ++countOf(*row));
    }
    for (const int *row = begin; row != end; ++row) {
        if (countOf(*row) == value.times) {
            value.tiedRows.append(*row);
        }
        countOf(*row) = 0;
    }
    value.isKnown = !value.tiedRows.isEmpty();
    value.sourceRow = value.isKnown ? value.tiedRows.first() : -1;
    return value;
}
