#pragma once

#include "settings/settings.h"

#include <type_traits>

/// How a setting's type stands in the store, and how it is read back from whatever stands there.
template<class T, class = void>
struct SettingValue
{
    static QVariant toStore(const T &value) { return QVariant::fromValue(value); }
    /// What can't be converted gives the type's empty value.
    static T fromStore(QVariant stored) { return stored.convert(qMetaTypeId<T>()) ? stored.value<T>() : T(); }
};

template<class Choice>
struct SettingValue<Choice, std::enable_if_t<std::is_enum_v<Choice>>>
{
    static QVariant toStore(Choice value) { return static_cast<int>(value); }
    static Choice fromStore(const QVariant &stored) { return choiceOf<Choice>(stored.toInt()); }
};

template<>
struct SettingValue<QString>
{
    static QVariant toStore(const QString &value) { return value; }
    /// An unquoted comma in an ini file makes a list of a text.
    static QString fromStore(const QVariant &stored)
    {
        return stored.userType() == QMetaType::QStringList ? stored.toStringList().join(QLatin1Char(','))
                                                           : stored.toString();
    }
};

template<>
struct SettingValue<QLocale>
{
    static QVariant toStore(const QLocale &value)
    {
        return QLocale(value.name()) == value ? value.name() : value.bcp47Name();
    }
    static QLocale fromStore(const QVariant &stored)
    {
        return stored.userType() == QMetaType::QLocale ? stored.toLocale() : QLocale(stored.toString());
    }
};

template<>
struct SettingValue<QList<int>>
{
    static QVariant toStore(const QList<int> &value) { return QVariantList(value.cbegin(), value.cend()); }
    static QList<int> fromStore(const QVariant &stored)
    {
        QList<int> numbers;
        for (const QVariant &number : stored.toList()) {
            numbers.append(number.toInt());
        }
        return numbers;
    }
};

template<>
struct SettingValue<SettingsCounts>
{
    static QVariant toStore(const SettingsCounts &value)
    {
        QVariantMap map;
        for (auto it = value.cbegin(); it != value.cend(); ++it) {
            map.insert(it.key(), it.value());
        }
        return map;
    }
    static SettingsCounts fromStore(const QVariant &stored)
    {
        SettingsCounts counts;
        const QVariantMap map = stored.toMap();
        for (auto it = map.cbegin(); it != map.cend(); ++it) {
            counts.insert(it.key(), it.value().toInt());
        }
        return counts;
    }
};

template<>
struct SettingValue<SettingsExtensions>
{
    static QVariant toStore(const SettingsExtensions &value)
    {
        QVariantMap map;
        for (auto it = value.cbegin(); it != value.cend(); ++it) {
            map.insert(it.key(), it.value());
        }
        return map;
    }
    static SettingsExtensions fromStore(const QVariant &stored)
    {
        SettingsExtensions types;
        const QVariantMap map = stored.toMap();
        for (auto it = map.cbegin(); it != map.cend(); ++it) {
            types.insert(it.key(), it.value().toInt());
        }
        return types;
    }
};
