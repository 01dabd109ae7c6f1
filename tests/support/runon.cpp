#include "support/runon.h"

#include "transforms/catalogue.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

namespace {

/// By a name or a number from 1; sets `descending` for one with a minus.
ColumnId columnOf(const Parameter &parameter, const QVariant &value, bool &descending)
{
    const Dataset empty;
    const Dataset &dataset = parameter.node() ? parameter.node()->datasetConst() : empty;
    QString name = value.toString();
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    ColumnIndex column = dataset.columnIndexOfName(name);
    descending = !column.isValid() && name.startsWith(QLatin1Char('-'));
    if (descending && !isNumber) {
        column = dataset.columnIndexOfName(name.mid(1));
    } else if (!column.isValid() && isNumber && qAbs(number) <= dataset.columnCount()) {
        column = ColumnIndex(qAbs(number) - 1);
    }
    EXPECT_TRUE(column.isValid()) << "no column " << name.toStdString();
    return column.isValid() ? dataset.columnId(column) : ColumnId();
}

QVariantList listOf(const QVariant &value)
{
    return value.canConvert<QVariantList>() && value.userType() != QMetaType::QString ? value.toList()
                                                                                      : QVariantList{value};
}

QVariant columnList(const Parameter &parameter, const QVariant &value)
{
    QList<ColumnId> ids;
    QList<SortColumn> entries;
    for (const QVariant &entry : listOf(value)) {
        bool descending = false;
        ids.append(columnOf(parameter, entry, descending));
        entries.append({ids.constLast(), !descending});
    }
    const bool isSort = parameter.kind() == Parameter::SortColumns || parameter.kind() == Parameter::PivotColumns;
    return isSort ? QVariant::fromValue(entries) : QVariant::fromValue(ids);
}

QVariant valueFor(const Parameter &parameter, const QVariant &value)
{
    bool descending = false;
    switch (parameter.kind()) {
    case Parameter::SingleColumn:
        return QVariant::fromValue(columnOf(parameter, value, descending));
    case Parameter::MultipleColumns:
    case Parameter::ReorderColumns:
    case Parameter::RemoveColumns:
    case Parameter::SortColumns:
    case Parameter::PivotColumns:
        return columnList(parameter, value);
    case Parameter::Char:
        return value.userType() == QMetaType::QString ? QVariant(value.toString().at(0)) : value;
    case Parameter::Selection:
        EXPECT_TRUE(parameter.choices().contains(value.toString())) << "no choice " << value.toString().toStdString();
        return value;
    default:
        return value;
    }
}

} // namespace

void setOption(Transform &transform, const QString &key, const QVariant &value)
{
    Parameter *parameter = transform.parameter(key);
    if (!parameter) {
        ADD_FAILURE() << "no option " << key.toStdString();
        return;
    }
    parameter->setValue(valueFor(*parameter, value));
}

TransformRun runTransform(const QString &typeName, const OptionSettings &options, const QVector<Dataset> &inputs)
{
    TransformRun run;
    run.transform.reset(Catalogue::create(typeName));
    if (!run.transform) {
        ADD_FAILURE() << "no transform " << typeName.toStdString();
        return run;
    }
    QList<DataSource *> sources;
    for (const Dataset &input : inputs) {
        run.sources.push_back(std::make_unique<FakeSource>(input, sources.size() + 1));
        run.sources.back()->setPosition(QPointF(0, 100 * sources.size()));
        sources.append(run.sources.back().get());
    }
    run.transform->createParameters(sources, true);
    for (const auto &option : options) {
        setOption(*run.transform, option.first, option.second);
    }
    QObject::connect(
        run.transform.get(), &Transform::processed, [&run](qreal fraction) { run.progress.append(fraction); });
    run.result = run.transform->run(sources, &run.hasIssues);
    run.transform->disconnect();
    run.transform->checkOptions();
    return run;
}
