#include "transforms/frame/transform.h"

#include "settings/settings.h"
#include "support/fakesource.h"
#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedsettings.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

namespace {

/// A kind with two inputs and options of the test's own, with the identity of Join.
class TwoKeys final : public Transform
{
public:
    TwoKeys()
        : Transform("Join")
    {
    }

private:
    OptionTable options() const override
    {
        const auto byKey = QStringList("Key");
        return {
            Option::selection("By", "By", {"Key", "Row number"}),
            Option::column("Column_1", "Top key column").activeWhen("By", byKey),
            Option::column("Column_2", "Bottom key column").ofInput(1).activeWhen("By", byKey),
            Option::column("Value", "Value column").ofInput(1).notRequired(),
            Option::flag("Named", "named"),
            Option::text("Name", "Name").activeWhenFlag("Named").activeWhen([](const OptionValues &values) {
                return values.column("Column_1").isValid();
            }),
        };
    }
};

QList<QPair<QString, bool>> states(bool byKey, bool named)
{
    return {{"Column_1", byKey}, {"Column_2", byKey}, {"Name", named}};
}

} // namespace

TEST(Transform, WarnsOfOptionsThatAreNotSet)
{
    FakeSource top(grid({"a|b"}), 1);
    FakeSource bottom(grid({"c|d"}), 2);
    TwoKeys transform;
    transform.createParameters({&top, &bottom}, true);
    transform.checkOptions();
    EXPECT_EQ(transform.warnings(), QStringList("2 options not set ('Top key column','Bottom key column')"));

    transform.clearMessages();
    setOption(transform, "Column_1", "a");
    transform.checkOptions();
    EXPECT_EQ(transform.warnings(), QStringList("1 option not set ('Bottom key column')"));

    transform.clearMessages();
    setOption(transform, "By", "Row number");
    transform.checkOptions();
    EXPECT_EQ(transform.warnings(), QStringList());
}

namespace {

/// The warnings of a kind about a table that had the columns a, b and c when its options were chosen and lost some.
QStringList warningsWithout(const QStringList &gone, const QString &kind, const OptionSettings &options)
{
    const TransformRun run = runTransform(kind, options, {grid({"a|b|c", "1|2|3"})});
    QStringList ignored;
    for (Parameter *parameter : run.transform->parameters()) {
        parameter->reconnectColumns(ignored, ignored);
    }
    Dataset &table = run.sources.front()->dataset();
    for (const QString &name : gone) {
        table.removeColumn(table.columnIndexOfName(name));
    }
    run.transform->clearMessages();
    run.transform->checkOptions();
    return run.warnings();
}

QVariant filterOn(const QList<ColumnId> &columns)
{
    FilterRecord filter;
    filter.terms.clear();
    for (const ColumnId column : columns) {
        filter.terms.append({column, 0, "x"});
    }
    return QVariant::fromValue(filter);
}

QVariant ifOn(const QList<ColumnId> &columns)
{
    IfRecord record;
    record.branches.first().conditions = filterOn(columns).value<FilterRecord>().terms;
    return QVariant::fromValue(record);
}

QVariant verifying(ColumnId column, bool active)
{
    VerifyRule rule;
    rule.active = active;
    VerifyRuleSet rules;
    rules.columns.insert(column, {VerifyColumn::Text, {rule}});
    return QVariant::fromValue(rules);
}

} // namespace

