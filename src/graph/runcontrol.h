#pragma once

#include <QtGlobal>
#include <exception>
#include <functional>

/// Set when the user asks a run to stop; read on entry of each node's process, between nodes and between files.
extern bool stopRequested;

/// Thrown out of a run when the memory ceiling is passed and the program shall end.
class MaxMemoryException : public std::exception
{
public:
    const char *what() const noexcept override;
};

/// What a run needs of the program around it: the event pump and the guard of the memory ceiling. Each has a default
/// that works without a window; Application and tests install their own.
namespace RunControl {

/// Lets queued events in, so that the window stays alive; by default QCoreApplication::processEvents().
void keepAlive();
void setKeepAlive(std::function<void()> pump);

/// Private memory of the process in GiB; by default what the platform says, read anew at most every 100 ms.
double memoryUsedGiB();
void setMemoryReader(std::function<double()> reader);

/// Asked when `used` is above `limit` (both GiB). True goes on, the hook having raised the setting; false ends the
/// program. Without a hook the answer is false.
using MemoryCeilingHook = std::function<bool(double used, double limit)>;
void setMemoryCeilingHook(MemoryCeilingHook hook);

/// Compares the memory in use with the ceiling of the settings; throws MaxMemoryException when the program shall end.
void checkMemory();

/// Number of the run under way, 0 between runs. A node that was walked through once needn't be again in the same run.
quint64 currentRun();

/// A run is under way while this lives, which may lie within another: a batch is a run that has runs.
class RunScope
{
public:
    RunScope();
    ~RunScope();
    RunScope(const RunScope &) = delete;
    RunScope &operator=(const RunScope &) = delete;

private:
    const quint64 m_outer;
};

/// Adds to the total of the settings; in a run at its end, since each write to the store costs a trip to the disk.
void countRows(int rows);
/// Writes what countRows() has gathered, but for runs within a run, of which there may be thousands.
void storeRowCount();

/// Puts the defaults back, for tests.
void reset();

} // namespace RunControl
