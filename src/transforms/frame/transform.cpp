#include "transforms/frame/transform.h"

#include "data/datasource.h"
#include "data/regexwork.h"
#include "settings/settings.h"
#include "transforms/catalogue.h"
#include "transforms/frame/messages.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <new>
#include <stdexcept>

static const CatalogueRow &rowOf(const char *typeName)
{
    static const CatalogueRow unknown{-1, "", "", Transform::All, 1, 1, false, false, false, nullptr};
    const CatalogueRow *row = Catalogue::find(QString::fromLatin1(typeName));
    Q_ASSERT_X(row, "Transform", typeName);
    return row ? *row : unknown;
}

Transform::Transform(const char *typeName, const char *description, const char *keywords)
    : m_row(rowOf(typeName))
    , m_description(QString::fromUtf8(description))
    , m_ownKeywords(QString::fromLatin1(keywords).split(QLatin1Char(' '), Qt::SkipEmptyParts))
{
}

Transform::~Transform()
{
    qDeleteAll(m_parameters);
}

// Identity

int Transform::typeId() const
{
    return m_row.id;
}

QString Transform::typeName() const
{
    return QString::fromLatin1(m_row.typeName);
}

QString Transform::displayName() const
{
    return QString::fromLatin1(m_row.displayName);
}

int Transform::category() const
{
    return m_row.category;
}

bool Transform::isAdvanced() const
{
    return m_row.advanced;
}

bool Transform::canCompareChanges() const
{
    return m_row.canCompare;
}

bool Transform::hasDrilldown() const
{
    return m_row.drilldown;
}

bool Transform::isVerify() const
{
    return typeName() == QLatin1String("Verify");
}

int Transform::minInputs() const
{
    return m_row.minInputs;
}

int Transform::maxInputs() const
{
    return m_row.maxInputs;
}

QString Transform::categoryName(int category, bool withMnemonic)
{
    static const QStringList names{QStringLiteral("&All"), QStringLiteral("&Merge"), QStringLiteral("&Column"),
        QStringLiteral("&Row"), QStringLiteral("&Format"), QStringLiteral("Anal&ysis"), QStringLiteral("&Other")};
    const QString name = names.value(category);
    return withMnemonic ? name : QString(name).remove(QLatin1Char('&'));
}

static QStringList categoryKeywords(int category)
{
    switch (category) {
    case Transform::Merge:
        return {QStringLiteral("blends"), QStringLiteral("merges")};
    case Transform::Column:
        return {QStringLiteral("columns")};
    case Transform::Row:
        return {QStringLiteral("rows")};
    case Transform::Format:
        return {QStringLiteral("formatting"), QStringLiteral("formats")};
    case Transform::Analysis:
        return {QStringLiteral("analyse"), QStringLiteral("analyze"), QStringLiteral("analysis")};
    default:
        return {};
    }
}

QSet<QString> Transform::keywords() const
{
    const QStringList words = displayName().toLower().split(QLatin1Char(' '), Qt::SkipEmptyParts)
                              + categoryKeywords(category()) + m_ownKeywords;
    return QSet<QString>(words.cbegin(), words.cend());
}

QString Transform::imageHtml() const
{
    return imageName().isEmpty() ? QString() : QStringLiteral("<img src=':/images/%1'>").arg(imageName());
}

static QString inputsText(int least, int most)
{
    if (least == 1 && most == 1) {
        return QStringLiteral("1 Input/Transform item");
    }
    if (least == most) {
        return QStringLiteral("%1 Input/Transform items").arg(least);
    }
    if (most == Transform::unlimitedInputs) {
        return QStringLiteral("%1 or more Input/Transform items").arg(least);
    }
    return QStringLiteral("%1 to %2 Input/Transform items").arg(least).arg(most);
}

QString Transform::inputsHelpText() const
{
    return QStringLiteral("Select %1 in the Center pane\nand then click this button to perform this transform.")
        .arg(inputsText(minInputs(), maxInputs()));
}

// Options

OptionTable Transform::options() const
{
    return {};
}

const OptionTable &Transform::table() const
{
    if (!m_table) {
        m_table = std::make_unique<OptionTable>(options());
    }
    return *m_table;
}

void Transform::createParameters(const QList<DataSource *> &inputs, bool useDefaults)
{
    setParameters({});
    const Option *main = maxInputs() == 1 ? table().mainColumnOption() : nullptr;
    for (const Option &option : table()) {
        addParameter(option.create(inputs.value(option.input()), &option == main));
    }
    adjustNewParameters(inputs, useDefaults);
    for (const Option &option : table()) {
        if (option.offersUserDefault()) {
            applyUserDefault(useDefaults, parameter(option.key()));
        }
    }
}

void Transform::adjustNewParameters(const QList<DataSource *> &, bool) {}