TEST(Transform, NamesColumnsThatHaveGone)
{
    const ColumnId a(1, 1);
    const ColumnId b(1, 2);
    const ColumnId any;
    const QStringList both{"a", "b"};
    const OptionSettings ranked{{"Columns", "c"}, {"Rank_Add", true}, {"Rank_By", "a"}};
    const struct
    {
        const char *what;
        QStringList gone;
        QString kind;
        OptionSettings options;
        QStringList warnings;
    } cases[] = {
        {"some of a list", {"a"}, "Sort", {{"Columns", both}}, {"Column 'a' of 'Sorting' has gone"}},
        {"all of a list", both, "Sort", {{"Columns", both}},
            {"Column 'a' of 'Sorting' has gone", "Column 'b' of 'Sorting' has gone", "1 option not set ('Sorting')"}},
        {"others only", {"c"}, "Sort", {{"Columns", both}}, {}},
        {"an optional column", {"a"}, "Sort", ranked,
            {"Column 'a' of 'Rank by' has gone", "1 option not set ('Rank by')"}},
        {"an optional column that doesn't apply", {"a"}, "Sort", {{"Columns", "c"}, {"Rank_By", "a"}}, {}},
        {"a column to look in", {"a"}, "Slice",
            {{"From_Mode", "First row where"}, {"From_Column", "a"}, {"From_Value", "1"}},
            {"Column 'a' of 'Column' has gone", "1 option not set ('Column')"}},
        {"one of two conditions", {"a"}, "Filter", {{"Columns", filterOn({a, b})}},
            {"Column 'a' of 'Filtering' has gone"}},
        {"a condition beside one on any column", {"a"}, "Filter", {{"Columns", filterOn({a, any})}},
            {"Column 'a' of 'Filtering' has gone"}},
        {"one of two conditions of a branch", {"a"}, "If", {{"If", ifOn({a, b})}}, {"Column 'a' of 'If' has gone"}},
        {"a key among others", {"a"}, "Unique",
            {{"Column_Options", QVariant::fromValue(QHash<ColumnId, int>{{a, 0}, {b, 0}})}},
            {"Column 'a' of 'Column options' has gone"}},
        {"no key", {"a"}, "Unique", {{"Column_Options", QVariant::fromValue(QHash<ColumnId, int>{{a, 1}, {b, 0}})}},
            {}},
        {"a column to be verified", {"a"}, "Verify", {{"Rules", verifying(a, true)}},
            {"Column 'a' of 'Verify rules' has gone"}},
        {"a column not to be verified", {"a"}, "Verify", {{"Rules", verifying(a, false)}}, {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(warningsWithout(c.gone, c.kind, c.options), c.warnings);
    }
}

TEST(Transform, TellsWhichOptionsApply)
{
    FakeSource top(grid({"a|b"}), 1);
    FakeSource bottom(grid({"c|d"}), 2);
    TwoKeys transform;
    EXPECT_TRUE(transform.hasConditionalParameters());
    EXPECT_EQ(transform.parameterStates(), (QList<QPair<QString, bool>>()));
    transform.createParameters({&top, &bottom}, true);
    EXPECT_EQ(transform.parameterStates(), states(true, false));
    setOption(transform, "Named", true);
    EXPECT_EQ(transform.parameterStates(), states(true, false));
    setOption(transform, "Column_1", "b");
    EXPECT_EQ(transform.parameterStates(), states(true, true));
    setOption(transform, "By", "Row number");
    EXPECT_EQ(transform.parameterStates(), states(false, true));
    EXPECT_FALSE(runTransform("Pad", {}, {}).transform->hasConditionalParameters());
}

TEST(Transform, BindsColumnOptionsToTheirInputs)
{
    FakeSource top(grid({"a|b"}), 1);
    FakeSource bottom(grid({"c|d"}), 2);
    TwoKeys transform;
    transform.createParameters({&top}, true);
    EXPECT_EQ(transform.parameter("Column_1")->node(), &top);
    EXPECT_EQ(transform.parameter("Column_2")->node(), nullptr);

    transform.setInputs({&bottom, &top});
    EXPECT_EQ(transform.parameterForNode(&bottom), transform.parameter("Column_1"));
    EXPECT_EQ(transform.parametersForNode(&top),
        (QList<Parameter *>{transform.parameter("Column_2"), transform.parameter("Value")}));
    EXPECT_EQ(transform.parameter("By")->node(), nullptr);

    transform.setInputs({});
    EXPECT_EQ(transform.parameterForNode(&top), nullptr);
}

TEST(Transform, GivesAnEmptyTableForAWrongNumberOfInputs)
{
    FakeSource source(column("X"));
    const TransformRun none = runTransform("Case", {}, {});
    EXPECT_EQ(none.result.columnCount(), 0);
    EXPECT_EQ(none.resultText(), "");
    const TransformRun two = runTransform("Case", {}, {column("X"), column("Y")});
    EXPECT_EQ(two.result.columnCount(), 0);
    EXPECT_EQ(two.resultText(), "");
}

TEST(Transform, RunsOnlyWithAllItsOptions)
{
    FakeSource source(column("X"));
    const TransformRun run = runTransform("Case", {}, {column("X")});
    QList<Parameter *> some;
    for (const Parameter *parameter : run.transform->parameters().mid(1)) {
        some.append(parameter->clone());
    }
    run.transform->setParameters(some);
    EXPECT_FALSE(run.transform->run({&source}, nullptr).hasColumns());
    EXPECT_EQ(run.transform->resultText(), "No changes");
}

TEST(Transform, TakesDefaultsOfTheUserForNewItems)
{
    const ScopedSettings settings;
    FakeSource source(grid({"a|b"}));
    const TransformRun saved = runTransform("Pad", {{"Length", 7}, {"Pad_With", "x"}}, {grid({"a|b"})});
    EXPECT_TRUE(saved.transform->parameter("Length")->hasUserDefault());
    EXPECT_FALSE(saved.transform->parameter("Columns")->hasUserDefault());
    for (const Parameter *parameter : saved.transform->parameters()) {
        saved.transform->saveUserDefault(*parameter);
    }
    Settings::current().setTransformDefault("Pad", "No_Such_Option", 3);
    Settings::current().setTransformDefault("Pad", "Left_Right", "Middle");

    const TransformRun fresh = runTransform("Pad", {}, {grid({"a|b"})});
    EXPECT_EQ(fresh.transform->parameter("Length")->toInt(), 7);
    EXPECT_EQ(fresh.transform->parameter("Pad_With")->toChar(), QChar('x'));
    EXPECT_EQ(fresh.transform->parameter("Left_Right")->toText(), "Left");
    EXPECT_EQ(runTransform("Chop", {}, {column("a")}).transform->parameter("Length")->toInt(), 1);

    fresh.transform->createParameters({&source}, false);
    EXPECT_EQ(fresh.transform->parameter("Length")->toInt(), 10);
    EXPECT_TRUE(fresh.transform->parameter("Length")->hasUserDefault());
}

TEST(Transform, KeepsDefaultsOfEveryKindInTheSettings)
{
    const ScopedSettings settings;
    const QVariant values[] = {true, 5, 2.5, QString("a|b"), QVariant(QChar('x')), QDate(2024, 1, 1), QLocale("fr_FR"),
        QVariant::fromValue(QList<ReplaceTerm>{{2, "a", "b"}})};
    const Parameter::Kind kinds[] = {Parameter::Bool, Parameter::Int, Parameter::Real, Parameter::Text, Parameter::Char,
        Parameter::Date, Parameter::Locale, Parameter::ReplaceTerms};
    for (int i = 0; i < 8; ++i) {
        SCOPED_TRACE(values[i].typeName());
        Settings::current().setTransformDefault("Pad", "Key", values[i]);
        Settings::current().sync();
        const Settings again(Settings::current().fileName());
        Parameter parameter(kinds[i], "Key", "label");
        EXPECT_TRUE(parameter.setUserDefault(again.transformDefault("Pad", "Key")));
        EXPECT_EQ(parameter.value(), values[i]);
    }
}

TEST(Transform, IsFoundByItsWords)
{
    const TransformRun pad = runTransform("Pad", {}, {});
    const QSet<QString> expected{
        "pad", "formatting", "formats", "pads", "left", "right", "text", "minimum", "lengths", "with"};
    EXPECT_EQ(pad.transform->keywords(), expected);
    EXPECT_TRUE(TwoKeys().keywords().contains("merges"));
}

TEST(Transform, SaysHowManyItemsToSelect)
{
    const QString frame = "Select %1 in the Center pane\nand then click this button to perform this transform.";
    EXPECT_EQ(runTransform("Pad", {}, {}).transform->inputsHelpText(), frame.arg("1 Input/Transform item"));
    EXPECT_EQ(TwoKeys().inputsHelpText(), frame.arg("2 Input/Transform items"));
}

TEST(Transform, NamesCategories)
{
    const QStringList plain{"All", "Merge", "Column", "Row", "Format", "Analysis", "Other"};
    const QStringList withMnemonics{"&All", "&Merge", "&Column", "&Row", "&Format", "Anal&ysis", "&Other"};
    for (int category = Transform::All; category <= Transform::Other; ++category) {
        EXPECT_EQ(Transform::categoryName(category, false), plain.at(category));
        EXPECT_EQ(Transform::categoryName(category, true), withMnemonics.at(category));
    }
    EXPECT_EQ(Transform::categoryName(7, false), "");
}
