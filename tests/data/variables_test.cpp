#include "data/variabletemplate.h"
#include "support/grid.h"

#include <QRandomGenerator>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

const RowIndex row0(0);

struct VariableCase
{
    const char *what;
    QStringList table;
    QString text;
    QString expected;
};

TEST(Variables, AreReplacedByTheValuesOfTheRow)
{
    const VariableCase cases[] = {
        {"no variable", {"A|B", "1|2"}, "cost: $5 (net)", "cost: $5 (net)"},
        {"by name, twice", {"A|B", "1|2"}, "<$(A)>$(A)", "<1>1"},
        {"by number", {"A|B", "1|2"}, "$(2)$(1)", "21"},
        {"a longer name isn't cut by a shorter", {"A|AB", "1|2"}, "$(AB) $(A)", "2 1"},
        {"a name goes before a number", {"x|2|y", "1|3|5"}, "$(2)", "3"},
        {"the first of equal names", {"x|x", "1|2"}, "$(x)", "1"},
        {"case counts", {"A|b", "1|2"}, "$(a)$(B)", "$(a)$(B)"},
        {"names are trimmed", {" A |b", "1|2"}, "$(A)$( A )", "1$( A )"},
        {"an unknown one stays", {"A|b", "1|2"}, "$(3)$(C)$(A", "$(3)$(C)$(A"},
        {"without a name, by number", {"|b", "1|2"}, "$(1)", "1"},
        {"a value that is a variable of a shorter name", {"name|n", "$(n)|x"}, "$(name)", "x"},
        {"a value that is one of a longer name stays", {"name|n", "y|$(name)"}, "$(n)", "$(name)"},
        {"a value that completes one", {"long|A|1", "A|7|"}, "$($(long))", "7"},
        {"a value with a currency sign", {"A|b", "$5|2"}, "$(A)/$(b)", "$5/2"},
        {"a value that ends in a sign", {"AA|b", "$|2"}, "$(AA)(b)", "2"},
        {"an empty value that joins two parts", {"AA|b", "|2"}, "$$(AA)(b)", "2"},
        {"long and beyond ASCII", {"A|\u00e9", "a value of many bytes|\u20ac"}, "\u00fc$(A)$(\u00e9)\U0001F600",
            "\u00fca value of many bytes\u20ac\U0001F600"},
    };
    for (const VariableCase &c : cases) {
        SCOPED_TRACE(c.what);
        const Dataset dataset = grid(c.table);
        EXPECT_EQ(dataset.substituteVariables(dataset.columnVariables(), row0, c.text), c.expected);
        const VariableTemplate prepared(dataset, c.text);
        EXPECT_EQ(prepared.text(dataset, row0), c.expected);
        TextBuffer bytes;
        prepared.write(dataset, row0, bytes);
        EXPECT_EQ(TextCoding::decode(bytes.constData(), bytes.size()), c.expected);
    }
}

TEST(Variables, OfAColumnAndAName)
{
    const Dataset dataset = grid({"A|B", "1|2"});
    EXPECT_EQ(dataset.variableForColumn(ColumnIndex(1)), "$(2)");
    EXPECT_EQ(dataset.variableForName(" A\t"), "$(A)");
    EXPECT_TRUE(VariableTemplate(dataset, "$(C) costs $5").isConstant());
    EXPECT_FALSE(VariableTemplate(dataset, "$(B)").isConstant());
    const QHash<QString, ColumnIndex> variables{{"A", ColumnIndex(0)}, {"gone", ColumnIndex(5)}};
    EXPECT_EQ(dataset.substituteVariables(variables, row0, "$(gone)$(A)"), "$(gone)1");
}

QString replacedInTurn(const Dataset &dataset, QString text)
{
    const QHash<QString, ColumnIndex> variables = dataset.columnVariables();
    QStringList names = variables.keys();
    std::sort(names.begin(), names.end(),
        [](const QString &a, const QString &b) { return a.size() != b.size() ? a.size() > b.size() : a < b; });
    for (const QString &name : qAsConst(names)) {
        text.replace("$(" + name + ")", dataset.value(row0, variables.value(name)));
    }
    return text;
}

TEST(Variables, PreparedTextIsThatOfReplacingInTurn)
{
    QRandomGenerator random(17);
    const QStringList pieces{"$", "(", ")", "$(", "A", "AB", "$(A)", "$(AB)", "$(1)", "x", "", "3", "$($(A))"};
    const auto mixed = [&](int most) {
        QString text;
        for (int left = random.bounded(most); left > 0; --left) {
            text += pieces.at(random.bounded(pieces.size()));
        }
        return text;
    };
    for (int i = 0; i < 20000; ++i) {
        const QStringList names{"A", random.bounded(2) ? "AB" : mixed(3), "B"};
        Dataset dataset;
        dataset.setColumnCount(3);
        dataset.setHeader(names);
        dataset.appendRow({mixed(4), mixed(4), mixed(4)});
        const QString text = mixed(7);
        ASSERT_EQ(VariableTemplate(dataset, text).text(dataset, row0), replacedInTurn(dataset, text))
            << text.toStdString() << " in " << names.join('|').toStdString() << " "
            << rows(dataset).at(0).toStdString();
    }
}

} // namespace
