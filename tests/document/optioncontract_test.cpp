#include "document/chartfields.h"
#include "document/documentattributes.h"
#include "document/inputfields.h"
#include "document/outputfields.h"
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

void exchange(AttributeWriter &writer, const InputRecord &record)
{
    inputFields(writer, record);
}
void exchange(const AttributeReader &reader, InputRecord &record)
{
    inputFields(reader, record);
}
void exchange(AttributeWriter &writer, const OutputRecord &record)
{
    outputFields(writer, record);
}
void exchange(const AttributeReader &reader, OutputRecord &record)
{
    outputFields(reader, record);
}
void exchange(AttributeWriter &writer, const ChartRecord &record)
{
    chartFields(writer, record);
}
void exchange(const AttributeReader &reader, ChartRecord &record)
{
    chartFields(reader, record);
}

/// The record as a document gives it back.
template<class Record>
Record stored(const Record &record, const QDomElement &element)
{
    AttributeWriter writer(element);
    exchange(writer, record);
    Record read;
    exchange(AttributeReader(element), read);
    return read;
}

/// Options under which all fields but those of single types and media apply.
std::vector<InputOptions> starts(const InputOptions &)
{
    std::vector<InputOptions> all;
    for (int type = FileType::Delimited; type < FileType::None; ++type) {
        for (int medium = Medium::File; medium <= Medium::Folder; ++medium) {
            InputOptions options;
            options.fileType = type;
            options.medium = medium;
            options.metaPosition = InputOptions::MetaColumn;
            options.delimiter = medium == Medium::Folder ? int(DelimiterKind::Custom) : options.delimiter;
            all.push_back(options);
        }
    }
    return all;
}

std::vector<OutputOptions> starts(const OutputOptions &)
{
    std::vector<OutputOptions> all;
    for (int type = FileType::Delimited; type < FileType::None; ++type) {
        for (int target : {OutputTarget::SingleFile, OutputTarget::MultipleFiles}) {
            OutputOptions options;
            options.fileType = type;
            options.outputTarget = target;
            options.writeMode = target == OutputTarget::SingleFile ? WriteMode::Overwrite : WriteMode::Append;
            options.useStyleTemplate = true;
            options.delimiter = DelimiterKind::Custom;
            all.push_back(options);
        }
    }
    return all;
}

std::vector<ChartOptions> starts(const ChartOptions &)
{
    std::vector<ChartOptions> all;
    for (int type = ChartChoice::Scatter; type < ChartChoice::TypeCount; ++type) {
        for (int image : {ChartChoice::Png, ChartChoice::Pdf}) {
            ChartOptions options;
            options.type = type;
            options.imageType = image;
            options.layout = ChartChoice::Faceted;
            options.writeFile = true;
            options.titleOption = options.x.titleOption = options.y.titleOption = ChartChoice::CustomTitle;
            options.pointSizeOption = 1;
            options.x.customMinimum = options.x.customMaximum = true;
            options.y.customMinimum = options.y.customMaximum = true;
            all.push_back(options);
        }
    }
    return all;
}

/// The first of these under which the field applies.
template<class Options>
Options startOf(const OptionField<Options> &field)
{
    for (const Options &options : starts(Options())) {
        if (field.applies(options)) {
            return options;
        }
    }
    ADD_FAILURE() << "never applies";
    return Options();
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
    const QDomElement element = document.createElement("item");
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

template<class Record, class Options>
void expectAllKept(const OptionFields<Options> &fields)
{
    for (const OptionField<Options> &field : fields) {
        SCOPED_TRACE(field.documentKey.constData());
        const ScopedSettings settings;
        expectKept<Record>(fields, field, startOf(field));
    }
}

TEST(OptionContractTest, EachOptionIsKeptByDocumentComparisonDefaultAndSummary)
{
    expectAllKept<InputRecord>(InputOptions::fields());
    expectAllKept<OutputRecord>(OutputOptions::fields());
    expectAllKept<ChartRecord>(ChartOptions::fields());
}

} // namespace
