#pragma once

#include "charts/chartmodel.h"
#include "charts/chartoptions.h"

class QIODevice;

/// Writes the picture of a chart to a file.
class ChartFile
{
public:
    /// `model` must be drawn.
    ChartFile(const ChartModel &model, const ChartOptions &options);

    /// Writes to `path`, without variables, in the type that the options say. False when that can't be done; adds what
    /// there is to tell to `warnings` and `infos`.
    bool write(const QString &path, QStringList &warnings, QStringList &infos) const;

private:
    bool writeImage(QIODevice &device) const;
    bool writePdf(QIODevice &device) const;
    void warnOfOtherType(const QString &path, QStringList &warnings) const;

    const ChartModel &m_model;
    const ChartOptions &m_options;
};
