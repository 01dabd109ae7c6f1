#include "panes/widgets/columnlist.h"

#include "data/dataset.h"
#include "data/datasource.h"

ColumnList ColumnList::of(const DataSource *source)
{
    if (!source) {
        return {};
    }
    const Dataset &dataset = source->datasetConst();
    return {dataset.columnNames(), dataset.columnIds()};
}
