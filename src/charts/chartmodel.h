#pragma once

#include <QPointF>
#include <QString>
#include <QStringList>
#include <QVector>

/// One axis of a chart as it is to be drawn.
struct ChartAxis
{
    enum Kind { None, Value, Log, Date, Text };

    Kind kind = None;
    double minimum = 0.0; ///< for Date milliseconds since 1970
    double maximum = 1.0;
    double base = 10.0;  ///< of a Log axis
    int tickCount = 6;   ///< of a Value or Date axis, both ends included
    QString labelFormat; ///< as printf has it, empty for what suits the range; for Date as QDate has it
    QStringList texts;   ///< of a Text axis, standing at 0, 1, 2 ...
    QString title;       ///< empty when there is none
};

/// The points of one column. An area lies between them and the base; bars have one point for each text of the X axis.
struct ChartSeries
{
    QString name;
    QVector<QPointF> points;
    QVector<double> base; ///< lower edge of an area, one for each point; empty otherwise
};

struct ChartSlice
{
    QString label;
    double value = 0.0;
};

/// One picture of a chart: all columns, or one of them where a chart is faceted.
struct ChartFacet
{
    QString title; ///< empty when there is none
    ChartAxis x;
    ChartAxis y;
    QList<ChartSeries> series;
    QList<QVector<ChartSlice>> rings; ///< of pies and donuts, innermost first
};

/// What a chart draws and what there is to tell of it: made of data and options, without a widget.
struct ChartModel
{
    QList<ChartFacet> facets;
    /// One line for the place of the picture; empty when there is one.
    QString refusal;
    QStringList warnings;
    QStringList infos;

    bool isDrawn() const { return refusal.isEmpty() && !facets.isEmpty(); }
};
