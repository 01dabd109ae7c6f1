#include "charts/chartfile.h"
#include "charts/chartsamples.h"
#include "charts/chartview.h"
#include "charts/chartwidget.h"

#include <QFile>
#include <QFileInfo>
#include <QGraphicsTextItem>
#include <QImageReader>
#include <QPainter>
#include <QTemporaryDir>
#include <QtCharts/QAbstractAxis>
#include <QtCharts/QAbstractBarSeries>
#include <QtCharts/QBarSet>
#include <QtCharts/QCategoryAxis>
#include <QtCharts/QDateTimeAxis>
#include <QtCharts/QLegendMarker>
#include <QtCharts/QLogValueAxis>
#include <QtCharts/QPieSeries>
#include <QtCharts/QValueAxis>
#include <QtCharts/QXYSeries>
#include <gtest/gtest.h>

using namespace ChartChoice;
using namespace QtCharts;

namespace {

QStringList classesOf(const QChart &chart)
{
    QStringList names;
    for (const QAbstractSeries *series : chart.series()) {
        names.append(QString::fromLatin1(series->metaObject()->className()).section(QStringLiteral("::"), -1));
    }
    for (const QAbstractAxis *axis : chart.axes()) {
        names.append(QString::fromLatin1(axis->metaObject()->className()).section(QStringLiteral("::"), -1));
    }
    return names;
}

QImage drawn(const ChartSample &sample, const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    ChartWidget widget;
    widget.rebuild(sample.model(), sample.options);
    QPainter painter(&image);
    widget.drawInto(painter, size);
    return image;
}

} // namespace

