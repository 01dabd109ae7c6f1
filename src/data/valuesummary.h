#pragma once

#include "data/cellcolumn.h"
#include "data/realwriter.h"
#include "data/textbuffer.h"

#include <QStringList>
#include <cmath>
#include <memory>
#include <vector>

class DistinctTexts;

/// What a list of values is summed up as; the order is that of the choices offered to users.
enum class SummaryKind : int { Sum, Minimum, Maximum, Average, Median, Mode, StandardDeviation, Count, CountDistinct };

/// The summary of `values` in one text. All kinds but the counts leave out texts that are no numbers; currency symbols
/// are ignored. Without numbers the result is 0, of Mode an empty text. The counts leave out empty texts.
QString summarizeValues(SummaryKind kind, const QStringList &values);

/// Sums up many lists of cells of one column as summarizeValues() does, reading each cell once. The default locale
/// stays the same meanwhile.
class ValueSummary
{
public:
    ValueSummary(SummaryKind kind, const CellColumn &column);
    ~ValueSummary();
    Q_DISABLE_COPY(ValueSummary)

    /// False for the counts.
    static bool isNumeric(SummaryKind kind) { return kind < SummaryKind::Count; }
    /// Whether the row has a number; for numeric kinds only.
    bool hasNumber(int row) const { return !std::isnan(m_numbers[static_cast<size_t>(row)]); }
    /// Replaces what `out` holds by the summary of the rows from `begin` to before `end`; returns how many values went
    /// into it: numbers or, for the counts, texts that aren't empty.
    int write(const int *begin, const int *end, TextBuffer &out);

private:
    int writeCount(const int *begin, const int *end, TextBuffer &out);
    void writeModes(double *begin, double *end, TextBuffer &out) const;

    const SummaryKind m_kind;
    const CellColumn m_column;
    const RealWriter m_writer;
    std::vector<double> m_numbers; ///< of each row, NaN for a text that is no number
    std::vector<double> m_list;
    std::unique_ptr<DistinctTexts> m_texts;
};
