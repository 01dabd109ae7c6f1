#pragma once

#include "document/documentrecords.h"

/// The attributes of an `output` element: read into `output` with an AttributeReader, written with an AttributeWriter.
/// `quoting` and `fileComment` are the fallbacks, which depend on the path and on the document's version.
template<class Attributes, class Record>
void outputFields(Attributes &a, Record &output, int quoting, const QString &fileComment)
{
    auto &o = output.options;
    a.integer("single_or_multi", o.outputTarget, 0, 0, 1);
    a.raw("multi_file_column", output.multiFileColumn);
    a.boolean("multi_file_confirm", o.confirmMultiFile, true);
    a.text("comment", output.comment);
    a.point("pos_v12", "pos", output.position);
    a.text("path", output.path);
    a.integer("file_type", output.fileType, FileType::None);
    a.text("alias", output.alias);
    a.character("custom_delimiter", output.customDelimiter, QLatin1Char('*'));
    a.integer("delimiter", output.delimiter, 1, 0, 9);
    a.integer("line_endings", o.lineEndings, 0, 0, 4);
    a.integer("quote", o.quoting, quoting, 0, 2);
    a.integer("excel_output", o.excelFormatMode, 0, 0, 2);
    a.boolean("excel_use_style_template", o.useStyleTemplate, false);
    a.text("excel_style_template_path", o.styleTemplatePath);
    a.raw("excel_manual_col_formats", output.excelFormats);
    a.integer("json_types", o.jsonTypeMode, 0, 0, 2);
    a.raw("json_manual_col_types", output.jsonTypes);
    a.text("encoding", output.encoding, QStringLiteral("UTF-8"));
    a.boolean("bom", o.writeBom, true);
    a.text("xml_above_root", o.xmlAboveRoot);
    a.text("xml_root", o.xmlRootName, QStringLiteral("root"));
    a.text("xml_below_root", o.xmlBelowRoot);
    a.text("xml_row", o.xmlRowName, QStringLiteral("record"));
    a.boolean("html_encode", o.escapeHtml, true);
    a.integer("enable_output", o.writeMode, 1);
    a.integer("overwrite_sheet", o.overwriteScope, 1, 0, 1);
    a.text("worksheet", output.sheet);
    a.boolean("write_header", o.writeHeader, true);
    a.boolean("write_header_first_append_only", o.headerOnlyIfEmpty, true);
    a.boolean("remove_empty", o.removeEmpty, true);
    a.text("file_comment", o.fileComment, fileComment);
}
