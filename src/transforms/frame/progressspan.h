#pragma once

/// The stretch of a run's progress that one of its steps takes; both ends from 0 to 1.
struct ProgressSpan
{
    double begin = 0.0;
    double end = 1.0;

    /// The progress of the whole run when `done` of the step's `all` are done.
    double at(int done, int all) const { return begin + (end - begin) * done / all; }
};
