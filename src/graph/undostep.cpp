#include "graph/undostep.h"

#include <utility>

bool UndoStep::s_open = false;

namespace {

struct Hooks
{
    std::function<void(const QString &)> begin;
    std::function<void()> end;
};

Hooks &hooks()
{
    static Hooks instance;
    return instance;
}

} // namespace

UndoStep::UndoStep(const QString &hint)
    : m_outermost(!s_open)
{
    if (!m_outermost) {
        return;
    }
    if (hooks().begin) {
        hooks().begin(hint);
    }
    s_open = true;
}

UndoStep::~UndoStep()
{
    if (!m_outermost) {
        return;
    }
    s_open = false;
    if (hooks().end) {
        hooks().end();
    }
}

void UndoStep::install(std::function<void(const QString &hint)> begin, std::function<void()> end)
{
    hooks().begin = std::move(begin);
    hooks().end = std::move(end);
}
