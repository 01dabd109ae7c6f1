#pragma once

#include "document/documentrecords.h"
#include "document/optionattributes.h"

/// The attributes of a `chart` element: read into `chart` with an AttributeReader, written with an AttributeWriter.
/// What isn't an option stands among the options, since the order of writing has a say in the order of a file's bytes.
template<class Attributes, class Record>
void chartFields(Attributes &a, Record &chart)
{
    a.text("comment", chart.comment);
    a.point("pos_v12", chart.position);
    for (const OptionField<ChartOptions> &field : ChartOptions::fields()) {
        if (field.documentKey == "chart_x_as") {
            a.raw("chart_x_column", chart.xColumn);
        } else if (field.documentKey == "chart_layout") {
            a.raw("chart_y_columns", chart.yColumns);
        } else if (field.documentKey == "chart_show_x_axis") {
            a.text("alias", chart.alias);
        }
        optionAttribute(a, field, chart.options);
    }
}
