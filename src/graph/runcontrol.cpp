#include "graph/runcontrol.h"

#include "platform/memory.h"
#include "settings/settings.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <utility>

bool stopRequested = false;

namespace {

constexpr qint64 readingLifeMs = 100;

struct State
{
    std::function<void()> pump;
    std::function<double()> memoryReader;
    RunControl::MemoryCeilingHook ceilingHook;
    QElapsedTimer sinceReading;
    double usedGiB = 0.0;
    quint64 run = 0;
    int depth = 0; // of runs within runs
    quint64 lastRun = 0;
    quint64 uncountedRows = 0;
};

State &state()
{
    static State instance;
    return instance;
}

} // namespace

const char *MaxMemoryException::what() const noexcept
{
    return "maximum memory exceeded";
}

void RunControl::keepAlive()
{
    if (state().pump) {
        state().pump();
    } else {
        QCoreApplication::processEvents();
    }
}

void RunControl::setKeepAlive(std::function<void()> pump)
{
    state().pump = std::move(pump);
}

double RunControl::memoryUsedGiB()
{
    State &s = state();
    if (s.memoryReader) {
        return s.memoryReader();
    }
    // Asking the system at each progress report would cost more than the report.
    if (!s.sinceReading.isValid() || s.sinceReading.elapsed() >= readingLifeMs) {
        s.usedGiB = platform::privateMemoryGiB();
        s.sinceReading.start();
    }
    return s.usedGiB;
}

void RunControl::setMemoryReader(std::function<double()> reader)
{
    state().memoryReader = std::move(reader);
}

void RunControl::setMemoryCeilingHook(MemoryCeilingHook hook)
{
    state().ceilingHook = std::move(hook);
}

void RunControl::checkMemory()
{
    const double used = memoryUsedGiB();
    const double limit = Settings::current().maxMemoryUsage();
    if (used <= limit) {
        return;
    }
    if (!state().ceilingHook || !state().ceilingHook(used, limit)) {
        throw MaxMemoryException();
    }
    QCoreApplication::processEvents();
}

quint64 RunControl::currentRun()
{
    return state().run;
}

RunControl::RunScope::RunScope()
    : m_outer(state().run)
{
    ++state().depth;
    state().run = ++state().lastRun;
}

RunControl::RunScope::~RunScope()
{
    storeRowCount();
    --state().depth;
    state().run = m_outer;
}

void RunControl::countRows(int rows)
{
    state().uncountedRows += static_cast<quint64>(rows);
    if (state().run == 0) {
        storeRowCount();
    }
}

void RunControl::storeRowCount()
{
    if (state().uncountedRows > 0 && state().depth <= 1) {
        Settings &settings = Settings::current();
        settings.setTotalRowsProcessed(settings.totalRowsProcessed() + state().uncountedRows);
        state().uncountedRows = 0;
    }
}

void RunControl::reset()
{
    state() = State();
    stopRequested = false;
}
