#include "support/fakesource.h"
#include "support/grid.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

namespace {

const ColumnId a(1, 1);
const ColumnId b(1, 2);
const ColumnId newA(2, 1);
const ColumnId newB(2, 2);

/// A value of each kind that names column `first`, and `second` where it names several.
struct ReferenceCase
{
    const char *what;
    Parameter::Kind kind;
    QVariant (*value)(ColumnId first, ColumnId second);
};

QVariant filterOf(ColumnId first, ColumnId second)
{
    FilterRecord record;
    record.terms = {{first, 1, "x"}, {ColumnId(), 0, ""}, {second, 2, "y"}};
    return QVariant::fromValue(record);
}

QVariant branchesOf(ColumnId first, ColumnId second)
{
    IfRecord record;
    record.branches = {{{{first, 1, "x"}}, "1"}, {{{ColumnId(), 0, ""}, {second, 2, "y"}}, "2"}};
    return QVariant::fromValue(record);
}

QVariant splitOf(ColumnId first, ColumnId)
{
    SplitRowsRecord record;
    record.startColumn = first;
    return QVariant::fromValue(record);
}

QVariant rulesOf(ColumnId first, ColumnId second)
{
    VerifyRuleSet rules;
    rules.columns = {{first, VerifyColumn()}, {second, VerifyColumn{VerifyColumn::Date, {}}}};
    return QVariant::fromValue(rules);
}

const ReferenceCase references[] = {
    {"a column", Parameter::SingleColumn, [](ColumnId first, ColumnId) { return QVariant::fromValue(first); }},
    {"columns", Parameter::MultipleColumns,
        [](ColumnId first, ColumnId second) {
            return QVariant::fromValue(QList<ColumnId>{first, second});
        }},
    {"an order", Parameter::ReorderColumns,
        [](ColumnId first, ColumnId second) {
            return QVariant::fromValue(QList<ColumnId>{first, second});
        }},
    {"removed columns", Parameter::RemoveColumns,
        [](ColumnId first, ColumnId second) {
            return QVariant::fromValue(QList<ColumnId>{first, second});
        }},
    {"sort columns", Parameter::SortColumns,
        [](ColumnId first, ColumnId second) {
            return QVariant::fromValue(QList<SortColumn>{{first, false}, {second, true}});
        }},
    {"pivot columns", Parameter::PivotColumns,
        [](ColumnId first, ColumnId second) {
            return QVariant::fromValue(QList<SortColumn>{{first, true}, {second, true}});
        }},
    {"filter terms", Parameter::FilterColumns, filterOf},
    {"branches", Parameter::If, branchesOf},
    {"new names", Parameter::RenameColumns,
        [](ColumnId first, ColumnId second) {
            return QVariant::fromValue(QHash<ColumnId, QString>{{first, "x"}, {second, "y"}});
        }},
    {"a split", Parameter::SplitRows, splitOf},
    {"codes", Parameter::UniqueColumns,
        [](ColumnId first, ColumnId second) {
            return QVariant::fromValue(QHash<ColumnId, int>{{first, 0}, {second, 4}});
        }},
    {"rules", Parameter::VerifyRules, rulesOf},
};

struct Messages
{
    QStringList warnings;
    QStringList infos;
};

Messages reconnect(Parameter &parameter)
{
    Messages messages;
    parameter.reconnectColumns(messages.warnings, messages.infos);
    return messages;
}

} // namespace

TEST(ParameterColumns, AreFoundAgainByNameAfterANewConnection)
{
    FakeSource old(grid({"a|b"}));
    FakeSource other(grid({"a|b"}), 2);
    for (const ReferenceCase &c : references) {
        SCOPED_TRACE(c.what);
        Parameter parameter(c.kind, "Key", "label", &old);
        parameter.setValue(c.value(a, b));
        const int count = parameter.referencedColumns().size();
        EXPECT_EQ(reconnect(parameter).infos, QStringList());

        parameter.setNode(&other);
        parameter.allowReconnect();
        Messages messages = reconnect(parameter);
        messages.infos.sort();
        const QStringList expected{"Reconnected to column 'a' for 'Key'", "Reconnected to column 'b' for 'Key'"};
        EXPECT_EQ(messages.infos, expected.mid(0, count));
        EXPECT_EQ(messages.warnings, QStringList());
        EXPECT_EQ(parameter.value(), c.value(newA, newB));
        EXPECT_EQ(reconnect(parameter).infos, QStringList());
    }
}

TEST(ParameterColumns, AreRemapped)
{
    for (const ReferenceCase &c : references) {
        SCOPED_TRACE(c.what);
        Parameter parameter(c.kind, "Key", "label", nullptr);
        parameter.setValue(c.value(a, b));
        parameter.remapColumnIds({{a, b}, {b, newA}});
        EXPECT_EQ(parameter.value(), c.value(b, newA));
    }
}

TEST(ParameterColumns, KeepTheirLastNamesWhenRemapped)
{
    FakeSource old(grid({"a|b"}));
    FakeSource other(grid({"b|a"}), 3);
    Parameter column(Parameter::SingleColumn, "Key", "label", &old);
    column.setValue(QVariant::fromValue(a));
    reconnect(column);
    column.remapColumnIds({{a, newA}});
    column.setNode(&other);
    column.allowReconnect();
    EXPECT_EQ(reconnect(column).infos, QStringList("Reconnected to column 'a' for 'Key'"));
    EXPECT_EQ(column.toColumnId(), ColumnId(3, 2));
}

