#pragma once

#include "settings/optionfield.h"
#include "settings/settings.h"

#include <QList>
#include <QPair>
#include <algorithm>

/// What is done with all options of an item by their declarations.
namespace OptionWalk {

/// Under which defaults are saved: "inputs" or "outputs", the file type's label and the source's extension.
struct DefaultsPlace
{
    QString kind;
    QString type;
    QString extension;
};

/// The values of all options in their order: two lists are equal exactly when the options are.
template<class Options>
QVariantList values(const OptionFields<Options> &fields, const Options &options)
{
    QVariantList values;
    for (const OptionField<Options> &field : fields) {
        values.append(field.value(options));
    }
    return values;
}

/// Label and text of the options that apply and that a summary tells, in their order there.
template<class Options>
QList<QPair<QString, QString>> summary(const OptionFields<Options> &fields, const Options &options)
{
    std::vector<const OptionField<Options> *> told;
    for (const OptionField<Options> &field : fields) {
        if (!field.summaryLabel.isEmpty() && field.applies(options)) {
            told.push_back(&field);
        }
    }
    std::sort(told.begin(), told.end(), [](const auto *a, const auto *b) { return a->summaryPlace < b->summaryPlace; });
    QList<QPair<QString, QString>> rows;
    for (const OptionField<Options> *field : told) {
        rows.append({field->summaryLabel, field->summaryText ? field->summaryText(options) : field->textOf(options)});
    }
    return rows;
}

/// Takes over what the user saved; an option that wasn't saved keeps its value.
template<class Options>
void applyDefaults(const OptionFields<Options> &fields, Options &options, const DefaultsPlace &place)
{
    const Settings &settings = Settings::current();
    for (const OptionField<Options> &field : fields) {
        const QString &key = field.settingsKey;
        if (!key.isEmpty() && settings.hasDefaultOption(place.kind, place.type, place.extension, key)) {
            const QVariant saved = settings.defaultOption(
                place.kind, place.type, place.extension, key, field.value(options));
            field.setValue(options, saved);
        }
    }
}

/// Saves the present value of the option that has a default named `settingsKey`; other names are ignored.
template<class Options>
void saveDefault(
    const OptionFields<Options> &fields, const Options &options, const DefaultsPlace &place, const QString &settingsKey)
{
    for (const OptionField<Options> &field : fields) {
        if (!settingsKey.isEmpty() && field.settingsKey == settingsKey) {
            const QVariant value = field.value(options);
            const bool isCharacter = value.type() == QVariant::Char;
            Settings::current().setDefaultOption(place.kind, place.type, place.extension, settingsKey,
                isCharacter ? QVariant(QString(value.toChar())) : value);
        }
    }
}

} // namespace OptionWalk
