#include "charts/chartoptions.h"

// The options of charts, declared once for documents, comparison, summaries and panels.

namespace {

using Field = OptionField<ChartOptions>;
using namespace ChartChoice;

enum Place { TypePlace, LayoutPlace, WriteFilePlace, FilePlace, ImageTypePlace };

const QStringList &titleChoices()
{
    static const QStringList texts{QStringLiteral("Automatic"), QStringLiteral("Custom"), QStringLiteral("Hidden")};
    return texts;
}

QStringList labels(QString (*label)(int), int count)
{
    QStringList texts;
    for (int i = 0; i < count; ++i) {
        texts.append(label(i));
    }
    return texts;
}

bool hasAxes(const ChartOptions &options)
{
    return options.type != NoType && options.type != Pie && options.type != Donut;
}

bool isBar(const ChartOptions &options)
{
    return options.type == VerticalBar || options.type == HorizontalBar;
}

bool mayHaveDates(const ChartOptions &options)
{
    return hasAxes(options) && !isBar(options) && (options.xAs == XAutomatic || options.xAs == XDate);
}

bool isLine(const ChartOptions &options)
{
    return options.type == Line || options.type == SmoothLine;
}

bool hasPoints(const ChartOptions &options)
{
    return options.type == Scatter || (isLine(options) && options.showLineDataPoints);
}

bool writesImage(const ChartOptions &options)
{
    return options.writeFile && options.imageType != Pdf;
}

bool writesPdf(const ChartOptions &options)
{
    return options.writeFile && options.imageType == Pdf;
}

bool writesFile(const ChartOptions &options)
{
    return options.writeFile;
}

/// The options of one axis that hold under a further condition.
template<auto axis>
Field::Condition whenAxis(bool (*holds)(const ChartAxisOptions &))
{
    return [holds](const ChartOptions &options) { return hasAxes(options) && holds(options.*axis); };
}

template<auto axis>
OptionFields<ChartOptions> rangeFields(const QByteArray &prefix, const QString &tab)
{
    using A = ChartAxisOptions;
    // Bars stand on texts, which have no scale.
    const bool isX = prefix.contains("_x_");
    const auto hasScale = [isX](const ChartOptions &options) { return hasAxes(options) && !(isX && isBar(options)); };
    return {
        Field::of<axis, &A::scale>(prefix + "scale")
            .shown("Scale:", QStringLiteral("Draw equal distances, or equal ratios, as equally long."), tab)
            .chosenFrom({"Linear", "Log e", "Log 10", "Log 2"})
            .limited(0, ScaleCount - 1)
            .onlyWhen(hasScale),
        Field::of<axis, &A::customMinimum>(prefix + "min_range_option")
            .shown(
                "Minimum:", QStringLiteral("Where the axis starts: found from the data, or a value of your own."), tab)
            .chosenFrom({"Automatic", "Custom"})
            .onlyWhen(hasScale),
        Field::of<axis, &A::minimum>(prefix + "min_range_custom_value")
            .shown(QString(), QString(), tab)
            .onlyWhen(whenAxis<axis>([](const A &a) { return a.customMinimum; })),
        Field::of<axis, &A::customMaximum>(prefix + "max_range_option")
            .shown("Maximum:", QStringLiteral("Where the axis ends: found from the data, or a value of your own."), tab)
            .chosenFrom({"Automatic", "Custom"})
            .onlyWhen(hasScale),
        Field::of<axis, &A::maximum>(prefix + "max_range_custom_value")
            .shown(QString(), QString(), tab)
            .onlyWhen(whenAxis<axis>([](const A &a) { return a.customMaximum; })),
        Field::of<axis, &A::niceValues>(prefix + "nice_values")
            .shown("nice values", QStringLiteral("Widen the axis to round numbers."), tab)
            .onlyWhen(hasScale),
    };
}

template<auto axis>
OptionFields<ChartOptions> axisFields(char letter)
{
    using A = ChartAxisOptions;
    const QByteArray prefix = QByteArray("chart_") + letter + "_axis_";
    const QByteArray show = QByteArray("chart_show_") + letter + "_axis";
    const QString tab = letter == 'x' ? QStringLiteral("X Axis") : QStringLiteral("Y Axis");
    OptionFields<ChartOptions> fields{
        Field::of<axis, &A::show>(show)
            .shown("show axis", QStringLiteral("Show the line of the axis, with its marks."), tab)
            .onlyWhen(hasAxes),
        Field::of<axis, &A::showGrid>(show + "_grid")
            .shown("show grid", QStringLiteral("Show a line across the chart at each mark of the axis."), tab)
            .onlyWhen(hasAxes),
        Field::of<axis, &A::titleOption>(prefix + "title_option")
            .shown("Title:",
                QStringLiteral("Name the columns, or write a text of your own, where $(X) and $(Y) stand for "
                               "their names."),
                tab)
            .chosenFrom(titleChoices())
            .limited(0, TitleCount - 1)
            .onlyWhen(hasAxes),
        Field::of<axis, &A::customTitle>(prefix + "custom_title")
            .shown(QString(), QString(), tab)
            .onlyWhen(whenAxis<axis>([](const A &a) { return a.titleOption == CustomTitle; })),
    };
    const OptionFields<ChartOptions> range = rangeFields<axis>(prefix, tab);
    fields.insert(fields.end(), range.begin(), range.end());
    const Field::Condition withLabels = whenAxis<axis>([](const A &a) { return a.showLabels; });
    const OptionFields<ChartOptions> texts{
        Field::of<axis, &A::showLabels>(prefix + "show_labels")
            .shown("show labels", QStringLiteral("Show the values at the marks of the axis."), tab)
            .onlyWhen(hasAxes),
        Field::of<axis, &A::labelAngle>(prefix + "label_angle")
            .shown("Label angle:", QStringLiteral("How far the labels are turned, in degrees."), tab)
            .onlyWhen(withLabels),
        Field::of<axis, &A::labelFormat>(prefix + "label_format")
            .shown("Label format:",
                QStringLiteral(
                    "e=exponent e.g.: 1.230e+06\nE=exponent, e.g.: 1.230E+06\nf=floating point, e.g.: "
                    "1230000.000\ng=most concise of e or f\nG=most concise of E or f\ni=integer, e.g. 1230000"),
                tab)
            .chosenFrom({"Automatic", "e", "E", "f", "g", "G", "i"})
            .limited(0, labelFormatCount - 1)
            .onlyWhen(withLabels),
        Field::of<axis, &A::labelPrecision>(prefix + "label_precision")
            .shown("Label precision:", QStringLiteral("The number of digits in the labels."), tab)
            .limited(0, 20)
            .onlyWhen(withLabels),
    };
    fields.insert(fields.end(), texts.begin(), texts.end());
    return fields;
}

OptionFields<ChartOptions> configureFields()
{
    using O = ChartOptions;
    const QString tab = QStringLiteral("Configure");
    return {
        Field::of<&O::type>("chart_type")
            .shown("Chart type:", QStringLiteral("Choose the type of chart."), tab)
            .chosenFrom(labels(typeLabel, TypeCount))
            .limited(0, TypeCount - 1)
            .summedUp(TypePlace, "Chart type"),
        Field::of<&O::xAs>("chart_x_as")
            .shown("X axis as:", QStringLiteral("Choose how to read the values of the X axis."), tab)
            .chosenFrom(labels(xAsLabel, XAsCount))
            .limited(0, XAsCount - 1)
            .onlyWhen([](const O &options) { return hasAxes(options) && !isBar(options); }),
        Field::of<&O::layout>("chart_layout")
            .shown("Layout:",
                QStringLiteral("Choose whether to draw several Y columns beside each other, each in a chart of its "
                               "own, or on top of each other."),
                tab)
            .chosenFrom(labels(layoutLabel, LayoutCount))
            .limited(0, LayoutCount - 1)
            .summedUp(LayoutPlace, "Layout"),
        Field::of<&O::facetsAcross>("chart_facets_across")
            .shown("Facets across:", QStringLiteral("The number of charts in a row."), tab)
            .limited(1, maxFacetsAcross)
            .onlyWhen([](const O &options) { return options.layout == Faceted; }),
    };
}

OptionFields<ChartOptions> outputFields()
{
    using O = ChartOptions;
    constexpr int largestImage = 32767;
    const QString tab = QStringLiteral("Output");
    return {
        Field::of<&O::writeFile>("write_file")
            .shown(
                "write to file", QStringLiteral("Check to write the chart to a file each time that it changes."), tab)
            .summedUp(WriteFilePlace, "Write to file"),
        Field::of<&O::path>("path")
            .shown("File:", QStringLiteral("The file to write the chart to."), tab)
            .editedBy(OptionEditor::Path)
            .onlyWhen(writesFile)
            .summedUp(FilePlace, "File"),
        Field::of<&O::imageType>("chart_image_type")
            .shown("Type:", QStringLiteral("Choose the type of the file."), tab)
            .chosenFrom(labels(imageTypeLabel, ImageTypeCount))
            .limited(0, ImageTypeCount - 1)
            .onlyWhen(writesFile)
            .summedUp(ImageTypePlace, "Type"),
        Field::of<&O::imageWidth>("chart_image_width")
            .shown("Width:", QStringLiteral("The width of the image, in pixels."), tab)
            .limited(1, largestImage)
            .onlyWhen(writesImage),
        Field::of<&O::imageHeight>("chart_image_height")
            .shown("Height:", QStringLiteral("The height of the image, in pixels."), tab)
            .limited(1, largestImage)
            .onlyWhen(writesImage),
        Field::of<&O::pdfSize>("chart_pdf_size")
            .shown("Size:", QStringLiteral("The size of the page."), tab)
            .chosenFrom({"A0", "A1", "A2", "A3", "A4", "A5", "A6", "Ledger", "Legal", "Letter", "Tabloid"})
            .limited(0, pdfSizeCount - 1)
            .onlyWhen(writesPdf),
        Field::of<&O::pdfOrientation>("chart_pdf_orientation")
            .shown("Orientation:", QStringLiteral("Whether the page is upright."), tab)
            .chosenFrom({"Portrait", "Landscape"})
            .limited(0, 1)
            .onlyWhen(writesPdf),
    };
}

OptionFields<ChartOptions> generalFields()
{
    using O = ChartOptions;
    const QString tab = QStringLiteral("General");
    return {
        Field::of<&O::theme>("chart_theme")
            .shown("Theme:", QStringLiteral("Choose the colors of the chart."), tab)
            .chosenFrom({"Light", "Natural Color System", "Ice Blue", "Dark Blue", "Green", "Brown", "Dark"})
            .limited(0, themeCount - 1),
        Field::of<&O::titleOption>("chart_title_option")
            .shown("Title:",
                QStringLiteral("Name the columns, or write a text of your own, where $(X) and $(Y) stand for "
                               "their names."),
                tab)
            .chosenFrom(titleChoices())
            .limited(0, TitleCount - 1),
        Field::of<&O::customTitle>("chart_custom_title")
            .shown(QString(), QString(), tab)
            .onlyWhen([](const O &options) { return options.titleOption == CustomTitle; }),
        Field::of<&O::legendPosition>("chart_legend_position")
            .shown("Legend:", QStringLiteral("Choose where the names of the series stand."), tab)
            .chosenFrom({"Automatic", "Bottom", "Left", "Top", "Right", "Hidden"})
            .limited(0, LegendCount - 1),
    };
}

OptionFields<ChartOptions> seriesFields()
{
    using O = ChartOptions;
    constexpr int largestResolution = 9600;
    constexpr int leastOpacity = 10; // less can hardly be seen
    const QString tab = QStringLiteral("Series");
    return {
        Field::of<&O::lineThickness>("chart_line_thickness")
            .shown("Line thickness:", QStringLiteral("The thickness of lines, in pixels."), tab)
            .onlyWhen(isLine),
        Field::of<&O::opacity>("chart_opacity")
            .shown("Opacity:", QStringLiteral("How opaque the series are, in percent. Less shows what is behind."), tab)
            .limited(leastOpacity, 100),
        Field::of<&O::showLineDataPoints>("chart_show_Line_data_points")
            .shown("show data points", QStringLiteral("Mark each value on the line."), tab)
            .onlyWhen(isLine),
        Field::of<&O::pointSizeOption>("chart_point_size_option")
            .shown("Point size:", QStringLiteral("The size of the points, in pixels."), tab)
            .chosenFrom({"Automatic", "Custom"})
            .onlyWhen(hasPoints),
        Field::of<&O::customPointSize>("chart_custom_points_size")
            .shown(QString(), QString(), tab)
            .onlyWhen([](const O &options) { return hasPoints(options) && options.pointSizeOption != 0; }),
        Field::of<&O::pdfResolution>("chart_pdf_resolution")
            .shown("Resolution:", QStringLiteral("The resolution of the page, in dots per inch."),
                QStringLiteral("Output"))
            .limited(1, largestResolution)
            .onlyWhen(writesPdf),
    };
}

OptionFields<ChartOptions> allFields()
{
    using O = ChartOptions;
    const QString xTab = QStringLiteral("X Axis");
    const QString yTab = QStringLiteral("Y Axis");
    const OptionFields<ChartOptions> xDates{
        Field::of<&O::xLabelDateFormat>("chart_x_axis_label_date_format")
            .shown("Date format:", QStringLiteral("The format of dates at the axis, e.g. dd/MM/yy."), xTab)
            .onlyWhen([](const O &options) { return mayHaveDates(options) && options.x.showLabels; })};
    const OptionFields<ChartOptions> ySame{
        Field::of<&O::ySameRangeAllFacets>("chart_y_axis_same_range_all_facets")
            .shown("same range for all facets",
                QStringLiteral("Give all charts the same Y axis, so that they can be compared."), yTab)
            .onlyWhen([](const O &options) { return hasAxes(options) && options.layout == Faceted; })};
    OptionFields<ChartOptions> all;
    for (const OptionFields<ChartOptions> &some : {configureFields(), outputFields(), axisFields<&O::x>('x'), xDates,
             axisFields<&O::y>('y'), ySame, generalFields(), seriesFields()}) {
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

} // namespace

const OptionFields<ChartOptions> &ChartOptions::fields()
{
    static const OptionFields<ChartOptions> fields = allFields();
    return fields;
}