TEST(ParameterColumns, FollowRenamesQuietly)
{
    FakeSource old(grid({"a|b"}));
    FakeSource other(grid({"a|z"}), 2);
    Parameter column(Parameter::SingleColumn, "Key", "label", &old);
    column.setValue(QVariant::fromValue(a));
    reconnect(column);
    old.dataset().setHeaderValue(ColumnIndex(0), "z");
    column.allowReconnect();
    const Messages quiet = reconnect(column);
    EXPECT_EQ(quiet.infos + quiet.warnings, QStringList());
    EXPECT_EQ(column.summary(), "z");

    column.setNode(&other);
    column.allowReconnect();
    EXPECT_EQ(reconnect(column).infos, QStringList("Reconnected to column 'z' for 'Key'"));
    EXPECT_EQ(column.toColumnId(), newB);
}

TEST(ParameterColumns, StayWithTheirIdThoughAnotherColumnHasTheName)
{
    FakeSource source(grid({"a|b"}));
    Parameter column(Parameter::SingleColumn, "Key", "label", &source);
    column.setValue(QVariant::fromValue(a));
    reconnect(column);
    source.dataset().setHeader({"x", "a"});
    column.allowReconnect();
    reconnect(column);
    EXPECT_EQ(column.toColumnId(), a);
}

TEST(ParameterColumns, WarnOnceOfAColumnThatIsMissing)
{
    FakeSource old(grid({"a|b"}));
    FakeSource other(grid({"b|b"}), 2);
    Parameter columns(Parameter::MultipleColumns, "Columns", "label", &old);
    columns.setValue(QVariant::fromValue(QList<ColumnId>{a, b}));
    reconnect(columns);
    columns.setNode(&other);
    columns.allowReconnect();
    const Messages first = reconnect(columns);
    EXPECT_EQ(first.warnings, QStringList("Cannot reconnect to column 'a' for 'Columns'"));
    EXPECT_EQ(first.infos, QStringList("Reconnected to column 'b' for 'Columns'"));
    EXPECT_EQ(columns.value(), QVariant::fromValue(QList<ColumnId>{a, newA}));

    EXPECT_EQ(reconnect(columns).warnings, QStringList());
    columns.setNode(&old);
    EXPECT_EQ(columns.toColumnNumbers(true), QList<ColumnNumber>{ColumnNumber(1)});
}

TEST(ParameterColumns, AreNotSearchedWithoutLeaveNameOrInput)
{
    FakeSource old(grid({"a|b"}));
    FakeSource other(grid({"a|b"}), 2);
    Parameter seen(Parameter::SingleColumn, "Key", "label", &old);
    seen.setValue(QVariant::fromValue(a));
    reconnect(seen);
    Parameter neverSeen(seen);
    neverSeen.setValue(QVariant::fromValue(ColumnId(1, 9)));

    seen.setNode(&other);
    EXPECT_EQ(reconnect(seen).infos, QStringList());
    neverSeen.setNode(&other);
    neverSeen.allowReconnect();
    const Messages nothing = reconnect(neverSeen);
    EXPECT_EQ(nothing.infos + nothing.warnings, QStringList());

    // Without an input the leave is kept for the next connection.
    Parameter cut(Parameter::SingleColumn, "Key", "label", &old);
    cut.setValue(QVariant::fromValue(a));
    reconnect(cut);
    cut.clearNode();
    cut.allowReconnect();
    reconnect(cut);
    cut.setNode(&other);
    EXPECT_EQ(reconnect(cut).infos.size(), 1);
}

TEST(ParameterColumns, OfAScriptTakeNoPart)
{
    FakeSource source(grid({"a|b"}));
    Parameter script(Parameter::Script, "Key", "label", &source);
    script.setValue("return $(a)");
    script.allowReconnect();
    EXPECT_TRUE(script.dependsOnColumns());
    EXPECT_EQ(reconnect(script).infos, QStringList());
    script.remapColumnIds({{a, b}});
    EXPECT_EQ(script.toText(), "return $(a)");
}

TEST(ParameterColumns, AreSavedThoughTheTableUpstreamCanNotBeReadAnyMore)
{
    for (const ReferenceCase &c : references) {
        SCOPED_TRACE(c.what);
        FakeSource source(grid({"x|y", "1|2"}));
        Parameter parameter(c.kind, "Columns", "Columns", &source);
        parameter.setValue(c.value(a, b));
        const QString stored = parameter.toDocumentText();
        source.dataset() = Dataset();
        EXPECT_EQ(parameter.toDocumentText(), stored) << "no run is needed to remember it";
        QStringList messages;
        parameter.reconnectColumns(messages, messages);
        EXPECT_EQ(parameter.toDocumentText(), stored) << "a run without the table forgets nothing";
    }
}

TEST(ParameterColumns, AllOfATableThatIsNotThereYetAreChosenWhenItIs)
{
    FakeSource source(grid({"x|y", "1|2"}));
    const Dataset table = source.dataset();
    source.dataset() = Dataset();
    source.setReady(false);
    Parameter parameter(Parameter::RemoveColumns, "Columns", "Columns", &source);
    parameter.selectAllColumns();
    parameter.resolveDeferred();
    EXPECT_TRUE(parameter.toColumnNumbers(true).isEmpty());
    source.dataset() = table;
    source.setReady(true);
    parameter.resolveDeferred();
    EXPECT_EQ(parameter.toColumnNumbers(true).size(), 2);

    parameter.setValue(QVariant::fromValue(QList<ColumnId>{b}));
    parameter.resolveDeferred();
    EXPECT_EQ(parameter.toColumnNumbers(true), QList<ColumnNumber>{ColumnNumber(2)}) << "only once";
}
