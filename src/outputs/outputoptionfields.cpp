#include "outputs/outputoptions.h"

#include "files/delimiters.h"

#include <QFileInfo>

// The options of outputs, declared once for documents, defaults, comparison, summaries and panels.

namespace {

using Field = OptionField<OutputOptions>;
using O = OutputOptions;

/// What option of the summary comes where; panels have the same order.
enum Place {
    DelimiterPlace,
    QuotingPlace,
    LineEndingsPlace,
    EncodingPlace,
    BomPlace,
    RemoveEmptyPlace,
    AboveRootPlace,
    RootNamePlace,
    BelowRootPlace,
    RowNamePlace,
    EscapePlace,
    FormattingPlace,
    TypesPlace,
    WriteModePlace,
    HeaderPlace
};

Field::Condition when(OutputOption option)
{
    return [option](const OutputOptions &options) { return options.applies(option); };
}

QString writeModeText(const OutputOptions &options)
{
    const QString mode = WriteMode::label(options.writeMode);
    return options.applies(OutputOption::OverwriteScope)
               ? mode + QLatin1Char('/') + OverwriteScope::label(options.overwriteScope)
               : mode;
}

QString headerText(const OutputOptions &options)
{
    const QString header = options.writeHeader ? QStringLiteral("Yes") : QStringLiteral("No");
    const bool onlyIfEmpty = options.applies(OutputOption::HeaderOnlyIfEmpty) && options.headerOnlyIfEmpty;
    return onlyIfEmpty ? header + QStringLiteral(" (if empty)") : header;
}

QVariant impliedQuoting(const OutputOptions &options)
{
    return int(OutputOptions::isTabbed(options.path) ? Quoting::Never : Quoting::AsNeeded);
}

QStringList labelsOf(const QList<int> &types)
{
    QStringList labels;
    for (int type : types) {
        labels.append(FileType::label(type));
    }
    return labels;
}

OptionFields<OutputOptions> targetFields()
{
    return {
        Field::of<&O::outputTarget>("single_or_multi")
            .shown("Output to:")
            .chosenFrom(OutputTarget::labels())
            .limited(0, OutputTarget::MultipleFiles),
        Field::of<&O::confirmMultiFile>("multi_file_confirm")
            .shown("confirm files")
            .onlyWhen(when(OutputOption::ConfirmMultiFile)),
        Field::of<&O::path>("path").shown("File:").editedBy(OptionEditor::Path).onlyWhen([](const O &options) {
            return options.outputTarget == OutputTarget::SingleFile;
        }),
        Field::of<&O::fileType>("file_type")
            .shown("Type:", "Choose a file type.")
            .chosenFrom(labelsOf(FileType::outputTypes()), FileType::outputTypes())
            .absentMeans(int(FileType::None)),
    };
}

OptionFields<OutputOptions> textFields()
{
    return {
        Field::of<&O::customDelimiter>("custom_delimiter").savedAs("custom_delimiter").onlyWhen([](const O &options) {
            return options.applies(OutputOption::Delimiter) && options.delimiter == DelimiterKind::Custom;
        }),
        Field::of<&O::delimiter>("delimiter")
            .shown("Delimiter:")
            .chosenFrom(DelimiterKind::labels())
            .limited(DelimiterKind::Automatic, DelimiterKind::UnitSeparator)
            .savedAs("delimiter")
            .onlyWhen(when(OutputOption::Delimiter))
            .summedUp(DelimiterPlace, "Delimiter"),
        Field::of<&O::lineEndings>("line_endings")
            .shown("Line endings:",
                QStringLiteral("Choose the line endings. '%1' chooses standard line endings for the current operating "
                               "system.")
                    .arg(LineEndings::label(LineEndings::Automatic)))
            .chosenFrom(LineEndings::labels())
            .limited(0, LineEndings::RecordSeparator)
            .savedAs("line_endings")
            .onlyWhen(when(OutputOption::LineEndings))
            .summedUp(LineEndingsPlace, "Line endings"),
        Field::of<&O::quoting>("quote")
            .shown("Quoting:")
            .chosenFrom(Quoting::labels())
            .limited(0, Quoting::Never)
            .absentGives(impliedQuoting)
            .savedAs("quoting")
            .onlyWhen(when(OutputOption::Quoting))
            .summedUp(QuotingPlace, "Quoting"),
    };
}

OptionFields<OutputOptions> workbookAndTypeFields()
{
    return {
        Field::of<&O::excelFormatMode>("excel_output")
            .shown("Formatting:")
            .chosenFrom(ExcelFormatMode::labels())
            .limited(0, ExcelFormatMode::Manual)
            .onlyWhen(when(OutputOption::ExcelFormatting))
            .summedUp(FormattingPlace, "Formatting"),
        Field::of<&O::useStyleTemplate>("excel_use_style_template")
            .shown("use style template")
            .onlyWhen(when(OutputOption::StyleTemplate)),
        Field::of<&O::styleTemplatePath>("excel_style_template_path")
            .editedBy(OptionEditor::Path)
            .onlyWhen([](const O &o) { return o.applies(OutputOption::StyleTemplate) && o.useStyleTemplate; }),
        Field::of<&O::jsonTypeMode>("json_types")
            .shown("Value types:")
            .chosenFrom(JsonTypeMode::labels())
            .limited(0, JsonTypeMode::Manual)
            .onlyWhen(when(OutputOption::JsonTypes))
            .summedUp(TypesPlace, "Types"),
        Field::of<&O::encoding>("encoding")
            .shown("Encoding:")
            .editedBy(OptionEditor::Encoding)
            .savedAs("encoding")
            .onlyWhen(when(OutputOption::Encoding))
            .summedUp(EncodingPlace, "Encoding"),
        Field::of<&O::writeBom>("bom")
            .shown("Byte Order Mark")
            .savedAs("bom")
            .onlyWhen(when(OutputOption::ByteOrderMark))
            .summedUp(BomPlace, "Byte Order Mark"),
    };
}

OptionFields<OutputOptions> markupFields()
{
    const Field::Condition isXml = when(OutputOption::XmlTexts);
    return {
        Field::of<&O::xmlAboveRoot>("xml_above_root")
            .shown("Above root:")
            .savedAs("xml_above_root")
            .onlyWhen(isXml)
            .summedUp(AboveRootPlace, "Above root"),
        Field::of<&O::xmlRootName>("xml_root")
            .shown("Root name:")
            .savedAs("xml_root_name")
            .onlyWhen(isXml)
            .summedUp(RootNamePlace, "Root name"),
        Field::of<&O::xmlBelowRoot>("xml_below_root")
            .shown("Below root:")
            .savedAs("xml_below_root")
            .onlyWhen(isXml)
            .summedUp(BelowRootPlace, "Below root"),
        Field::of<&O::xmlRowName>("xml_row")
            .shown("Row name:")
            .savedAs("xml_row_name")
            .onlyWhen(isXml)
            .summedUp(RowNamePlace, "Row name"),
        Field::of<&O::escapeHtml>("html_encode")
            .shown("escape special characters")
            .savedAs("escape_html")
            .onlyWhen(when(OutputOption::EscapeHtml))
            .summedUp(EscapePlace, "Escape special"),
    };
}

OptionFields<OutputOptions> writingFields()
{
    return {
        Field::of<&O::writeMode>("enable_output")
            .shown("Write mode:")
            .chosenFrom(WriteMode::labels())
            .summedUp(WriteModePlace, "Write mode", writeModeText),
        Field::of<&O::overwriteScope>("overwrite_sheet")
            .chosenFrom(OverwriteScope::labels())
            .limited(0, OverwriteScope::Sheet)
            .onlyWhen(when(OutputOption::OverwriteScope)),
        Field::of<&O::worksheet>("worksheet").editedBy(OptionEditor::Sheet).onlyWhen([](const O &options) {
            return FileType::isExcel(options.fileType);
        }),
        Field::of<&O::writeHeader>("write_header")
            .shown("write header")
            .savedAs("write_header")
            .onlyWhen(when(OutputOption::WriteHeader))
            .summedUp(HeaderPlace, "Write header", headerText),
        Field::of<&O::headerOnlyIfEmpty>("write_header_first_append_only")
            .shown("if empty")
            .onlyWhen(when(OutputOption::HeaderOnlyIfEmpty)),
        Field::of<&O::removeEmpty>("remove_empty")
            .shown("remove empty")
            .savedAs("remove_empty")
            .onlyWhen(when(OutputOption::RemoveEmpty))
            .summedUp(RemoveEmptyPlace, "Remove empty"),
        Field::of<&O::fileComment>("file_comment")
            .shown("File comment:")
            .absentMeans(QString())
            .savedAs("file_comment")
            .onlyWhen(when(OutputOption::FileComment)),
    };
}

} // namespace

const OptionFields<OutputOptions> &OutputOptions::fields()
{
    static const OptionFields<OutputOptions> fields = [] {
        OptionFields<OutputOptions> all;
        for (const OptionFields<OutputOptions> &some :
            {targetFields(), textFields(), workbookAndTypeFields(), markupFields(), writingFields()}) {
            all.insert(all.end(), some.begin(), some.end());
        }
        return all;
    }();
    return fields;
}
