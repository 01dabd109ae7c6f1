#pragma once

#include <QChar>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <utility>
#include <variant>

/// How a member of the struct `Options`, or a member of a member, is reached, whatever its type.
template<class Options>
struct OptionMember
{
    /// The way to a member of one type.
    template<class Value>
    struct Typed
    {
        Value &(*change)(Options &);
        const Value &(*read)(const Options &);
        Value &in(Options &options) const { return change(options); }
        const Value &in(const Options &options) const { return read(options); }
    };
    using Any = std::variant<Typed<int>, Typed<bool>, Typed<double>, Typed<QChar>, Typed<QString>, Typed<QStringList>,
        Typed<QList<int>>>;

    template<auto... path>
    static Any of()
    {
        using Value = std::decay_t<decltype(reach<path...>(std::declval<Options &>()))>;
        return Typed<Value>{&reach<path...>, &reachConst<path...>};
    }
    static QVariant value(const Any &member, const Options &options);
    /// A value of another type is converted; an empty text leaves a character as it is.
    static void setValue(const Any &member, Options &options, const QVariant &value);

private:
    template<auto... path>
    static auto &reach(Options &options)
    {
        return (options.*....*path);
    }
    template<auto... path>
    static const auto &reachConst(const Options &options)
    {
        return (options.*....*path);
    }
};

template<class Options>
QVariant OptionMember<Options>::value(const Any &member, const Options &options)
{
    return std::visit(
        [&options](const auto &access) {
            const auto &value = access.in(options);
            if constexpr (std::is_same_v<std::decay_t<decltype(value)>, QList<int>>) {
                QVariantList numbers;
                for (const int number : value) {
                    numbers.append(number);
                }
                return QVariant(numbers);
            } else {
                return QVariant(value);
            }
        },
        member);
}

template<class Options>
void OptionMember<Options>::setValue(const Any &member, Options &options, const QVariant &value)
{
    std::visit(
        [&](const auto &access) {
            auto &target = access.in(options);
            using Value = std::decay_t<decltype(target)>;
            if constexpr (std::is_same_v<Value, QList<int>>) {
                target.clear();
                const QVariantList numbers = value.toList();
                for (const QVariant &number : numbers) {
                    target.append(number.toInt());
                }
            } else if constexpr (std::is_same_v<Value, QChar>) {
                const QString text = value.toString();
                target = text.isEmpty() ? target : text.at(0);
            } else {
                target = value.value<Value>();
            }
        },
        member);
}
