#include "data/textsimilarity.h"
#include "transforms/column/calculation.h"

#include <algorithm>

namespace {

/// Operations on the texts as they are.
class TextCalculation final : public Calculation
{
public:
    explicit TextCalculation(const CalculateTask &task)
        : Calculation(task)
    {
    }

    bool compute(int row, TextBuffer &out) override
    {
        const Cell &cell = first().at(row);
        switch (op()) {
        case CalculateOp::Length:
            return succeedWhole(TextCoding::unitCount(cell.bytes(), cell.size()), out);
        case CalculateOp::WordCount:
            return succeedWhole(m_words.of(cell, [](const Cell &text) { return wordCount(text.text()); }), out);
        default:
            break;
        }
        const auto asText = [](const Cell &text) { return text.text(); };
        return compare(m_first.of(cell, asText), m_second.of(second().at(row), asText), out);
    }

private:
    bool compare(const QString &a, const QString &b, TextBuffer &out) const
    {
        switch (op()) {
        case CalculateOp::IndexOf:
            return succeedAt(a.isEmpty() ? 0 : b.indexOf(a), out);
        case CalculateOp::LastIndexOf:
            return succeedAt(a.isEmpty() ? b.size() : b.lastIndexOf(a), out);
        case CalculateOp::Occurrences:
            return a.isEmpty() ? succeed(QString(), out) : succeedWhole(b.count(a), out);
        default:
            return succeedWhole(editDistance(a, b, std::max(a.size(), b.size()) + 1), out);
        }
    }

    bool succeedAt(int index, TextBuffer &out) const
    {
        return index < 0 ? succeed(QString(), out) : succeedWhole(index + 1, out);
    }

    /// Words end at whitespace and punctuation.
    static int wordCount(const QString &text)
    {
        int count = 0;
        bool inWord = false;
        for (QChar c : text) {
            const bool ends = c.isSpace() || c.isPunct();
            count += !ends && !inWord;
            inWord = !ends;
        }
        return count;
    }

    LastRead<QString> m_first;
    LastRead<QString> m_second;
    LastRead<int> m_words;
};

} // namespace

std::unique_ptr<Calculation> makeTextCalculation(const CalculateTask &task)
{
    return std::make_unique<TextCalculation>(task);
}
