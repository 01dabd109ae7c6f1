#include "graph/graphhooks.h"

GraphHooks &GraphHooks::instance()
{
    static GraphHooks hooks;
    return hooks;
}
