#include "transforms/catalogue.h"

#include "support/fakesource.h"
#include "support/grid.h"
#include "support/scopedsettings.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QSet>
#include <QUrl>
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

// What every kind of transform has in common.

namespace {

constexpr int currentVersion = 86;

/// The inputs of one transform, all with the same table.
class Inputs
{
public:
    Inputs(const Dataset &dataset, int count)
    {
        for (int i = 0; i < count; ++i) {
            m_owned.push_back(std::make_unique<FakeSource>(dataset, i + 1));
            m_owned.back()->setPosition(QPointF(0, 100 * i));
            m_sources.append(m_owned.back().get());
        }
    }
    const QList<DataSource *> &sources() const { return m_sources; }

private:
    std::vector<std::unique_ptr<FakeSource>> m_owned;
    QList<DataSource *> m_sources;
};

Dataset sample()
{
    return grid({"Id|Name|Date|Amount", "1|Ann|1/2/2024|10.5", "2|bob|3/2/2024|7", "2||x|", "10|Zoë|29/2/2024|-3"});
}

template<class Check>
void forEachKind(Check check)
{
    const ScopedSettings settings;
    for (const CatalogueRow &row : Catalogue::rows()) {
        if (row.create) {
            SCOPED_TRACE(row.typeName);
            const std::unique_ptr<Transform> transform(row.create());
            check(row, *transform);
        }
    }
}

int inputCount(const CatalogueRow &row)
{
    return row.maxInputs == 1 ? 1 : 2;
}

QStringList storedTexts(const Transform &transform)
{
    QStringList texts;
    for (const Parameter *parameter : transform.parameters()) {
        texts.append(parameter->name() + "=" + parameter->toDocumentText());
    }
    return texts;
}

/// Makes the options anew as a document's reader does.
void rereadOptions(Transform &transform, const QList<DataSource *> &sources)
{
    QHash<QString, QString> stored;
    for (const Parameter *parameter : transform.parameters()) {
        stored.insert(parameter->name(), QUrl::fromPercentEncoding(parameter->toDocumentText().toLatin1()));
    }
    transform.createParameters(sources, false);
    for (Parameter *parameter : transform.parameters()) {
        parameter->setDeferredText(stored.value(parameter->name()), currentVersion);
        parameter->resolveDeferred();
    }
}

bool isFraction(qreal value)
{
    return value >= 0.0 && value <= 1.0;
}

bool isLowerCaseWord(const QString &word)
{
    return !word.isEmpty() && word == word.toLower() && !word.contains(' ');
}

} // namespace

TEST(Catalogue, HoldsEveryKindOnce)
{
    QSet<int> ids;
    QSet<QString> names;
    for (const CatalogueRow &row : Catalogue::rows()) {
        SCOPED_TRACE(row.typeName);
        ids.insert(row.id);
        names.insert(row.typeName);
        EXPECT_EQ(Catalogue::find(row.typeName), &row);
        EXPECT_GE(row.category, int(Transform::Merge));
        EXPECT_LE(row.category, int(Transform::Other));
        EXPECT_LE(row.minInputs, row.maxInputs);
    }
    EXPECT_EQ(Catalogue::rows().size(), 74u);
    EXPECT_EQ(ids.size(), 74);
    EXPECT_EQ(names.size(), 74);
    for (int unused : {45, 48, 70}) {
        EXPECT_FALSE(ids.contains(unused));
    }
    EXPECT_EQ(Catalogue::create("Trim"), nullptr);
    EXPECT_EQ(Catalogue::find("trim"), nullptr);
}

TEST(Catalogue, GivesEachClassItsIdentity)
{
    forEachKind([](const CatalogueRow &row, Transform &transform) {
        EXPECT_EQ(transform.typeName(), row.typeName);
        EXPECT_EQ(transform.displayName(), row.displayName);
        EXPECT_EQ(transform.typeId(), row.id);
        EXPECT_EQ(transform.maxInputs(), row.maxInputs);
        EXPECT_TRUE(transform.description().endsWith('.')) << transform.description().toStdString();
        const QSet<QString> words = transform.keywords();
        EXPECT_TRUE(words.contains(transform.displayName().toLower().section(' ', 0, 0)));
        EXPECT_TRUE(std::all_of(words.cbegin(), words.cend(), isLowerCaseWord));
    });
}

TEST(Catalogue, OptionsHaveKeysAndLabels)
{
    forEachKind([](const CatalogueRow &row, Transform &transform) {
        const Inputs inputs(sample(), inputCount(row));
        transform.createParameters(inputs.sources(), true);
        QSet<QString> keys;
        for (const Parameter *parameter : transform.parameters()) {
            SCOPED_TRACE(parameter->name().toStdString());
            EXPECT_FALSE(parameter->name().contains(' '));
            EXPECT_FALSE(parameter->label().isEmpty());
            EXPECT_FALSE(keys.contains(parameter->name()));
            keys.insert(parameter->name());
            const bool isOwn = !parameter->dependsOnColumns() && parameter->kind() != Parameter::Label;
            EXPECT_EQ(parameter->hasUserDefault(), isOwn);
            EXPECT_EQ(parameter->choices().isEmpty(), parameter->kind() != Parameter::Selection);
            if (parameter->kind() == Parameter::Int) {
                EXPECT_GE(parameter->toInt(), parameter->minInt());
                EXPECT_LE(parameter->toInt(), parameter->maxInt());
            }
        }
        for (const auto &state : transform.parameterStates()) {
            EXPECT_TRUE(keys.contains(state.first)) << state.first.toStdString();
        }
    });
}

