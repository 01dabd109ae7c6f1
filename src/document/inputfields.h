#pragma once

#include "document/documentrecords.h"
#include "document/optionattributes.h"

/// The attributes of an `input` element: read into `input` with an AttributeReader, written with an AttributeWriter.
/// Alias and position stand among the options, since the order of writing has a say in the order of a file's bytes.
template<class Attributes, class Record>
void inputFields(Attributes &a, Record &input)
{
    a.text("comment", input.comment);
    for (const OptionField<InputOptions> &field : InputOptions::fields()) {
        if (field.documentKey == "delimiter") {
            a.text("alias", input.alias);
        } else if (field.documentKey == "medium") {
            a.point("pos_v12", "pos", input.position);
        }
        optionAttribute(a, field, input.options);
    }
}
