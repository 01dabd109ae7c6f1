#pragma once

#include "settings/optionfield.h"

/// One option as an attribute: read into `options` with an AttributeReader, written with an AttributeWriter.
template<class Attributes, class Options, class Held>
void optionAttribute(Attributes &attributes, const OptionField<Options> &field, Held &options)
{
    const char *key = field.documentKey.constData();
    const QVariant absent = Attributes::isReading ? field.absent(options) : QVariant();
    std::visit(
        [&](const auto &member) {
            auto &value = member.in(options);
            using Value = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, bool>) {
                attributes.boolean(key, value, absent.toBool());
            } else if constexpr (std::is_same_v<Value, double>) {
                attributes.real(key, value, absent.toDouble());
            } else if constexpr (std::is_same_v<Value, QChar>) {
                attributes.character(key, value, absent.toChar());
            } else if constexpr (std::is_same_v<Value, QString>) {
                attributes.text(key, value, absent.toString());
            } else if constexpr (std::is_same_v<Value, QList<int>>) {
                attributes.integerList(key, value);
            } else if constexpr (std::is_same_v<Value, QStringList>) {
                field.keepsEmptyEntries ? attributes.listByPosition(key, value) : attributes.list(key, value);
            } else if (field.otherMeansOne) {
                attributes.choice(key, value, field.highest);
            } else if (field.hasLimits) {
                attributes.integer(key, value, absent.toInt(), field.lowest, field.highest);
            } else {
                attributes.integer(key, value, absent.toInt());
            }
        },
        field.member);
}
