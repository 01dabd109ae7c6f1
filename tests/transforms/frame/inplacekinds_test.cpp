#include "support/grid.h"
#include "support/randomtext.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "support/scopedsettings.h"
#include "transforms/catalogue.h"
#include "transforms/options/parameter.h"
#include "transforms/options/records.h"

#include <QDate>
#include <QSet>
#include <gtest/gtest.h>

// What all kinds that change cells in place have in common, under random options on random tables.

namespace {

constexpr int columnCount = 5;
constexpr int runsPerKind = 60;

/// Kinds whose options ask for values that are read or written by the locale.
const QSet<QString> &kindsByLocale()
{
    static const QSet<QString> kinds{"Date_Format", "Impute", "Num_Base", "Num_Format", "Outliers", "Scale", "Units"};
    return kinds;
}

/// Kinds that may also take rows away.
bool keepsRows(const QString &kind)
{
    return kind != QLatin1String("Outliers");
}

QString randomCell(RandomText &random)
{
    switch (random.below(9)) {
    case 0:
        return QString();
    case 1:
        return QString::number(random.below(2000) - 1000);
    case 2:
        return QString::number(random.below(100000) / 8.0);
    case 3:
        return QDate(2000, 1, 1).addDays(random.below(9000)).toString(QStringLiteral("d/M/yyyy"));
    case 4:
        return QStringLiteral("007");
    case 5:
        return random.chance(50) ? QStringLiteral(" ") : QString(QChar(0xd83d)); // half a surrogate pair
    default:
        return random.text(random.chance(10) ? 60 : 9);
    }
}

Dataset randomTable(RandomText &random)
{
    Dataset dataset;
    dataset.setColumnCount(columnCount);
    const bool isMeasured = random.chance(50);
    for (int row = random.below(40); row >= 0; --row) {
        QStringList cells;
        for (int column = 0; column < columnCount; ++column) {
            cells.append(randomCell(random));
        }
        if (isMeasured) {
            cells.first() = QString::number(random.below(random.chance(10) ? 100000 : 20));
        }
        dataset.appendRow(cells);
    }
    if (random.chance(80)) {
        dataset.setHeader({"a", "b", "", "a", "e"});
    }
    return dataset;
}

QVariantList randomColumns(RandomText &random)
{
    QVariantList numbers;
    for (int number = 1; number <= columnCount; ++number) {
        if (random.chance(40)) {
            numbers.append(number);
        }
    }
    return numbers;
}

/// A value of the option's kind within its limits; an invalid one to leave the default.
QVariant randomValue(RandomText &random, const Parameter &parameter)
{
    switch (parameter.kind()) {
    case Parameter::MultipleColumns:
        return randomColumns(random);
    case Parameter::SingleColumn:
        return 1 + random.below(columnCount);
    case Parameter::Bool:
        return random.chance(50);
    case Parameter::Selection:
        return parameter.choices().at(random.below(parameter.choices().size()));
    case Parameter::Text:
    case Parameter::LongText:
        return random.text(4);
    case Parameter::Int:
        return qBound(parameter.minInt(), random.below(25) - 5, parameter.maxInt());
    case Parameter::Char:
        return QStringLiteral("x");
    case Parameter::ReplaceTerms:
        return QVariant::fromValue(QList<ReplaceTerm>{{random.below(2), random.text(1), random.text(3)}});
    default:
        return QVariant();
    }
}

OptionSettings randomOptions(RandomText &random, const Transform &transform)
{
    OptionSettings options;
    for (const Parameter *parameter : transform.parameters()) {
        const QVariant value = randomValue(random, *parameter);
        if (value.isValid()) {
            options.append({parameter->name(), value});
        }
    }
    return options;
}

QString described(const OptionSettings &options)
{
    QStringList texts;
    for (const auto &option : options) {
        texts.append(option.first + QLatin1Char('=')
                     + (option.second.type() == QVariant::List ? option.second.toStringList().join(QLatin1Char(','))
                                                               : option.second.toString()));
    }
    return texts.join(QStringLiteral("; "));
}

QSet<int> chosenColumns(const Transform &transform, const OptionSettings &options)
{
    QSet<int> chosen;
    for (const auto &option : options) {
        if (transform.parameter(option.first)->dependsOnColumns()) {
            const bool isList = option.second.type() == QVariant::List;
            for (const QVariant &number : isList ? option.second.toList() : QVariantList{option.second}) {
                chosen.insert(number.toInt() - 1);
            }
        }
    }
    return chosen;
}

void expectSameColumn(const Dataset &before, const Dataset &after, int column)
{
    EXPECT_TRUE(after.columnEquals(ColumnIndex(column), &before, ColumnIndex(column))) << "column " << column + 1;
}

/// Ids, header and size stay, and so does every column that wasn't chosen. A column of scores may come behind them.
void expectOthersKept(const Dataset &before, const TransformRun &run, const QSet<int> &chosen)
{
    const Dataset &input = run.sources.front()->datasetConst();
    const Parameter *scores = run.transform->parameter(QStringLiteral("Add_Scores"));
    const int added = run.result.columnCount() - before.columnCount();
    ASSERT_TRUE(added == 0 || (added == 1 && scores && scores->toBool())) << added;
    if (before.hasHeader() || added == 0) { // a named column gives the others their numbers as names
        EXPECT_EQ(run.result.header().mid(0, before.header().size()), before.header());
    }
    EXPECT_EQ(run.result.columnIds().mid(0, columnCount), input.columnIds());
    if (run.result.rowCount() != before.rowCount()) {
        EXPECT_FALSE(keepsRows(run.transform->typeName()));
        return;
    }
    for (int column = 0; column < before.columnCount(); ++column) {
        expectSameColumn(before, input, column); // nobody writes into the input
        if (!chosen.contains(column)) {
            expectSameColumn(before, run.result, column);
        }
    }
}

} // namespace

