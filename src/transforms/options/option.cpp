#include "transforms/options/option.h"

#include "transforms/options/optionvalues.h"

#include <algorithm>

Option::Option(
    Parameter::Kind kind, const QString &key, const QString &label, const QVariant &value, const QStringList &choices)
    : m_parameter(kind, key, label, value, choices)
{
}

Option Option::column(const QString &key, const QString &label)
{
    return Option(Parameter::SingleColumn, key, label);
}

Option Option::columns(const QString &key, const QString &label)
{
    return Option(Parameter::MultipleColumns, key, label);
}

Option Option::sortColumns(const QString &key, const QString &label)
{
    return Option(Parameter::SortColumns, key, label);
}

Option Option::pivotColumns(const QString &key, const QString &label)
{
    return Option(Parameter::PivotColumns, key, label);
}

Option Option::filter(const QString &key, const QString &label)
{
    return Option(Parameter::FilterColumns, key, label);
}

Option Option::ifBranches(const QString &key, const QString &label)
{
    return Option(Parameter::If, key, label);
}

Option Option::reorderColumns(const QString &key, const QString &label)
{
    return Option(Parameter::ReorderColumns, key, label);
}

Option Option::removeColumns(const QString &key, const QString &label)
{
    return Option(Parameter::RemoveColumns, key, label);
}

Option Option::renameColumns(const QString &key, const QString &label)
{
    return Option(Parameter::RenameColumns, key, label);
}

Option Option::splitRows(const QString &key, const QString &label)
{
    return Option(Parameter::SplitRows, key, label);
}

Option Option::uniqueColumns(const QString &key, const QString &label)
{
    return Option(Parameter::UniqueColumns, key, label);
}

Option Option::verifyRules(const QString &key, const QString &label)
{
    return Option(Parameter::VerifyRules, key, label);
}

Option Option::script(const QString &key, const QString &label, const QString &text)
{
    return Option(Parameter::Script, key, label, text);
}

Option Option::flag(const QString &key, const QString &label, bool on)
{
    return Option(Parameter::Bool, key, label, on);
}

Option Option::selection(const QString &key, const QString &label, const QStringList &choices, int chosen)
{
    return Option(Parameter::Selection, key, label, choices.value(chosen), choices);
}

Option Option::text(const QString &key, const QString &label, const QString &text)
{
    return Option(Parameter::Text, key, label, text);
}

Option Option::longText(const QString &key, const QString &label, const QString &text)
{
    return Option(Parameter::LongText, key, label, text);
}

Option Option::integer(const QString &key, const QString &label, int value)
{
    return Option(Parameter::Int, key, label, value);
}

Option Option::real(const QString &key, const QString &label, double value)
{
    return Option(Parameter::Real, key, label, value);
}

Option Option::character(const QString &key, const QString &label, QChar character)
{
    return Option(Parameter::Char, key, label, character);
}

Option Option::date(const QString &key, const QString &label, const QDate &date)
{
    return Option(Parameter::Date, key, label, date);
}

Option Option::locale(const QString &key, const QString &label)
{
    return Option(Parameter::Locale, key, label);
}

Option Option::replaceTerms(const QString &key, const QString &label)
{
    return Option(Parameter::ReplaceTerms, key, label, QVariant::fromValue(QList<ReplaceTerm>{ReplaceTerm()}));
}

Option Option::caption(const QString &key, const QString &label)
{
    return Option(Parameter::Label, key, label);
}

Option &Option::tip(const QString &toolTip)
{
    m_parameter.setToolTip(toolTip);
    return *this;
}

Option &Option::ofInput(int input)
{
    m_input = input;
    return *this;
}

Option &Option::notRequired()
{
    m_parameter.setTextRequired(false);
    m_parameter.setColumnRequired(false);
    return *this;
}

Option &Option::noneText(const QString &text)
{
    m_parameter.setNoneText(text);
    return *this;
}

Option &Option::nonZero()
{
    m_parameter.setNonZeroRequired(true);
    return *this;
}

Option &Option::limits(int least, int most)
{
    m_parameter.setMinInt(least);
    m_parameter.setMaxInt(most);
    return *this;
}

Option &Option::limits(double least, double most)
{
    m_parameter.setMinReal(least);
    m_parameter.setMaxReal(most);
    return *this;
}

Option &Option::suffix(const QString &text)
{
    m_parameter.setSuffix(text);
    return *this;
}

Option &Option::leastText(const QString &text)
{
    m_parameter.setMinText(text);
    return *this;
}

Option &Option::firstChoiceIsUnset()
{
    m_parameter.setFirstChoiceIsUnset(true);
    return *this;
}

Option &Option::hideSortOrder()
{
    m_parameter.setHideSortOrder(true);
    return *this;
}

Option &Option::highlightChecked()
{
    m_parameter.setHighlightChecked(true);
    return *this;
}

Option &Option::preselect(bool on)
{
    m_preselect = on ? Always : Never;
    return *this;
}

Option &Option::selectAll()
{
    m_selectAll = true;
    return *this;
}

Option &Option::activeWhen(const QString &key, const QStringList &choices)
{
    return activeWhen([key, choices](const OptionValues &values) { return choices.contains(values.choiceText(key)); });
}

Option &Option::activeWhenFlag(const QString &key, bool on)
{
    return activeWhen([key, on](const OptionValues &values) { return values.flag(key) == on; });
}

Option &Option::activeWhen(Condition condition)
{
    m_conditions.push_back(std::move(condition));
    return *this;
}

bool Option::isActive(const OptionValues &values) const
{
    return std::all_of(
        m_conditions.cbegin(), m_conditions.cend(), [&values](const Condition &holds) { return holds(values); });
}

Option &Option::check(Check check, Condition applies)
{
    m_check = std::move(check);
    m_checkApplies = std::move(applies);
    return *this;
}

QString Option::fault(const OptionValues &values) const
{
    const bool applies = m_check && isActive(values) && (!m_checkApplies || m_checkApplies(values));
    return applies ? m_check(values.text(key())) : QString();
}

bool Option::offersUserDefault() const
{
    return !m_parameter.dependsOnColumns() && kind() != Parameter::Label;
}

Parameter *Option::create(DataSource *node, bool isMain) const
{
    Parameter *parameter = m_parameter.clone();
    if (!parameter->dependsOnColumns()) {
        return parameter;
    }
    const bool isRecord = !parameter->value().isValid();
    parameter->setNode(node, isRecord);
    if (m_selectAll) {
        parameter->selectAllColumns();
    } else if (m_preselect == Always || (m_preselect == ByPlace && isMain)) {
        parameter->preselectSingleColumn();
    }
    return parameter;
}

const Option *OptionTable::find(const QString &key) const
{
    const auto it = std::find_if(begin(), end(), [&key](const Option &option) { return option.key() == key; });
    return it == end() ? nullptr : &*it;
}

bool OptionTable::hasConditions() const
{
    return std::any_of(begin(), end(), [](const Option &option) { return option.isConditional(); });
}

const Option *OptionTable::mainColumnOption() const
{
    const auto it = std::find_if(begin(), end(), [](const Option &option) {
        return option.kind() == Parameter::SingleColumn || option.kind() == Parameter::MultipleColumns;
    });
    return it == end() ? nullptr : &*it;
}
