#include "document/documentattributes.h"
#include "document/inputfields.h"
#include "settings/optionwalk.h"
#include "support/printers.h"
#include "support/scopedsettings.h"

#include <QDomDocument>
#include <gtest/gtest.h>

// Each declared option takes part in documents, comparison, saved defaults and summaries.

namespace {

/// A value that differs from the present one and that a document may hold.
template<class Options>
QVariant otherValue(const OptionField<Options> &field, const Options &options)
{
    const QVariant present = field.value(options);
    switch (present.type()) {
    case QVariant::Bool:
        return !present.toBool();
    case QVariant::Double:
        return present.toDouble() + 1.5;
    case QVariant::Char:
        return QChar('#');
    case QVariant::String:
        return QVariant(present.toString() + "x");
    case QVariant::StringList:
        return QStringList{"a", "b c"};
    case QVariant::List:
        return QVariantList{3, 12};
    default:
        break;
    }
    const int number = present.toInt();
    if (!field.choices.isEmpty()) {
        const QList<int> &numbers = field.choiceNumbers;
        return numbers.isEmpty() ? (number + 1) % field.choices.size() : numbers.at(numbers.first() == number ? 1 : 0);
    }
    return number < field.highest ? number + 1 : number - 1;
}

InputRecord stored(const InputRecord &record, QDomElement &element)
{
    AttributeWriter writer(element);
    inputFields(writer, record);
    InputRecord read;
    const AttributeReader reader(element);
    inputFields(reader, read);
    return read;
}

/// Options under which the field applies, by types and media.
InputOptions startOf(const OptionField<InputOptions> &field)
{
    for (int type = FileType::Delimited; type < FileType::None; ++type) {
        for (int medium = Medium::File; medium <= Medium::Folder; ++medium) {
            InputOptions options;
            options.fileType = type;
            options.medium = medium;
            options.metaPosition = InputOptions::MetaColumn;
            options.delimiter = field.documentKey == "custom_delimiter" ? int(DelimiterKind::Custom)
                                                                        : options.delimiter;
            if (field.applies(options)) {
                return options;
            }
        }
    }
    ADD_FAILURE() << "never applies";
    return InputOptions();
}

template<class Record, class Options>
void expectKept(const OptionFields<Options> &fields, const OptionField<Options> &field, const Options &before)
{
    Record changed;
    changed.options = before;
    const QVariant other = otherValue(field, before);
    field.setValue(changed.options, other);
    ASSERT_EQ(field.value(changed.options), other);

    QVariantList expected = OptionWalk::values(fields, before);
    expected[int(&field - fields.data())] = other;
    EXPECT_EQ(OptionWalk::values(fields, changed.options), expected);

    QDomDocument document;
    QDomElement element = document.createElement("item");
    EXPECT_EQ(OptionWalk::values(fields, stored(changed, element).options), expected);
    EXPECT_TRUE(element.hasAttribute(QString::fromLatin1(field.documentKey)));

    if (!field.summaryLabel.isEmpty()) {
        EXPECT_NE(OptionWalk::summary(fields, before), OptionWalk::summary(fields, changed.options));
    }
    if (!field.settingsKey.isEmpty()) {
        const OptionWalk::DefaultsPlace place{"items", "Type", "csv"};
        OptionWalk::saveDefault(fields, changed.options, place, field.settingsKey);
        Options fresh = before;
        OptionWalk::applyDefaults(fields, fresh, place);
        EXPECT_EQ(OptionWalk::values(fields, fresh), expected);
    }
}

TEST(OptionContractTest, EachOptionOfAnInputIsKept)
{
    const OptionFields<InputOptions> &fields = InputOptions::fields();
    for (const OptionField<InputOptions> &field : fields) {
        SCOPED_TRACE(field.documentKey.constData());
        const ScopedSettings settings;
        expectKept<InputRecord>(fields, field, startOf(field));
    }
}

} // namespace
