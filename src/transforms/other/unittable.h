#pragma once

#include <QString>
#include <QStringList>
#include <vector>

/// A unit of measurement. A value in the first unit of its dimension times `factor` plus `offset` is the value in this
/// unit.
struct Unit
{
    const char *name;
    double factor;
    double offset;
};

/// What is measured, with its units; the first is the one that all conversions pass through.
struct Dimension
{
    const char *name;
    std::vector<Unit> units;

    /// Null for a name that isn't there.
    const Unit *find(const QString &unitName) const;
    /// In the order of their texts.
    QStringList unitNames() const;
};

/// All dimensions, in the order of their codes.
const std::vector<Dimension> &dimensions();

/// `value` in `from` as a value in `to`, which is of the same dimension.
double converted(double value, const Unit &from, const Unit &to);
