#pragma once

#include "document/documentrecords.h"
#include "document/optionattributes.h"

/// The attributes of an `output` element: read into `output` with an AttributeReader, written with an AttributeWriter.
/// What isn't an option stands among the options, since the order of writing has a say in the order of a file's bytes.
template<class Attributes, class Record>
void outputFields(Attributes &a, Record &output)
{
    for (const OptionField<OutputOptions> &field : OutputOptions::fields()) {
        if (field.documentKey == "multi_file_confirm") {
            a.raw("multi_file_column", output.multiFileColumn);
        } else if (field.documentKey == "path") {
            a.text("comment", output.comment);
            a.point("pos_v12", "pos", output.position);
        } else if (field.documentKey == "custom_delimiter") {
            a.text("alias", output.alias);
        } else if (field.documentKey == "json_types") {
            a.raw("excel_manual_col_formats", output.excelFormats);
        } else if (field.documentKey == "encoding") {
            a.raw("json_manual_col_types", output.jsonTypes);
        }
        optionAttribute(a, field, output.options);
    }
}
