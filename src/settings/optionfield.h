#pragma once

#include "settings/optiondeclaration.h"
#include "settings/optionmember.h"

#include <functional>
#include <utility>
#include <vector>

/// Declaration of one option of an item, a member of the struct `Options`. A struct lists its options once, in the
/// order of a document's attributes; documents, saved defaults, comparison, summaries and panels walk that list.
template<class Options>
struct OptionField : OptionDeclaration
{
    using AnyMember = typename OptionMember<Options>::Any;
    using Condition = std::function<bool(const Options &)>;
    using Text = std::function<QString(const Options &)>;
    using Default = std::function<QVariant(const Options &)>;

    /// An option by its member, or by the way to the member of a member, and the name of its attribute.
    template<auto... path>
    static OptionField of(const QByteArray &documentKey)
    {
        OptionField field;
        field.member = OptionMember<Options>::template of<path...>();
        field.documentKey = documentKey;
        return field;
    }

    OptionField &&shown(const QString &itsLabel, const QString &itsTip = QString(), const QString &itsTab = QString())
    {
        label = itsLabel;
        toolTip = itsTip;
        tab = itsTab;
        return std::move(*this);
    }
    OptionField &&editedBy(OptionEditor kind)
    {
        editor = kind;
        return std::move(*this);
    }
    /// The texts of a choice; the stored number is the place of the text unless `numbers` gives others.
    OptionField &&chosenFrom(const QStringList &texts, const QList<int> &numbers = QList<int>())
    {
        editor = OptionEditor::Choice;
        choices = texts;
        choiceNumbers = numbers;
        return std::move(*this);
    }
    /// What a document may hold; other numbers count as unreadable.
    OptionField &&limited(int least, int most)
    {
        hasLimits = true;
        lowest = least;
        highest = most;
        return std::move(*this);
    }
    /// As limited() from 0, but a document's number outside says no more than "not 0" and means 1.
    OptionField &&limitedAsFlag(int most)
    {
        otherMeansOne = true;
        return limited(0, most);
    }
    /// The entries of the list belong to those of another list by position: empty ones count.
    OptionField &&byPosition()
    {
        keepsEmptyEntries = true;
        return std::move(*this);
    }
    /// What an absent attribute stands for; the value of a new item unless told.
    OptionField &&absentMeans(const QVariant &value)
    {
        return absentGives([value](const Options &) { return value; });
    }
    /// As before, by the options that were read so far.
    OptionField &&absentGives(Default value)
    {
        absentValue = std::move(value);
        return std::move(*this);
    }
    /// The name under which users save a default.
    OptionField &&savedAs(const char *key)
    {
        settingsKey = QLatin1String(key);
        return std::move(*this);
    }
    OptionField &&onlyWhen(Condition condition)
    {
        holds = std::move(condition);
        return std::move(*this);
    }
    /// The label in the summary, which goes by `place`, and the text there; that of the value unless told.
    OptionField &&summedUp(int place, const QString &itsLabel, Text text = Text())
    {
        summaryPlace = place;
        summaryLabel = itsLabel;
        summaryText = std::move(text);
        return std::move(*this);
    }

    bool applies(const Options &options) const { return !holds || holds(options); }
    QVariant value(const Options &options) const { return OptionMember<Options>::value(member, options); }
    /// A value of another type is converted; an empty text leaves a character as it is.
    void setValue(Options &options, const QVariant &value) const
    {
        OptionMember<Options>::setValue(member, options, value);
    }
    /// What stands in an item that was made from an element without this attribute.
    QVariant absent(const Options &options) const { return absentValue ? absentValue(options) : value(Options()); }
    /// "Yes" and "No", the text of a choice, or the value.
    QString textOf(const Options &options) const;

    AnyMember member;
    Default absentValue;
    Condition holds;
    Text summaryText;
};

template<class Options>
QString OptionField<Options>::textOf(const Options &options) const
{
    const QVariant present = value(options);
    if (present.type() == QVariant::Bool) {
        return present.toBool() ? QStringLiteral("Yes") : QStringLiteral("No");
    }
    if (editor != OptionEditor::Choice) {
        return present.toString();
    }
    const int number = present.toInt();
    return choices.value(choiceNumbers.isEmpty() ? number : choiceNumbers.indexOf(number));
}

/// The options of a kind of item, in the order of a document's attributes.
template<class Options>
using OptionFields = std::vector<OptionField<Options>>;
