#include "support/fakesource.h"
#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "transforms/frame/celltransform.h"
#include "transforms/options/option.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

namespace {

/// A rule of the test's own in the frame, with the identity of Pad.
class WithRule final : public CellTransform
{
public:
    explicit WithRule(CellRule rule)
        : CellTransform("Pad")
        , m_rule(std::move(rule))
    {
    }

private:
    OptionTable options() const override { return {Option::columns("Columns")}; }
    CellRule rule(const OptionValues &, const Dataset &) const override { return m_rule; }

    CellRule m_rule;
};

Dataset runRule(const CellRule &rule, const Dataset &input, QString *resultText = nullptr)
{
    FakeSource source(input);
    WithRule transform(rule);
    transform.createParameters({&source}, true);
    setOption(transform, "Columns", QVariant(QStringList(source.datasetConst().columnNames())));
    const Dataset result = transform.run({&source}, nullptr);
    if (resultText) {
        *resultText = transform.resultText();
    }
    return result;
}

Dataset numbered(int count)
{
    Dataset dataset = grid({"n"});
    for (int i = 0; i < count; ++i) {
        dataset.appendRow({QStringLiteral("number %1").arg(i % 700)});
    }
    return dataset;
}

} // namespace

TEST(CellTransform, CountsChangedAndUnchangedCells)
{
    const Dataset input = grid({"a|b|c", "x|Y|X", "Y|x|y"});
    struct Case
    {
        const char *what;
        QStringList columns;
        QStringList result;
        QString text;
    };
    const Case cases[] = {
        {"one column", {"a"}, {"x|Y|X", "y|x|y"}, "1 changed, 1 unchanged"},
        {"two columns in any order", {"c", "b"}, {"x|y|x", "Y|x|y"}, "2 changed, 2 unchanged"},
        {"a column named twice is changed once", {"a", "a"}, {"x|Y|X", "y|x|y"}, "1 changed, 1 unchanged"},
        {"no column", {}, {"x|Y|X", "Y|x|y"}, "No changes"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Case", {{"Columns", c.columns}}, {input});
        EXPECT_EQ(rows(run.result), c.result);
        EXPECT_EQ(run.resultText(), c.text);
    }
    EXPECT_EQ(runTransform("Case", {{"Case", "Upper case"}, {"Columns", "c"}}, {grid({"c", "A", "B"})}).resultText(),
        "No changes");
}

TEST(CellTransform, GroupsItsCounts)
{
    const ScopedLocale german("de_DE");
    QString text;
    runRule(CellRule([](const QString &) { return QString("x"); }), numbered(1234), &text);
    EXPECT_EQ(text, "1.234 changed, 0 unchanged");
}

TEST(CellTransform, ReportsProgressEveryThousandRows)
{
    EXPECT_EQ(runTransform("Pad", {{"Columns", "n"}}, {numbered(2500)}).progress,
        (QVector<qreal>{0.0, 1000.0 / 2500, 2000.0 / 2500}));
    EXPECT_EQ(runTransform("Pad", {{"Columns", "n"}}, {numbered(1000)}).progress, QVector<qreal>{0.0});
    EXPECT_EQ(runTransform("Pad", {{"Columns", "n"}}, {numbered(0)}).progress, QVector<qreal>());
}

TEST(CellTransform, GivesTheSameByEveryFormOfARule)
{
    const Dataset input = numbered(5000);
    const auto text = [](const QString &value) { return value.right(3) + "-no longer than before"; };
    const CellRule byRow = CellRule::byRow([&](int, const Cell &cell, TextBuffer &out) {
        const QByteArray bytes = text(cell.text()).toUtf8();
        out.append(bytes.constData(), bytes.size());
    });
    const Dataset byText = runRule(CellRule(text), input);
    EXPECT_EQ(rows(byText), rows(runRule(byRow, input)));
    for (int row = 0; row < 5000; row += 499) {
        EXPECT_EQ(byText.value(RowIndex(row), ColumnIndex(0)), text(input.value(RowIndex(row), ColumnIndex(0))));
    }

    const auto lastThree = [](auto *characters, int size) {
        std::copy(characters + size - 3, characters + size, characters);
        return 3;
    };
    EXPECT_EQ(rows(runRule(CellRule::inPlace(lastThree), input)),
        rows(runRule(CellRule([](const QString &value) { return value.right(3); }), input)));
}

TEST(CellTransform, ComputesARepeatedTextOnce)
{
    int calls = 0;
    const CellRule counting([&calls](const QString &text) {
        ++calls;
        return text + "!";
    });
    runRule(counting, column(QStringList{"a", "b", "a", "a", "b", "a", "b"}));
    EXPECT_EQ(calls, 2);
}

TEST(CellTransform, SharesColumnsThatDoNotChange)
{
    const Dataset input = grid({"a|b", "x|X", "y|Y"});
    const Dataset result = runOn("Case", {{"Columns", QStringList{"a", "b"}}}, input);
    EXPECT_TRUE(result.column(ColumnIndex(0)).cells.sharesWith(input.column(ColumnIndex(0)).cells));
    EXPECT_FALSE(result.column(ColumnIndex(1)).cells.sharesWith(input.column(ColumnIndex(1)).cells));
    EXPECT_EQ(rows(input), (QStringList{"x|X", "y|Y"}));
}

TEST(CellTransform, LetsGoOfTextsThatAllChanged)
{
    const Dataset input = column(QStringList{"A LONG TEXT", "another long text"});
    const Dataset all = runOn("Case", {{"Case", "Inverted case"}}, input);
    EXPECT_EQ(rows(all), (QStringList{"a long text", "ANOTHER LONG TEXT"}));
    EXPECT_FALSE(all.column(ColumnIndex(0)).arenas.contains(input.column(ColumnIndex(0)).arenas.first()));
    const Dataset some = runOn("Case", {}, input);
    EXPECT_EQ(rows(some), (QStringList{"a long text", "another long text"}));
    EXPECT_TRUE(some.column(ColumnIndex(0)).arenas.contains(input.column(ColumnIndex(0)).arenas.first()));
}

TEST(CellTransform, KeepsHeaderIdsAndOtherColumns)
{
    const TransformRun run = runTransform("Chop", {{"Columns", 2}}, {grid({"a|b", "x|yz"})});
    EXPECT_EQ(run.result.header(), (QStringList{"a", "b"}));
    EXPECT_EQ(run.result.columnIds(), (QList<ColumnId>{ColumnId(1, 1), ColumnId(1, 2)}));
    EXPECT_EQ(rows(run.result), QStringList("x|z"));
}

TEST(CellTransform, GoesOnWithoutAColumnThatIsGone)
{
    FakeSource source(grid({"a|b", "X|Y"}));
    const std::unique_ptr<Transform> transform(runTransform("Case", {}, {}).transform->clone());
    transform->setInputs({&source});
    setOption(*transform, "Columns", QStringList{"a", "b"});
    QStringList ignored;
    transform->parameter("Columns")->reconnectColumns(ignored, ignored);
    source.dataset().removeColumn(ColumnIndex(0));
    EXPECT_EQ(rows(transform->run({&source}, nullptr)), QStringList("y"));
    EXPECT_EQ(transform->resultText(), "1 changed, 0 unchanged");
    transform->checkOptions();
    EXPECT_EQ(transform->warnings(), QStringList("Column 'a' of 'Columns' has gone"));
}
