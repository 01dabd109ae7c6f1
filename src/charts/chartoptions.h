#pragma once

#include "settings/optionfield.h"

#include <QString>
#include <QStringList>

/// What the options of a chart may be. The numbers stand in documents.
namespace ChartChoice {
enum Type { NoType = 0, Scatter, Line, SmoothLine, Area, VerticalBar, HorizontalBar, Pie, Donut, TypeCount };
enum XAs { XAutomatic = 0, XNumeric, XText, XDate, XAsCount };
enum Layout { Grouped = 0, Faceted, Stacked, LayoutCount };
enum Title { AutomaticTitle = 0, CustomTitle, HiddenTitle, TitleCount };
enum Legend { AutomaticLegend = 0, Bottom, Left, Top, Right, HiddenLegend, LegendCount };
enum Scale { Linear = 0, LogE, Log10, Log2, ScaleCount };
enum ImageType { Png = 0, Jpeg, Pdf, ImageTypeCount };
constexpr int themeCount = 7;
constexpr int labelFormatCount = 7;
constexpr int pdfSizeCount = 11;
constexpr int maxFacetsAcross = 5;

/// "Scatter" and so on; empty outside the table, as are the others.
QString typeLabel(int type);
QString xAsLabel(int choice);
QString layoutLabel(int layout);
QString imageTypeLabel(int type);
/// Letter where the default locale's country is the United States, else A4.
int defaultPdfSize();
} // namespace ChartChoice

/// What both axes of a chart have.
struct ChartAxisOptions
{
    explicit ChartAxisOptions(const QString &title = QString())
        : customTitle(title)
    {
    }

    bool show = true;
    bool showGrid = true;
    int titleOption = ChartChoice::HiddenTitle;
    QString customTitle;
    int scale = ChartChoice::Linear;
    bool customMinimum = false;
    double minimum = 0.0;
    bool customMaximum = false;
    double maximum = 10.0;
    bool niceValues = true;
    bool showLabels = true;
    int labelAngle = 0; ///< degrees
    int labelFormat = 0;
    int labelPrecision = 2;
};

/// All options of a chart but its columns, with the defaults of a new one.
struct ChartOptions
{
    int type = ChartChoice::NoType;
    int xAs = ChartChoice::XAutomatic;
    int layout = ChartChoice::Grouped;
    int facetsAcross = 2;
    bool writeFile = false;
    QString path; ///< as entered, variables unexpanded
    int imageType = ChartChoice::Png;
    int imageWidth = 1024;  ///< pixels
    int imageHeight = 1024; ///< pixels
    int pdfSize = ChartChoice::defaultPdfSize();
    int pdfOrientation = 0;  ///< 0 portrait, 1 landscape
    int pdfResolution = 150; ///< dots per inch
    ChartAxisOptions x{QStringLiteral("$(X)")};
    QString xLabelDateFormat;
    ChartAxisOptions y{QStringLiteral("$(Y)")};
    bool ySameRangeAllFacets = false;
    int theme = 0;
    int titleOption = ChartChoice::AutomaticTitle;
    QString customTitle = QStringLiteral("$(Y) vs $(X)");
    int legendPosition = ChartChoice::AutomaticLegend;
    double lineThickness = 2.0;
    int opacity = 100; ///< percent
    bool showLineDataPoints = false;
    int pointSizeOption = 0;
    double customPointSize = 15.0;

    /// What is declared of each option, in the order of a document's attributes.
    static const OptionFields<ChartOptions> &fields();
};