class InPlaceKinds : public testing::TestWithParam<const CatalogueRow *>
{
};

TEST_P(InPlaceKinds, ChangeOnlyWhatIsChosenAndRepeatTheirResult)
{
    const ScopedSettings settings;
    RandomText random(static_cast<quint32>(GetParam()->id) + 1);
    const QString kind = QString::fromLatin1(GetParam()->typeName);
    int changed = 0;
    for (int i = 0; i < runsPerKind && !HasFailure(); ++i) {
        const Dataset before = randomTable(random);
        const TransformRun asNew = runTransform(kind, {}, {before});
        const OptionSettings options = randomOptions(random, *asNew.transform);
        SCOPED_TRACE(described(options).toStdString());
        const TransformRun run = runTransform(kind, options, {before});
        expectOthersKept(before, run, chosenColumns(*run.transform, options));
        changed += rows(run.result) == rows(before) ? 0 : 1;
        const TransformRun again = runTransform(kind, options, {before});
        EXPECT_EQ(rows(again.result), rows(run.result));
        EXPECT_EQ(again.resultText(), run.resultText());
        if (!kindsByLocale().contains(kind)) {
            const ScopedLocale german(QStringLiteral("de_DE"));
            EXPECT_EQ(rows(runTransform(kind, options, {before}).result), rows(run.result));
        }
    }
    EXPECT_GT(changed, 0) << "no options that do anything";
}

namespace {

std::vector<const CatalogueRow *> inPlaceKinds()
{
    std::vector<const CatalogueRow *> kinds;
    for (const CatalogueRow &row : Catalogue::rows()) {
        if (row.canCompare) {
            kinds.push_back(&row);
        }
    }
    return kinds;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Catalogue, InPlaceKinds, testing::ValuesIn(inPlaceKinds()),
    [](const auto &kind) { return std::string(kind.param->typeName); });
