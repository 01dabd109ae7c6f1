#include "graph/nodefactory.h"

NodeFactory &NodeFactory::instance()
{
    static NodeFactory factory;
    return factory;
}
