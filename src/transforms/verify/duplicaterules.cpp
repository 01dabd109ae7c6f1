#include "data/dateparser.h"
#include "data/numberreader.h"
#include "data/rowkeyindex.h"
#include "data/textorder.h"
#include "transforms/row/keyfolding.h"
#include "transforms/verify/rulechecks.h"

#include <algorithm>

namespace {

/// Every row of a text that comes more than once, by text and then by row.
void reportSameTexts(const CellColumn &column, RuleFails &fails)
{
    constexpr int batch = 32;
    RowKeyIndex index({column.cells.constData()});
    std::vector<int> keys(static_cast<size_t>(column.size()));
    std::vector<int> counts;
    for (int row = 0; row < column.size(); ++row) {
        if (row % batch == 0) {
            index.announce(row, qMin(row + batch, column.size()));
        }
        const int key = index.add(row);
        keys[static_cast<size_t>(row)] = key;
        counts.resize(static_cast<size_t>(index.size()));
        ++counts[static_cast<size_t>(key)];
    }
    std::vector<int> repeated;
    for (int key = 0; key < index.size(); ++key) {
        if (counts[static_cast<size_t>(key)] > 1) {
            repeated.push_back(key);
        }
    }
    std::sort(repeated.begin(), repeated.end(), [&](int a, int b) {
        return TextOrder::compare(column.at(index.firstRow(a)), column.at(index.firstRow(b))) < 0;
    });
    // Where the rows of each repeated text begin in the list.
    std::vector<int> places(counts.size(), -1);
    int end = 0;
    for (int key : repeated) {
        places[static_cast<size_t>(key)] = end;
        end += counts[static_cast<size_t>(key)];
    }
    fails.count = end;
    fails.rows.resize(end);
    for (int row = 0; end > 0 && row < column.size(); ++row) {
        int &place = places[static_cast<size_t>(keys[static_cast<size_t>(row)])];
        if (place >= 0) {
            fails.rows[place++] = row;
        }
    }
}

RuleCheckPointer sameTextCheck(bool caseSensitive)
{
    const KeyFolding folding{caseSensitive, false, false};
    return columnCheck(
        [folding](const CellColumn &column, RuleFails &fails) { reportSameTexts(folding.folded(column), fails); });
}

/// The same for texts that read as a number; `read` gives a value and says whether there is one.
template<class Read>
RuleCheckPointer sameValueCheck(Read read)
{
    return columnCheck([read](const CellColumn &column, RuleFails &fails) {
        std::vector<std::pair<qint64, int>> values;
        for (int row = 0; row < column.size(); ++row) {
            bool ok = false;
            const qint64 value = read(column.at(row), &ok);
            if (ok) {
                values.emplace_back(value, row);
            }
        }
        std::sort(values.begin(), values.end());
        for (size_t i = 0; i < values.size(); ++i) {
            const bool asBefore = i > 0 && values[i - 1].first == values[i].first;
            const bool asNext = i + 1 < values.size() && values[i + 1].first == values[i].first;
            if (asBefore || asNext) {
                fails.addRow(values[i].second);
            }
        }
    });
}

} // namespace

RuleCheckPointer makeDuplicateCheck(const VerifyRule &rule, const RuleContext &context)
{
    if (rule.ruleId == 4) {
        return sameTextCheck(context.caseSensitive);
    }
    if (rule.ruleId == 47) {
        return sameValueCheck([reader = NumberReader(false, false)](const Cell &cell, bool *ok) {
            return static_cast<qint64>(reader.readInt(cell, ok));
        });
    }
    if (rule.ruleId == 48 && !context.dateFormat.isEmpty()) {
        return sameValueCheck([parser = DateParser(context.dateFormat)](const Cell &cell, bool *ok) {
            const QDate date = parser.parse(cell);
            *ok = date.isValid();
            return date.toJulianDay();
        });
    }
    return nullptr;
}