TEST(ChartDrawing, SeriesAndAxesOfEachKind)
{
    const QStringList numbers{"x|a|b", "1|10|1", "2|20|2"};
    const struct
    {
        const char *what;
        QStringList lines;
        int type;
        int layout;
        QStringList expected;
    } cases[] = {
        {"scatter", numbers, Scatter, Grouped, {"QScatterSeries", "QScatterSeries", "QValueAxis", "QValueAxis"}},
        {"line of dates", {"x|a", "2024-01-01|1", "2024-02-01|2"}, Line, Grouped,
            {"QLineSeries", "QDateTimeAxis", "QValueAxis"}},
        {"smooth line of texts", {"x|a", "p|1", "q|2"}, SmoothLine, Grouped,
            {"QSplineSeries", "QCategoryAxis", "QValueAxis"}},
        {"area", numbers, Area, Stacked, {"QAreaSeries", "QAreaSeries", "QValueAxis", "QValueAxis"}},
        {"bars", numbers, VerticalBar, Grouped, {"QBarSeries", "QCategoryAxis", "QValueAxis"}},
        {"bars on each other", numbers, VerticalBar, Stacked, {"QStackedBarSeries", "QCategoryAxis", "QValueAxis"}},
        {"lying bars", numbers, HorizontalBar, Grouped, {"QHorizontalBarSeries", "QCategoryAxis", "QValueAxis"}},
        {"lying bars on each other", numbers, HorizontalBar, Stacked,
            {"QHorizontalStackedBarSeries", "QCategoryAxis", "QValueAxis"}},
        {"pie", numbers, Pie, Grouped, {"QPieSeries"}},
        {"rings", numbers, Donut, Stacked, {"QPieSeries", "QPieSeries"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const ChartSample sample(c.lines, c.type, c.layout);
        ChartWidget widget;
        ASSERT_TRUE(widget.rebuild(sample.model(), sample.options));
        ASSERT_EQ(widget.viewCount(), 1);
        EXPECT_EQ(classesOf(*widget.view(0)->chart()), c.expected);
    }
}

TEST(ChartDrawing, OptionsReachTheChart)
{
    ChartSample sample({"<x>|a|b", "1|10|1", "2|20|2"}, Line);
    sample.options.theme = 6;
    sample.options.legendPosition = Right;
    sample.options.lineThickness = 5;
    sample.options.opacity = 40;
    sample.options.showLineDataPoints = true;
    sample.options.pointSizeOption = 1;
    sample.options.customPointSize = 9;
    sample.options.x.titleOption = AutomaticTitle;
    sample.options.x.labelAngle = 30;
    sample.options.x.showGrid = false;
    sample.options.y.show = false;
    ChartWidget widget;
    ASSERT_TRUE(widget.rebuild(sample.model(), sample.options));
    QChart &chart = *widget.view(0)->chart();
    EXPECT_EQ(chart.theme(), QChart::ChartThemeDark);
    EXPECT_EQ(chart.title(), QStringLiteral("a / b vs &lt;x&gt;")) << "names are no markup";
    EXPECT_TRUE(chart.legend()->isVisible());
    EXPECT_EQ(chart.legend()->alignment(), Qt::AlignRight);
    ASSERT_EQ(chart.series().size(), 4) << "two lines and the points of both";
    const auto *line = qobject_cast<QXYSeries *>(chart.series().first());
    EXPECT_EQ(line->pen().widthF(), 5);
    EXPECT_DOUBLE_EQ(line->opacity(), 0.4);
    EXPECT_EQ(qobject_cast<QXYSeries *>(chart.series().at(2))->color(), line->color());
    const QAbstractAxis *x = chart.axes(Qt::Horizontal).first();
    EXPECT_EQ(x->titleText(), QStringLiteral("&lt;x&gt;"));
    EXPECT_EQ(x->labelsAngle(), 30);
    EXPECT_FALSE(x->isGridLineVisible());
    EXPECT_FALSE(chart.axes(Qt::Vertical).first()->isVisible());
}

TEST(ChartDrawing, TheLegendGoesByTheNumberOfSeries)
{
    const struct
    {
        const char *what;
        QStringList lines;
        bool isVisible;
        Qt::Alignment alignment;
    } cases[] = {
        {"one needs none", {"x|a", "1|1", "2|2"}, false, Qt::AlignBottom},
        {"two stand below", {"x|a|b", "1|1|1", "2|2|2"}, true, Qt::AlignBottom},
        {"six stand beside", {"x|a|b|c|d|e|f", "1|1|1|1|1|1|1", "2|2|2|2|2|2|2"}, true, Qt::AlignLeft},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const ChartSample sample(c.lines, Line);
        ChartWidget widget;
        ASSERT_TRUE(widget.rebuild(sample.model(), sample.options));
        const QLegend *legend = widget.view(0)->chart()->legend();
        EXPECT_EQ(legend->isVisible(), c.isVisible);
        EXPECT_EQ(legend->alignment(), c.alignment);
    }
}

TEST(ChartDrawing, LongLegendsCountWhatTheyLeaveOut)
{
    constexpr int count = 100;
    QStringList lines{QStringLiteral("x"), QStringLiteral("1"), QStringLiteral("2")};
    for (int i = 0; i < count; ++i) {
        lines[0] += QStringLiteral("|s%1").arg(i);
        lines[1] += QStringLiteral("|1");
        lines[2] += QStringLiteral("|2");
    }
    const ChartSample sample(lines, Line);
    ChartWidget widget;
    ASSERT_TRUE(widget.rebuild(sample.model(), sample.options));
    QPixmap pixmap(800, 600);
    for (const int height : {600, 300, 600}) {
        QPainter painter(&pixmap);
        widget.drawInto(painter, QSizeF(800, height));
        QStringList shown;
        for (const QLegendMarker *marker : widget.view(0)->chart()->legend()->markers()) {
            if (marker->isVisible()) {
                shown.append(marker->label());
            }
        }
        ASSERT_GT(shown.size(), 5);
        EXPECT_LT(shown.size(), height / 15) << "more have no room";
        EXPECT_EQ(shown.first(), QStringLiteral("s0"));
        EXPECT_EQ(shown.last(), QStringLiteral("+ %1 more").arg(count - shown.size() + 1));
    }
}

TEST(ChartDrawing, LabelsAreThinnedOutRatherThanCutToDots)
{
    const struct
    {
        const char *what;
        int bars;
        QSize size;
        int type;
        int angle;
    } cases[] = {
        {"many standing bars", 400, {800, 600}, VerticalBar, 0},
        {"as many as there may be", 1000, {800, 600}, VerticalBar, 0},
        {"many lying bars", 1000, {800, 600}, HorizontalBar, 0},
        {"a tiny facet", 20, {160, 120}, VerticalBar, 0},
        {"a tiny facet of lying bars", 24, {190, 180}, HorizontalBar, 0},
        {"slanted labels", 24, {800, 600}, VerticalBar, 45},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        QStringList lines{QStringLiteral("x|a")};
        for (int i = 0; i < c.bars; ++i) {
            lines.append(QStringLiteral("name %1|%2").arg(i).arg(i % 7));
        }
        ChartSample sample(lines, c.type);
        sample.options.x.labelAngle = c.angle;
        ChartWidget widget;
        ASSERT_TRUE(widget.rebuild(sample.model(), sample.options));
        QPixmap pixmap(c.size);
        QPainter painter(&pixmap);
        widget.drawInto(painter, c.size);
        int named = 0;
        for (const QGraphicsItem *item : widget.view(0)->scene()->items()) {
            const auto *text = dynamic_cast<const QGraphicsTextItem *>(item);
            if (text && text->isVisible()) {
                EXPECT_NE(text->toPlainText(), QStringLiteral("..."));
                named += text->toPlainText().startsWith(QStringLiteral("name ")) ? 1 : 0;
            }
        }
        EXPECT_GE(named, 3);
    }
}

TEST(ChartDrawing, PicturesHaveTheirColoursWhereTheDataAre)
{
    const ChartSample sample({"x|y", "a|1", "b|1"}, VerticalBar);
    const QImage image = drawn(sample, QSize(800, 600));
    ChartWidget widget;
    widget.rebuild(sample.model(), sample.options);
    const auto *bars = qobject_cast<QAbstractBarSeries *>(widget.view(0)->chart()->series().first());
    const QColor color = bars->barSets().first()->color();
    EXPECT_EQ(QColor(image.pixel(240, 400)), color) << "in the middle of the first bar";
    EXPECT_NE(QColor(image.pixel(430, 400)), color) << "between both";
}

TEST(ChartDrawing, AViewWithoutChartSaysWhy)
{
    ChartWidget widget;
    EXPECT_FALSE(widget.rebuild(ChartSample({"x|y", "1|2"}, NoType).model(), ChartOptions()));
    ASSERT_EQ(widget.viewCount(), 1);
    EXPECT_EQ(widget.view(0)->message(), QStringLiteral("Select a chart type"));
}

TEST(ChartFile, EachTypeIsReadBack)
{
    const QTemporaryDir folder;
    const struct
    {
        const char *what;
        int type;
        const char *name;
        QByteArray format;
    } cases[] = {
        {"PNG", Png, "a.png", "png"},
        {"JPEG", Jpeg, "a.jpeg", "jpeg"},
        {"PDF", Pdf, "a.pdf", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        ChartSample sample({"x|y", "1|2", "2|3"}, Line);
        sample.options.imageType = c.type;
        sample.options.imageWidth = 320;
        sample.options.imageHeight = 200;
        sample.options.pdfSize = 4;
        sample.options.pdfOrientation = 1;
        const QString path = folder.filePath(QLatin1String(c.name));
        const ChartModel model = sample.model();
        for (const char *done : {"Created file '%1'", "Overwrote file '%1'"}) {
            QStringList warnings;
            QStringList infos;
            ASSERT_TRUE(ChartFile(model, sample.options).write(path, warnings, infos));
            EXPECT_EQ(warnings, QStringList());
            EXPECT_EQ(infos, QStringList(QString::fromLatin1(done).arg(path)));
        }
        if (c.type == Pdf) {
            QFile file(path);
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QByteArray content = file.readAll();
            EXPECT_TRUE(content.startsWith("%PDF"));
            EXPECT_TRUE(content.contains("/MediaBox [0 0 842")) << "A4 lying";
        } else {
            QImageReader reader(path);
            EXPECT_EQ(reader.format(), c.format);
            EXPECT_EQ(reader.size(), QSize(320, 200));
        }
    }
}

TEST(ChartFile, WhatCannotBeWrittenIsSaid)
{
    const QTemporaryDir folder;
    const struct
    {
        const char *what;
        const char *name;
        int width;
        bool written;
        const char *warning;
    } cases[] = {
        {"another extension is told of", "a.gif", 100, true, "'%1' extension is 'gif' but image type is PNG"},
        {"a folder that isn't there", "no/a.png", 100, false, "Unable to write to file '%1'"},
        {"no pixels", "b.png", 0, false, "Unable to write to file '%1'"},
        {"far too many pixels", "c.png", 100000000, false, "Unable to write to file '%1'"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        ChartSample sample({"x|y", "1|2", "2|3"}, Line);
        sample.options.imageWidth = c.width;
        sample.options.imageHeight = 100;
        const QString path = folder.filePath(QLatin1String(c.name));
        const ChartModel model = sample.model();
        QStringList warnings;
        QStringList infos;
        EXPECT_EQ(ChartFile(model, sample.options).write(path, warnings, infos), c.written);
        EXPECT_EQ(warnings, QStringList(QString::fromLatin1(c.warning).arg(path)));
        EXPECT_EQ(QFileInfo::exists(path), c.written);
    }
}

TEST(ChartDrawing, HostileDataAreDrawnWithoutHarm)
{
    const struct
    {
        const char *what;
        QStringList lines;
    } cases[] = {
        {"one point", {"x|y", "5|5"}},
        {"all alike", {"x|y", "5|7", "5|7"}},
        {"nothing valid", {"x|y", "1|a"}},
        {"as large as can be", {"x|y", "1e300|-1e300", "-1e300|1e300"}},
        {"as small as can be", {"x|y", "1e-300|1e-300", "2e-300|2e-300"}},
        {"hardly apart", {"x|y", "1e15|1000000000000000.1", "1e15|1000000000000000.2"}},
        {"markup", {"<b>|<img src=x>", "<i>|1", "&amp;|2"}},
    };
    for (const auto &c : cases) {
        for (int type = Scatter; type < TypeCount; ++type) {
            for (const int scale : {Linear, Log10, LogE}) {
                SCOPED_TRACE(
                    std::string(c.what) + ", type " + std::to_string(type) + ", scale " + std::to_string(scale));
                ChartSample sample(c.lines, type);
                sample.options.x.scale = sample.options.y.scale = scale;
                const ChartModel model = sample.model();
                if (model.isDrawn()) {
                    EXPECT_FALSE(drawn(sample, QSize(200, 150)).isNull());
                }
            }
        }
    }
}
