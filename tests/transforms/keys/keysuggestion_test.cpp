#include "transforms/keys/keysuggestion.h"

#include "support/fakesource.h"
#include "support/grid.h"
#include "support/scopedsettings.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

namespace {

/// `rows` rows of three columns: an id from `first` on, the same text for all, the row number behind `first`.
Dataset numbered(const QString &header, int first, int rowCount, const QString &text = "same")
{
    Dataset dataset = grid({header});
    for (int row = 0; row < rowCount; ++row) {
        dataset.appendRow({QStringLiteral("K%1").arg(first + row), text, QStringLiteral("r%1-%2").arg(first).arg(row)});
    }
    return dataset;
}

/// The suggested columns as "2-1", or "none".
QString suggestion(const Dataset &top, const Dataset &bottom, bool strict)
{
    FakeSource topSource(top, 1);
    FakeSource bottomSource(bottom, 2);
    Parameter first(Parameter::SingleColumn, "Column_1", "top", &topSource);
    Parameter second(Parameter::SingleColumn, "Column_2", "bottom", &bottomSource);
    if (!suggestKeyColumns(&first, &second, strict)) {
        EXPECT_TRUE(first.toColumnId().isNull() && second.toColumnId().isNull());
        return "none";
    }
    return QStringLiteral("%1-%2").arg(first.toColumnNumber().toInt()).arg(second.toColumnNumber().toInt());
}

QStringList names(const ColumnPairs &pairs, const Dataset &top, const Dataset &bottom)
{
    QStringList result;
    for (const auto &pair : pairs) {
        result.append(top.columnName(pair.first) + "-" + bottom.columnName(pair.second));
    }
    return result;
}

} // namespace

TEST(KeySuggestion, ChoosesTheColumnsWhoseValuesOverlap)
{
    struct Case
    {
        const char *what;
        Dataset top;
        Dataset bottom;
        bool strict;
        QString chosen;
    };
    Dataset turned = grid({"x|y|key"});
    for (int row = 0; row < 50; ++row) {
        turned.appendRow({"t", "u", QStringLiteral("K%1").arg(row)});
    }
    const Case cases[] = {
        {"by their values, whatever their names", numbered("a|b|c", 0, 50), turned, false, "1-3"},
        {"nothing in common", numbered("a|b|c", 0, 50, "one"), numbered("d|e|f", 500, 50, "two"), false, "none"},
        {"too little in common", numbered("a|b|c", 0, 50), numbered("d|e|f", 46, 50), false, "none"},
        {"a little more", numbered("a|b|c", 0, 50), numbered("d|e|f", 44, 50), false, "1-1"},
        {"strict asks for a good part of the rows", numbered("a|b|c", 0, 300), numbered("d|e|f", 210, 300), true,
            "none"},
        {"which larger tables are less likely to have", numbered("a|b|c", 0, 300), numbered("d|e|f", 99, 300), true,
            "1-1"},
        {"equal names are worth half as much again", numbered("Key|b|c", 0, 50), numbered("key|e|f", 48, 50), false,
            "1-1"},
        {"an empty table", numbered("a|b|c", 0, 0), numbered("d|e|f", 0, 50), false, "none"},
        {"two empty tables", numbered("a|b|c", 0, 0), numbered("d|e|f", 0, 0), true, "none"},
        {"10000 rows are searched", numbered("a|b|c", 0, 10000), turned, false, "1-3"},
        {"10001 aren't", numbered("a|b|c", 0, 10001), turned, false, "none"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(suggestion(c.top, c.bottom, c.strict), c.chosen);
    }
}

TEST(KeySuggestion, NeedsTwoBoundColumnOptions)
{
    FakeSource source(numbered("a|b|c", 0, 50));
    Parameter bound(Parameter::SingleColumn, "Column_1", "top", &source);
    Parameter unbound(Parameter::SingleColumn, "Column_2", "bottom", nullptr);
    Parameter several(Parameter::MultipleColumns, "Columns", "columns", &source);
    EXPECT_FALSE(suggestKeyColumns(&bound, nullptr, false));
    EXPECT_FALSE(suggestKeyColumns(&bound, &unbound, false));
    EXPECT_FALSE(suggestKeyColumns(&several, &bound, false));
}

TEST(KeySuggestion, TellsKeysByTheirFirstValues)
{
    struct Case
    {
        const char *what;
        QStringList values;
        bool isKey;
    };
    QStringList late;
    for (int row = 0; row < 50; ++row) {
        late.append("x");
    }
    late.append("two words");
    const Case cases[] = {
        {"codes", {"A-1", "", "b_2"}, true},
        {"words", {"A1", "two words"}, false},
        {"decimals", {"1.5"}, false},
        {"decimals of another country", {"1,5"}, false},
        {"dates", {"1/2/2024", "3/4/2024"}, false},
        {"only the first 50 count", late, true},
        {"no rows", {}, true},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(isKeyLikeColumn(column(c.values), ColumnIndex(0), {"d/M/yyyy"}), c.isKey);
    }
}

TEST(KeySuggestion, PutsPairsWithLikelyNamesFirst)
{
    const Dataset top = grid({"Name|Customer|Id Number", "a|b|c"});
    const Dataset bottom = grid({"id code|customer no|NAME", "a|b|c"});
    EXPECT_EQ(names(keyColumnPairs(top, bottom, 8, {}), top, bottom),
        (QStringList{"Name-NAME", "Customer-customer no", "Id Number-id code", "Name-id code", "Name-customer no",
            "Customer-id code", "Customer-NAME", "Id Number-customer no"}));
    EXPECT_EQ(names(keyColumnPairs(top, bottom, 1, {}), top, bottom), QStringList("Name-NAME"));
    EXPECT_EQ(names(keyColumnPairs(top, bottom, 9, {}), top, bottom).first(), "Name-id code");
    EXPECT_EQ(
        names(keyColumnPairs(plainGrid({"a|b"}), plainGrid({"c|d"}), 2, {}), plainGrid({"a|b"}), plainGrid({"c|d"})),
        (QStringList{"1-1", "1-2"}));
}

TEST(KeySuggestion, FindsDateColumns)
{
    ScopedSettings settings;
    settings->setDateFormats({"d/M/yyyy", "M/d/yyyy"});
    const Dataset dataset = grid({"a|b|c|d", "1/2/2024|1/31/2024||x", "31/1/2024|1/2/2024||1/2/2024"});
    const QHash<ColumnIndex, QString> formats = dateColumnFormats(
        dataset, {ColumnIndex(0), ColumnIndex(1), ColumnIndex(2), ColumnIndex(3)});
    EXPECT_EQ(formats, (QHash<ColumnIndex, QString>{{ColumnIndex(0), "d/M/yyyy"}, {ColumnIndex(1), "M/d/yyyy"}}));
}
