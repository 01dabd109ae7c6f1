#pragma once

#include "document/documentrecords.h"

#include <QLatin1String>

/// The attributes of one axis, `letter` being 'x' or 'y'; see chartFields().
template<class Attributes, class Axis>
void chartAxisFields(Attributes &a, Axis &axis, char letter, const char *title)
{
    using namespace ChartChoice;
    const auto named = [letter](const char *rest) { return QByteArray("chart_") + letter + "_axis_" + rest; };
    const QByteArray show = QByteArray("chart_show_") + letter + "_axis";
    a.boolean(show, axis.show, true);
    a.boolean(show + "_grid", axis.showGrid, true);
    a.integer(named("title_option"), axis.titleOption, HiddenTitle, 0, TitleCount - 1);
    a.text(named("custom_title"), axis.customTitle, QString::fromLatin1(title));
    a.integer(named("scale"), axis.scale, Linear, 0, ScaleCount - 1);
    a.boolean(named("min_range_option"), axis.customMinimum, false);
    a.real(named("min_range_custom_value"), axis.minimum, 0.0);
    a.boolean(named("max_range_option"), axis.customMaximum, false);
    a.real(named("max_range_custom_value"), axis.maximum, 10.0);
    a.boolean(named("nice_values"), axis.niceValues, true);
    a.boolean(named("show_labels"), axis.showLabels, true);
    a.integer(named("label_angle"), axis.labelAngle, 0);
    a.integer(named("label_format"), axis.labelFormat, 0, 0, labelFormatCount - 1);
    a.integer(named("label_precision"), axis.labelPrecision, 2, 0, 20);
}

/// The attributes of a `chart` element: read into `chart` with an AttributeReader, written with an AttributeWriter.
template<class Attributes, class Record>
void chartFields(Attributes &a, Record &chart)
{
    using namespace ChartChoice;
    constexpr int largestImage = 32767;
    constexpr int largestResolution = 9600;
    auto &o = chart.options;
    a.text("comment", chart.comment);
    a.point("pos_v12", chart.position);
    a.integer("chart_type", o.type, NoType, 0, TypeCount - 1);
    a.raw("chart_x_column", chart.xColumn);
    a.integer("chart_x_as", o.xAs, XAutomatic, 0, XAsCount - 1);
    a.raw("chart_y_columns", chart.yColumns);
    a.integer("chart_layout", o.layout, Grouped, 0, LayoutCount - 1);
    a.integer("chart_facets_across", o.facetsAcross, 2, 1, maxFacetsAcross);
    a.boolean("write_file", o.writeFile, false);
    a.text("path", o.path);
    a.integer("chart_image_type", o.imageType, Png, 0, ImageTypeCount - 1);
    a.integer("chart_image_width", o.imageWidth, 1024, 1, largestImage);
    a.integer("chart_image_height", o.imageHeight, 1024, 1, largestImage);
    a.integer("chart_pdf_size", o.pdfSize, defaultPdfSize(), 0, pdfSizeCount - 1);
    a.integer("chart_pdf_orientation", o.pdfOrientation, 0, 0, 1);
    a.text("alias", chart.alias);
    chartAxisFields(a, o.x, 'x', "$(X)");
    a.text("chart_x_axis_label_date_format", o.xLabelDateFormat);
    chartAxisFields(a, o.y, 'y', "$(Y)");
    a.boolean("chart_y_axis_same_range_all_facets", o.ySameRangeAllFacets, false);
    a.integer("chart_theme", o.theme, 0, 0, themeCount - 1);
    a.integer("chart_title_option", o.titleOption, AutomaticTitle, 0, TitleCount - 1);
    a.text("chart_custom_title", o.customTitle, QStringLiteral("$(Y) vs $(X)"));
    a.integer("chart_legend_position", o.legendPosition, AutomaticLegend, 0, LegendCount - 1);
    a.real("chart_line_thickness", o.lineThickness, 2.0);
    a.integer("chart_opacity", o.opacity, 100, 0, 100);
    a.boolean("chart_show_Line_data_points", o.showLineDataPoints, false);
    a.integer("chart_point_size_option", o.pointSizeOption, 0);
    a.real("chart_custom_points_size", o.customPointSize, 15.0);
    a.integer("chart_pdf_resolution", o.pdfResolution, 150, 1, largestResolution);
}
