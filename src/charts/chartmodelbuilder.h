#pragma once

#include "charts/chartcolumns.h"
#include "charts/chartmodel.h"
#include "charts/chartoptions.h"
#include "charts/chartvalues.h"

/// Makes of a table and the options of a chart what is to be drawn.
class ChartModelBuilder
{
public:
    ChartModelBuilder(const ChartOptions &options, const ChartColumns &columns, const Dataset &data);

    ChartModel build();

    /// How the X axis reads its column: a value of ChartChoice::XAs other than XAutomatic.
    int effectiveXType() const;
    /// How many pictures the chart has: the Y columns that exist when it is faceted, else one.
    int facetCount() const;
    bool tooManyPoints() const;
    bool tooManyFacetRows() const;
    /// How many points a facet of a chart of this type may have.
    static int maxPoints(int type);

private:
    bool refuse(const QString &line, const QString &warning = QString());
    bool check();
    bool readX();
    bool checkDuplicates();
    ChartFacet facet(const QVector<int> &places) const;
    void addPoints(ChartFacet &facet, const QVector<int> &places) const;
    void addSums(ChartFacet &facet, const QVector<int> &places) const;
    void addRings(ChartFacet &facet, const QVector<int> &places) const;
    void stack(ChartFacet &facet) const;
    QString yNames(const QVector<int> &places) const;
    QString title(int option, const QString &custom, const QString &automatic, const QVector<int> &places) const;
    void warnOfSeries();
    void warnOfOverlap();
    void addAxes(ChartFacet &facet, const QVector<int> &places);
    void shareYRange();

    const ChartOptions &m_options;
    const Dataset &m_data;
    ColumnIndex m_x;
    QVector<ColumnIndex> m_y;
    ChartXValues m_xValues;
    QVector<ChartYValues> m_yValues; // one for each of m_y
    ChartModel m_model;
};