Parameter *Transform::parameter(const QString &name) const
{
    for (Parameter *parameter : m_parameters) {
        if (parameter->name() == name) {
            return parameter;
        }
    }
    return nullptr;
}

Parameter *Transform::parameterForNode(const DataSource *node) const
{
    return parametersForNode(node).value(0);
}

QList<Parameter *> Transform::parametersForNode(const DataSource *node) const
{
    QList<Parameter *> bound;
    for (Parameter *parameter : m_parameters) {
        if (parameter->node() == node) {
            bound.append(parameter);
        }
    }
    return bound;
}

void Transform::addParameter(Parameter *parameter)
{
    m_parameters.append(parameter);
}

void Transform::setParameters(const QList<Parameter *> &parameters)
{
    for (Parameter *old : m_parameters) {
        if (!parameters.contains(old)) {
            delete old;
        }
    }
    m_parameters = parameters;
}

void Transform::setInputs(const QList<DataSource *> &nodes)
{
    for (Parameter *parameter : m_parameters) {
        if (parameter->dependsOnColumns()) {
            const Option *option = table().find(parameter->name());
            parameter->setNode(nodes.value(option && maxInputs() > 1 ? option->input() : 0));
        }
    }
}

void Transform::applyUserDefault(bool useDefaults, Parameter *parameter) const
{
    parameter->setHasUserDefault(true);
    const Settings &settings = Settings::current();
    if (useDefaults && settings.hasTransformDefault(typeName(), parameter->name())) {
        parameter->setUserDefault(settings.transformDefault(typeName(), parameter->name()));
    }
}

void Transform::saveUserDefault(const Parameter &parameter) const
{
    Settings::current().setTransformDefault(typeName(), parameter.name(), parameter.value());
}

bool Transform::hasConditionalParameters() const
{
    return table().hasConditions();
}

QList<QPair<QString, bool>> Transform::parameterStates() const
{
    QList<QPair<QString, bool>> states;
    if (!hasAllOptions()) {
        return states;
    }
    const OptionValues values(m_parameters);
    for (const Option &option : table()) {
        if (option.isConditional()) {
            states.append({option.key(), option.isActive(values)});
        }
    }
    return states;
}

QString Transform::optionFault(const QString &name) const
{
    const Option *option = table().find(name);
    return option && hasAllOptions() ? option->fault(OptionValues(m_parameters)) : QString();
}

bool Transform::hasAllOptions() const
{
    for (const Option &option : table()) {
        if (!parameter(option.key())) {
            return false;
        }
    }
    return true;
}

void Transform::checkOptions()
{
    const QList<QPair<QString, bool>> states = parameterStates();
    QStringList unset;
    for (const Parameter *parameter : m_parameters) {
        if (states.contains({parameter->name(), false})) {
            continue;
        }
        warningList() += parameter->lostColumnWarnings();
        if (parameter->isUnset()) {
            unset.append(QStringLiteral("'%1'").arg(parameter->label()));
        }
    }
    if (!unset.isEmpty()) {
        const QString word = Messages::word(unset.size(), "option", "options");
        addWarning(QStringLiteral("%1 %2 not set (%3)")
                       .arg(Messages::count(unset.size()), word, unset.join(QLatin1Char(','))));
    }
}

Transform *Transform::clone() const
{
    Transform *copy = Catalogue::create(typeName());
    if (copy) {
        for (const Parameter *parameter : m_parameters) {
            copy->addParameter(parameter->clone());
        }
    }
    return copy;
}

// The operation

// What is too much for one item is no reason to lose what the others do.
void Transform::refuseResult()
{
    addWarning(QStringLiteral("The result is larger than a table or a cell can hold"));
    setResultText(QStringLiteral("Too much text"));
}

Dataset Transform::run(const QList<DataSource *> &inputs, bool *hasIssues)
{
    m_hasIssues = false;
    Inputs tables;
    for (const DataSource *source : inputs) {
        tables.append(&source->datasetConst());
    }
    if (tables.size() < minInputs() || tables.size() > maxInputs()) {
        return computeIncomplete(tables);
    }
    if (!hasAllOptions()) {
        setResultText(Messages::noChanges());
        return Dataset();
    }
    const RegexWork regexWork;
    Dataset result;
    try {
        result = compute(OptionValues(m_parameters), tables);
    } catch (const std::bad_alloc &) {
        refuseResult();
    } catch (const std::length_error &) {
        refuseResult();
    }
    warningList() += regexWork.warnings();
    if (hasIssues && m_hasIssues) {
        *hasIssues = true;
    }
    return result;
}

Dataset Transform::compute(const OptionValues &, const Inputs &)
{
    return Dataset();
}

Dataset Transform::computeIncomplete(const Inputs &)
{
    return Dataset();
}

bool Transform::updateInputOrder(const QList<DataSource *> &)
{
    return false;
}
