#pragma once

#include <vector>

/// Figures of lists of numbers, given from `begin` to before `end`. No number may be NaN. Sums go from the first to the
/// last number, so that a list always gives the same result.
namespace Statistics {

double sum(const double *begin, const double *end);
/// 0 for no numbers, as the others.
double mean(const double *begin, const double *end);
/// The middle number, or the mean of the two in the middle. Changes the order of the list.
double median(double *begin, double *end);
/// All numbers that come most often, ascending. Sorts the list.
std::vector<double> modes(double *begin, double *end);
/// Of a sample: squares are divided by one less than their number. 0 for fewer than two numbers.
double standardDeviation(const double *begin, const double *end);

} // namespace Statistics
