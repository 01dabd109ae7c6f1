#pragma once

#include "document/documentrecords.h"

/// The attributes of an `input` element: read into `input` with an AttributeReader, written with an AttributeWriter.
/// The medium comes last, since its fallback depends on path and text.
template<class Attributes, class Record>
void inputFields(Attributes &a, Record &input)
{
    auto &o = input.options;
    const FolderInput newFolder;
    a.text("comment", input.comment);
    a.integer("ignored_rows", o.ignoredRows, 0, 0, 0x7FFFFFFF);
    a.choice("header", o.headerMode, InputOptions::DecideAtFirstRead);
    a.boolean("watching", o.watching, false);
    a.integer("json_arrays_as_rows", o.jsonArraysAsRows, 1);
    a.boolean("trim", o.trim, false);
    a.boolean("simplify", o.simplify, false);
    a.boolean("ignore_empty", o.ignoreEmptyRows, true);
    a.boolean("ignore_empty_cols", o.ignoreEmptyColumns, false);
    a.boolean("ignore_excel_hidden_cols", o.ignoreHiddenColumns, false);
    a.boolean("ignore_excel_hidden_rows", o.ignoreHiddenRows, false);
    a.integer("show_meta", o.metaPosition, InputOptions::NoMeta, InputOptions::NoMeta, InputOptions::MetaColumn);
    a.text("meta_text", o.metaText);
    a.text("meta_col_name", o.metaColumnName, QStringLiteral("Meta Info"));
    a.boolean("schema_in_use", o.schema.inUse, false);
    a.list("schema_col_name", o.schema.columnNames);
    a.listByPosition("schema_missing_value", o.schema.missingValues);
    a.integer("schema_missing_cols", o.schema.missingMode, 0, 0, InputSchema::MissingIsError);
    a.integer("schema_reorder_cols", o.schema.reorderMode, 0, 0, InputSchema::OrderIsError);
    a.integer("schema_extra_cols", o.schema.extraMode, 0, 0, InputSchema::ExtraIsError);
    a.text("path", o.path);
    a.text("multi_file_folder", o.folder.folder, newFolder.folder);
    a.text("multi_file_match", o.folder.fileMatch, newFolder.fileMatch);
    a.text("multi_sheetmatch", o.folder.sheetMatch, newFolder.sheetMatch);
    a.boolean("multi_file_recurse", o.folder.recurse, newFolder.recurse);
    a.integer("file_type", o.fileType, FileType::None);
    a.text("alias", input.alias);
    a.integer("delimiter", o.delimiter, DelimiterKind::Comma, DelimiterKind::Automatic, DelimiterKind::UnitSeparator);
    a.character("custom_delimiter", o.customDelimiter, QLatin1Char('*'));
    a.integer("quote", o.quoting, 0, 0, 2);
    a.boolean("ignore_repeated_delim", o.ignoreRepeatedDelimiter, false);
    a.boolean("auto_fixed_widths", o.autoFixedWidths, true);
    a.integerList("fixed_widths", o.fixedWidths);
    a.text("encoding", o.encoding, QStringLiteral("Automatic"));
    a.text("worksheet", o.worksheet);
    a.text("text", o.text);
    a.point("pos_v12", "pos", input.position);
    const int medium = o.path.isEmpty() && !o.text.isEmpty() ? Medium::Clipboard : Medium::File;
    a.integer("medium", o.medium, medium, Medium::File, Medium::Folder);
}
