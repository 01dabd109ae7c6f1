#pragma once

#include "inputs/inputschema.h"

#include <QStringList>

class Dataset;

/// Compares a table that was read with the columns that are expected, brings it into their order where the schema
/// wants that, and gathers what there is to tell. One check checks once.
class SchemaCheck
{
public:
    explicit SchemaCheck(const InputSchema &schema)
        : m_schema(schema)
    {
    }

    /// True when the table may go on; it may then have other columns. A table that fails stays as it was. Column ids
    /// go with their columns; drill-down and issues stay behind when columns change.
    bool run(Dataset *dataset);

    const QStringList &infos() const { return m_infos; }
    const QStringList &warnings() const { return m_warnings; }

private:
    struct Columns;
    void placeExpected(Columns &columns, int place);
    void addMissing(Columns &columns, int place);
    void placeExtra(Columns &columns, int source);
    void tellColumns(const QStringList &names, const QStringList &statuses);

    const InputSchema m_schema;
    QStringList m_infos;
    QStringList m_warnings;
};
