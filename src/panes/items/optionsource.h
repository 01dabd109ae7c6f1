#pragma once

#include "settings/optionwalk.h"

#include <QStringList>
#include <QVariant>
#include <functional>

/// What a form needs to know of one option of an item.
struct OptionInfo
{
    QString label;
    QString toolTip;
    OptionEditor editor = OptionEditor::ByType;
    QStringList choices;
    QList<int> choiceNumbers;
    bool hasLimits = false;
    int lowest = 0;
    int highest = 0;
    bool hasDefault = false; ///< users may save one
    QVariant initial;        ///< of a new item
};

/// The options of an item as a form shows and changes them, by the names of their attributes.
class OptionSource
{
public:
    virtual ~OptionSource() = default;

    virtual OptionInfo info(const QByteArray &key) const = 0;
    virtual QVariant value(const QByteArray &key) const = 0;
    /// One step of undo named after `label`; false when that is the value already, or the user took it back.
    virtual bool setValue(const QByteArray &key, const QVariant &value, const QString &label) = 0;
    virtual bool applies(const QByteArray &key) const = 0;
    virtual bool isDefault(const QByteArray &key) const = 0;
    virtual void saveDefault(const QByteArray &key) = 0;
    virtual void removeDefault(const QByteArray &key) = 0;
};

/// The options of an item that declares them as `Options`.
template<class Options>
class DeclaredOptions : public OptionSource
{
public:
    using Read = std::function<Options()>;
    using Write = std::function<void(const Options &options, const QString &label)>;
    using Place = std::function<OptionWalk::DefaultsPlace()>;

    DeclaredOptions(Read read, Write write, Place place)
        : m_read(std::move(read))
        , m_write(std::move(write))
        , m_place(std::move(place))
    {
    }

    OptionInfo info(const QByteArray &key) const override
    {
        const OptionField<Options> &option = field(key);
        const bool isNumber = option.value(Options()).type() == QVariant::Int;
        return {option.label, option.toolTip, option.editor, option.choices, option.choiceNumbers,
            option.hasLimits && isNumber, option.lowest, option.highest, !option.settingsKey.isEmpty(),
            option.value(Options())};
    }
    QVariant value(const QByteArray &key) const override { return field(key).value(m_read()); }
    bool setValue(const QByteArray &key, const QVariant &value, const QString &label) override
    {
        Options options = m_read();
        const QVariant before = field(key).value(options);
        field(key).setValue(options, value);
        if (field(key).value(options) == before) {
            return false;
        }
        m_write(options, label);
        return field(key).value(m_read()) != before;
    }
    bool applies(const QByteArray &key) const override { return field(key).applies(m_read()); }
    bool isDefault(const QByteArray &key) const override
    {
        const OptionField<Options> &option = field(key);
        const Options options = m_read();
        const OptionWalk::DefaultsPlace place = m_place();
        const Settings &settings = Settings::current();
        if (!settings.hasDefaultOption(place.kind, place.type, place.extension, option.settingsKey)) {
            return false;
        }
        Options saved = options;
        option.setValue(
            saved, settings.defaultOption(place.kind, place.type, place.extension, option.settingsKey, QVariant()));
        return option.value(saved) == option.value(options);
    }
    void saveDefault(const QByteArray &key) override
    {
        const Options options = m_read();
        OptionWalk::saveDefault(Options::fields(), options, m_place(), field(key).settingsKey);
    }
    void removeDefault(const QByteArray &key) override
    {
        const OptionWalk::DefaultsPlace place = m_place();
        Settings::current().removeDefaultOption(place.kind, place.type, place.extension, field(key).settingsKey);
    }

private:
    static const OptionField<Options> &field(const QByteArray &key)
    {
        for (const OptionField<Options> &option : Options::fields()) {
            if (option.documentKey == key) {
                return option;
            }
        }
        Q_UNREACHABLE();
    }

    Read m_read;
    Write m_write;
    Place m_place;
};
