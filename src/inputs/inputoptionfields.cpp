#include "data/values.h"
#include "inputs/delimitedreader.h"
#include "inputs/inputoptions.h"

// The options of inputs, declared once for documents, defaults, comparison, summaries and panels.

namespace {

using Field = OptionField<InputOptions>;

/// What option of the summary comes where; panels have the same order.
enum Place {
    DelimiterPlace,
    RepeatedPlace,
    QuotingPlace,
    ColumnsPlace,
    EncodingPlace,
    FormatPlace,
    IgnoredRowsPlace,
    HeaderPlace,
    TrimPlace,
    SimplifyPlace,
    EmptyRowsPlace,
    EmptyColumnsPlace,
    HiddenRowsPlace,
    HiddenColumnsPlace,
    MetaPlace,
    SchemaPlace
};

Field::Condition when(InputOptions::Option option)
{
    return [option](const InputOptions &options) { return options.applies(option); };
}

Field::Condition whenMedium(int medium)
{
    return [medium](const InputOptions &options) { return options.medium == medium; };
}

bool hasMeta(const InputOptions &options)
{
    return options.metaPosition != InputOptions::NoMeta;
}

QString headerText(const InputOptions &options)
{
    if (options.headerMode == InputOptions::DecideAtFirstRead) {
        return QStringLiteral("Automatic");
    }
    return options.headerMode == InputOptions::FirstRowIsHeader ? QStringLiteral("Yes") : QStringLiteral("No");
}

QString widthsText(const InputOptions &options)
{
    if (options.autoFixedWidths) {
        return QStringLiteral("Automatic");
    }
    QStringList widths;
    for (int width : options.fixedWidths) {
        widths.append(QString::number(width));
    }
    return widths.join(QStringLiteral(", "));
}

QString delimiterText(const InputOptions &options)
{
    const QString label = DelimiterKind::label(options.delimiter);
    return options.delimiter == DelimiterKind::Custom
               ? QStringLiteral("%1 (%2)").arg(label, QString(options.customDelimiter))
               : label;
}

QString formatText(const InputOptions &options)
{
    return options.arraysBecomeRows() ? QStringLiteral("Long (more rows)") : QStringLiteral("Wide (more columns)");
}

QString ignoredRowsText(const InputOptions &options)
{
    return QStringLiteral("First %1 row(s)").arg(formatInteger(options.ignoredRows, true));
}

/// The medium of an element that doesn't tell it, by what the element has.
QVariant impliedMedium(const InputOptions &options)
{
    return int(options.path.isEmpty() && !options.text.isEmpty() ? Medium::Clipboard : Medium::File);
}

QStringList labelsOf(const QList<int> &types)
{
    QStringList labels;
    for (int type : types) {
        labels.append(FileType::label(type));
    }
    return labels;
}

OptionFields<InputOptions> rowFields()
{
    using O = InputOptions;
    return {
        Field::of<&O::ignoredRows>("ignored_rows")
            .shown("Ignore:")
            .limited(0, std::numeric_limits<int>::max())
            .onlyWhen(when(O::IgnoredRows))
            .summedUp(IgnoredRowsPlace, "Ignore", ignoredRowsText),
        Field::of<&O::headerMode>("header")
            .shown("has header")
            .chosenFrom({"No", "Yes", "Automatic"})
            .limitedAsFlag(O::DecideAtFirstRead)
            .summedUp(HeaderPlace, "Has header", headerText),
        Field::of<&O::watching>("watching").shown("watch file").onlyWhen(when(O::Watching)),
        Field::of<&O::jsonArraysAsRows>("json_arrays_as_rows")
            .shown("Format:", "Choose whether to input JSON/XML arrays/repeat values as long (extra rows) or wide "
                              "(extra columns).")
            .chosenFrom({"Wide (more columns)", "Long (more rows)"})
            .savedAs("long_or_wide")
            .onlyWhen(when(O::Format))
            .summedUp(FormatPlace, "Format", formatText),
        Field::of<&O::trim>("trim")
            .shown("trim")
            .absentMeans(false)
            .savedAs("trim_whitespace")
            .summedUp(TrimPlace, "Trim whitespace"),
        Field::of<&O::simplify>("simplify")
            .shown("simplify")
            .absentMeans(false)
            .savedAs("simplify_whitespace")
            .summedUp(SimplifyPlace, "Simplify whitespace"),
        Field::of<&O::ignoreEmptyRows>("ignore_empty")
            .shown("rows")
            .savedAs("ignore_empty_rows")
            .summedUp(EmptyRowsPlace, "Ignore empty rows"),
        Field::of<&O::ignoreEmptyColumns>("ignore_empty_cols")
            .shown("columns")
            .summedUp(EmptyColumnsPlace, "Ignore empty columns"),
        Field::of<&O::ignoreHiddenColumns>("ignore_excel_hidden_cols")
            .shown("columns")
            .onlyWhen(when(O::HiddenRowsAndColumns))
            .summedUp(HiddenColumnsPlace, "Ignore hidden Excel columns"),
        Field::of<&O::ignoreHiddenRows>("ignore_excel_hidden_rows")
            .shown("rows")
            .savedAs("ignore_hidden_excel_rows")
            .onlyWhen(when(O::HiddenRowsAndColumns))
            .summedUp(HiddenRowsPlace, "Ignore hidden Excel rows"),
    };
}

OptionFields<InputOptions> metaAndSchemaFields()
{
    using O = InputOptions;
    using S = InputSchema;
    return {
        Field::of<&O::metaPosition>("show_meta")
            .shown("Meta info:")
            .chosenFrom({"None", "New first row", "New last row", "New column"})
            .limited(O::NoMeta, O::MetaColumn)
            .savedAs("show_meta_info")
            .summedUp(MetaPlace, "Meta information"),
        Field::of<&O::metaText>("meta_text").absentMeans(QString()).savedAs("meta_info_text").onlyWhen(hasMeta),
        Field::of<&O::metaColumnName>("meta_col_name").savedAs("meta_info_col_name").onlyWhen([](const O &options) {
            return options.metaPosition == O::MetaColumn;
        }),
        Field::of<&O::schema, &S::inUse>("schema_in_use")
            .shown("Use schema:", "Use a schema to manage what happens if columns are added, removed or change "
                                  "position in the input.")
            .editedBy(OptionEditor::Schema)
            .summedUp(SchemaPlace, "Uses schema"),
        Field::of<&O::schema, &S::columnNames>("schema_col_name").editedBy(OptionEditor::Schema),
        Field::of<&O::schema, &S::missingValues>("schema_missing_value").editedBy(OptionEditor::Schema).byPosition(),
        Field::of<&O::schema, &S::missingMode>("schema_missing_cols")
            .shown("Missing columns in input:")
            .editedBy(OptionEditor::Schema)
            .limited(0, S::MissingIsError),
        Field::of<&O::schema, &S::reorderMode>("schema_reorder_cols")
            .shown("Out of order columns in input:")
            .editedBy(OptionEditor::Schema)
            .limited(0, S::OrderIsError),
        Field::of<&O::schema, &S::extraMode>("schema_extra_cols")
            .shown("Extra columns in input:")
            .editedBy(OptionEditor::Schema)
            .limited(0, S::ExtraIsError),
    };
}

OptionFields<InputOptions> sourceFields()
{
    using O = InputOptions;
    using F = FolderInput;
    const auto inFolder = whenMedium(Medium::Folder);
    return {
        Field::of<&O::path>("path").shown("File:").editedBy(OptionEditor::Path).onlyWhen(whenMedium(Medium::File)),
        Field::of<&O::folder, &F::folder>("multi_file_folder")
            .shown("Folder:", "The folder to match files in. Cannot include wildcards.")
            .editedBy(OptionEditor::FolderMatch)
            .onlyWhen(inFolder),
        Field::of<&O::folder, &F::fileMatch>("multi_file_match")
            .shown("Matching files:")
            .editedBy(OptionEditor::FolderMatch)
            .onlyWhen(inFolder),
        Field::of<&O::folder, &F::sheetMatch>("multi_sheetmatch")
            .shown("Matching sheets:")
            .editedBy(OptionEditor::FolderMatch)
            .onlyWhen(inFolder),
        Field::of<&O::folder, &F::recurse>("multi_file_recurse")
            .shown("and sub-folders", "Check to recurse into sub-folders.")
            .editedBy(OptionEditor::FolderMatch)
            .onlyWhen(inFolder),
        Field::of<&O::fileType>("file_type")
            .shown("Type:", "Choose a file type.")
            .chosenFrom(labelsOf(FileType::inputTypes()), FileType::inputTypes())
            .absentMeans(int(FileType::None)),
    };
}

OptionFields<InputOptions> textFields()
{
    using O = InputOptions;
    return {
        Field::of<&O::delimiter>("delimiter")
            .shown("Delimiter:")
            .chosenFrom(DelimiterKind::labels())
            .limited(DelimiterKind::Automatic, DelimiterKind::UnitSeparator)
            .absentMeans(int(DelimiterKind::Comma))
            .savedAs("delimiter")
            .onlyWhen(when(O::Delimiter))
            .summedUp(DelimiterPlace, "Delimiter", delimiterText),
        Field::of<&O::customDelimiter>("custom_delimiter")
            .absentMeans(QChar('*'))
            .savedAs("custom_delimiter")
            .onlyWhen([](const O &o) { return o.applies(O::Delimiter) && o.delimiter == DelimiterKind::Custom; }),
        Field::of<&O::quoting>("quote")
            .shown("Quoting:")
            .chosenFrom({InputQuoting::label(InputQuoting::Automatic), InputQuoting::label(InputQuoting::Quoted),
                InputQuoting::label(InputQuoting::Unquoted)})
            .limited(0, InputQuoting::Unquoted)
            .savedAs("quoting")
            .onlyWhen(when(O::Delimiter))
            .summedUp(QuotingPlace, "Quoting"),
        Field::of<&O::ignoreRepeatedDelimiter>("ignore_repeated_delim")
            .shown("ignore repeated")
            .savedAs("ignore_repeated_delim")
            .onlyWhen(when(O::Delimiter))
            .summedUp(RepeatedPlace, "Ignore repeated delim"),
        Field::of<&O::autoFixedWidths>("auto_fixed_widths")
            .shown("Columns:")
            .editedBy(OptionEditor::ColumnWidths)
            .onlyWhen(when(O::Columns))
            .summedUp(ColumnsPlace, "Columns", widthsText),
        Field::of<&O::fixedWidths>("fixed_widths").editedBy(OptionEditor::ColumnWidths).onlyWhen(when(O::Columns)),
        Field::of<&O::encoding>("encoding")
            .shown("Encoding:", "Choose the file encoding.\n'Automatic' makes an intelligent guess.")
            .editedBy(OptionEditor::Encoding)
            .savedAs("encoding")
            .onlyWhen(when(O::Encoding))
            .summedUp(EncodingPlace, "Encoding"),
        Field::of<&O::worksheet>("worksheet").editedBy(OptionEditor::Sheet).onlyWhen(when(O::Worksheet)),
        Field::of<&O::text>("text").editedBy(OptionEditor::Hidden),
        Field::of<&O::medium>("medium")
            .editedBy(OptionEditor::Hidden)
            .limited(Medium::File, Medium::Folder)
            .absentGives(impliedMedium),
    };
}

} // namespace

const OptionFields<InputOptions> &InputOptions::fields()
{
    static const OptionFields<InputOptions> fields = [] {
        OptionFields<InputOptions> all = rowFields();
        for (const OptionFields<InputOptions> &more : {metaAndSchemaFields(), sourceFields(), textFields()}) {
            all.insert(all.end(), more.begin(), more.end());
        }
        return all;
    }();
    return fields;
}
