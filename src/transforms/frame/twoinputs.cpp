#include "transforms/frame/twoinputs.h"

#include "data/dataset.h"
#include "data/datasource.h"
#include "transforms/options/parameter.h"

namespace TwoInputs {

QString connectSecond()
{
    return QStringLiteral("Connect a second dataset");
}

bool swapWhenCrossed(Parameter *top, Parameter *bottom)
{
    if (!top || !bottom || !top->node() || !bottom->node()
        || top->node()->sourcePosition().y() <= bottom->node()->sourcePosition().y()) {
        return false;
    }
    top->swapInput(*bottom);
    return true;
}

void nameSideBySide(Dataset &result, const Dataset &top, const Dataset &bottom)
{
    if (!result.hasColumns()) {
        return;
    }
    result.setColumnIds(top.columnIds() + bottom.columnIds());
    if (top.hasHeader() || bottom.hasHeader()) {
        result.setHeader(top.columnNames() + bottom.columnNames());
    }
    result.clearDuplicateColumnIds();
}

} // namespace TwoInputs
