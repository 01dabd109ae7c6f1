#pragma once

#include "transforms/options/parameter.h"

#include <functional>
#include <initializer_list>
#include <vector>

class OptionValues;

/// Declaration of one option of a kind of transform. A class lists its options once, in their order; the parameters,
/// their activity and their help are made from that list.
class Option
{
public:
    using Condition = std::function<bool(const OptionValues &)>;
    /// Why a text makes no sense, in a sentence; empty when it does.
    using Check = std::function<QString(const QString &text)>;

    // Options that name columns of an input
    static Option column(const QString &key, const QString &label);
    static Option columns(const QString &key, const QString &label);
    static Option columns(const QString &key) { return columns(key, key); }
    static Option sortColumns(const QString &key, const QString &label);
    static Option pivotColumns(const QString &key, const QString &label);
    static Option filter(const QString &key, const QString &label);
    static Option ifBranches(const QString &key, const QString &label);
    static Option reorderColumns(const QString &key, const QString &label);
    static Option removeColumns(const QString &key, const QString &label);
    static Option renameColumns(const QString &key, const QString &label);
    static Option splitRows(const QString &key, const QString &label);
    static Option uniqueColumns(const QString &key, const QString &label);
    static Option verifyRules(const QString &key, const QString &label);
    static Option script(const QString &key, const QString &label, const QString &text = QString());

    // Options of their own, which also offer a default of the user's
    static Option flag(const QString &key, const QString &label, bool on = false);
    /// The first choice is the default unless another index is given.
    static Option selection(const QString &key, const QString &label, const QStringList &choices, int chosen = 0);
    static Option text(const QString &key, const QString &label, const QString &text = QString());
    static Option longText(const QString &key, const QString &label, const QString &text = QString());
    static Option integer(const QString &key, const QString &label, int value = 0);
    static Option real(const QString &key, const QString &label, double value = 0.0);
    static Option character(const QString &key, const QString &label, QChar character);
    static Option date(const QString &key, const QString &label, const QDate &date);
    static Option locale(const QString &key, const QString &label);
    static Option replaceTerms(const QString &key, const QString &label);
    /// A line of words between options; it has no value.
    static Option caption(const QString &key, const QString &label);

    Option &tip(const QString &toolTip);
    /// Which input the columns are those of; 0, the top one, unless said.
    Option &ofInput(int input);
    /// An empty text or no column is fine.
    Option &notRequired();
    /// What a column option shows while none is chosen.
    Option &noneText(const QString &text);
    /// The integer 0 counts as not set.
    Option &nonZero();
    Option &limits(int least, int most);
    Option &limits(double least, double most);
    Option &suffix(const QString &text);
    /// What an integer's lower limit is shown as.
    Option &leastText(const QString &text);
    Option &firstChoiceIsUnset();
    Option &hideSortOrder();
    /// Draws attention while checked.
    Option &highlightChecked();
    /// A new item with one column upstream has it chosen. The first option for one or several columns of a kind with
    /// one input does so unless told not to.
    Option &preselect(bool on);
    /// A new item has all columns chosen.
    Option &selectAll();
    /// Applies only while the Selection `key` has one of `choices`. Several conditions must all hold.
    Option &activeWhen(const QString &key, const QStringList &choices);
    /// Applies only while the flag `key` is as given.
    Option &activeWhenFlag(const QString &key, bool on = true);
    Option &activeWhen(Condition condition);
    /// Lets editors mark a text that makes no sense, where `applies` holds; null for always. What a run does with such
    /// a text is for the kind itself.
    Option &check(Check check, Condition applies = nullptr);

    const QString &key() const { return m_parameter.name(); }
    Parameter::Kind kind() const { return m_parameter.kind(); }
    int input() const { return m_input; }
    bool isConditional() const { return !m_conditions.empty(); }
    bool isActive(const OptionValues &values) const;
    /// What check() says of the option's value; empty for one that doesn't apply or isn't checked.
    QString fault(const OptionValues &values) const;
    bool offersUserDefault() const;
    /// A parameter with this option's default, bound to `node` when it names columns; the caller owns it. `isMain` is
    /// true for the option that is preselected unless told not to.
    Parameter *create(DataSource *node, bool isMain) const;

private:
    Option(Parameter::Kind kind, const QString &key, const QString &label, const QVariant &value = QVariant(),
        const QStringList &choices = QStringList());

    enum Preselect { ByPlace, Always, Never };
    Parameter m_parameter;
    int m_input = 0;
    Preselect m_preselect = ByPlace;
    bool m_selectAll = false;
    std::vector<Condition> m_conditions;
    Check m_check;
    Condition m_checkApplies;
};

/// The options of one kind of transform, in their order.
class OptionTable
{
public:
    OptionTable() = default;
    OptionTable(std::initializer_list<Option> options)
        : m_options(options)
    {
    }
    void append(const Option &option) { m_options.push_back(option); }
    std::vector<Option>::const_iterator begin() const { return m_options.begin(); }
    std::vector<Option>::const_iterator end() const { return m_options.end(); }
    /// Null for an unknown key.
    const Option *find(const QString &key) const;
    bool hasConditions() const;
    /// The option that a one-column table fills by itself: the first for one or several columns, or null.
    const Option *mainColumnOption() const;

private:
    std::vector<Option> m_options;
};