TEST(Catalogue, DefaultsSurviveTheStoredForm)
{
    forEachKind([](const CatalogueRow &row, Transform &transform) {
        const Inputs inputs(sample(), inputCount(row));
        transform.createParameters(inputs.sources(), true);
        const QStringList before = storedTexts(transform);
        rereadOptions(transform, inputs.sources());
        EXPECT_EQ(storedTexts(transform), before);
    });
}

TEST(Catalogue, ClonesAreDeep)
{
    forEachKind([](const CatalogueRow &row, Transform &transform) {
        const Inputs inputs(sample(), inputCount(row));
        transform.createParameters(inputs.sources(), true);
        const QStringList before = storedTexts(transform);
        const std::unique_ptr<Transform> clone(transform.clone());
        ASSERT_NE(clone, nullptr);
        EXPECT_EQ(storedTexts(*clone), before);
        for (Parameter *parameter : clone->parameters()) {
            EXPECT_EQ(parameter->node(), transform.parameter(parameter->name())->node());
            parameter->setValue(QVariant());
        }
        EXPECT_EQ(storedTexts(transform), before);
    });
}

TEST(Catalogue, NothingComesOfAWrongNumberOfInputs)
{
    forEachKind([](const CatalogueRow &row, Transform &transform) {
        const Inputs none(sample(), 0);
        transform.createParameters(none.sources(), true);
        EXPECT_EQ(transform.run(none.sources(), nullptr).columnCount(), 0);
        // Kinds with two inputs may show what they can of another number.
        const Inputs tooMany(sample(), 3);
        transform.createParameters(tooMany.sources(), true);
        const Dataset result = transform.run(tooMany.sources(), nullptr);
        EXPECT_TRUE(row.maxInputs > 1 || result.columnCount() == 0);
    });
}

TEST(Catalogue, EmptyTablesRunWithoutProgress)
{
    forEachKind([](const CatalogueRow &row, Transform &transform) {
        QVector<qreal> progress;
        QObject::connect(&transform, &Transform::processed, [&progress](qreal fraction) { progress.append(fraction); });
        for (const Dataset &empty : {Dataset(), sample().withoutRows()}) {
            const Inputs inputs(empty, inputCount(row));
            transform.createParameters(inputs.sources(), true);
            const Dataset result = transform.run(inputs.sources(), nullptr);
            transform.checkOptions();
            EXPECT_GE(result.columnCount(), 0);
        }
        EXPECT_TRUE(!row.canCompare || progress.isEmpty());
        EXPECT_TRUE(std::all_of(progress.cbegin(), progress.cend(), isFraction));
    });
}

TEST(Catalogue, RunsTellTheirResultAndKeepColumnsApart)
{
    forEachKind([](const CatalogueRow &row, Transform &transform) {
        const Inputs inputs(sample(), inputCount(row));
        transform.createParameters(inputs.sources(), true);
        QVector<qreal> progress;
        QObject::connect(&transform, &Transform::processed, [&progress](qreal fraction) { progress.append(fraction); });
        const Dataset result = transform.run(inputs.sources(), nullptr);
        EXPECT_FALSE(transform.resultText().isEmpty());
        EXPECT_TRUE(std::all_of(progress.cbegin(), progress.cend(), isFraction));
        QSet<ColumnId> ids;
        for (ColumnId id : result.columnIds()) {
            EXPECT_TRUE(id.isNull() || !ids.contains(id));
            ids.insert(id);
        }
        EXPECT_EQ(rows(inputs.sources().first()->datasetConst()), rows(sample()));
    });
}

TEST(Catalogue, NamesOfOptionsForTheDialogsExist)
{
    forEachKind([](const CatalogueRow &row, Transform &transform) {
        const Inputs inputs(sample(), inputCount(row));
        transform.createParameters(inputs.sources(), true);
        for (const QString &name : {transform.firstKeyParameterName(), transform.secondKeyParameterName(),
                 transform.caseSensitiveParameterName(), transform.dedupeColumnsParameterName(),
                 transform.matchTypeParameterName(), transform.ignoreSpacesParameterName(),
                 transform.ignorePunctuationParameterName(), transform.fuzzinessParameterName(),
                 transform.dedupeModeParameterName()}) {
            EXPECT_TRUE(name.isEmpty() || transform.parameter(name)) << name.toStdString();
        }
        EXPECT_EQ(transform.hasKeyColumns(), !transform.firstKeyParameterName().isEmpty());
        EXPECT_EQ(transform.hasDuplicateColumns(), !transform.dedupeColumnsParameterName().isEmpty());
    });
}
