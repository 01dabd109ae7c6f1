#include "inputs/schemacheck.h"

#include "data/columnbuilder.h"
#include "data/dataset.h"

#include <QHash>

namespace {

QString shown(int column)
{
    return QString::number(column + 1);
}

} // namespace

/// A check under way: the table that was read, the one being made of it, and what became of the columns of both.
struct SchemaCheck::Columns
{
    explicit Columns(const Dataset &table)
        : input(table)
        , names(table.columnNames())
        , statuses(emptyTexts(table.columnCount()))
        , isUsed(table.columnCount())
    {
        output.setHasHeader(table.hasHeader());
        // The last is entered first, so that the first comes out first.
        for (int i = names.size() - 1; i >= 0; --i) {
            placesOfName[names.at(i)].append(i);
        }
    }

    static QStringList emptyTexts(int count)
    {
        QStringList texts;
        for (int i = 0; i < count; ++i) {
            texts.append(QString());
        }
        return texts;
    }

    /// The first column of that name that isn't used yet, -1 for none.
    int take(const QString &name)
    {
        const auto places = placesOfName.find(name);
        if (places == placesOfName.end() || places->isEmpty()) {
            return -1;
        }
        const int source = places->takeLast();
        isUsed[source] = true;
        return source;
    }

    void copy(int source, const QString &status)
    {
        const QString name = input.header().value(source);
        // A name that is only the column's number would change with the place.
        const bool keepsPlace = output.columnCount() == source;
        output.appendColumn(input.column(ColumnIndex(source)), name.isEmpty() && !keepsPlace ? names.at(source) : name,
            input.columnId(ColumnIndex(source)));
        outputStatuses.append(status);
    }

    const Dataset &input;
    const QStringList names;
    QStringList statuses; // by input column
    QVector<bool> isUsed;
    QHash<QString, QVector<int>> placesOfName; // of the columns that aren't used yet, from the last to the first
    Dataset output;
    QStringList outputStatuses;
    int nextPlace = 0; // of what follows in the output, 0-based
    bool ok = true;
};

bool SchemaCheck::run(Dataset *dataset)
{
    if (!m_schema.inUse) {
        return true;
    }
    if (dataset->columnNames() == m_schema.columnNames) {
        m_infos.append(QStringLiteral("Input matches schema"));
        return true;
    }
    Columns columns(*dataset);
    for (int place = 0; place < m_schema.columnNames.size(); ++place) {
        placeExpected(columns, place);
    }
    columns.nextPlace = m_schema.columnNames.size();
    for (int source = 0; source < columns.names.size(); ++source) {
        if (!columns.isUsed.at(source)) {
            placeExtra(columns, source);
        }
    }
    m_infos.append(QStringLiteral("Input does not match schema"));
    m_infos.append(QStringLiteral("Before schema:"));
    tellColumns(columns.names, columns.statuses);
    if (!columns.ok) {
        m_warnings.append(QStringLiteral("Schema validation failed"));
        return false;
    }
    m_infos.append(QStringLiteral("After schema:"));
    tellColumns(columns.output.columnNames(), columns.outputStatuses);
    *dataset = columns.output;
    return true;
}

void SchemaCheck::placeExpected(Columns &columns, int place)
{
    const QString &name = m_schema.columnNames.at(place);
    const int source = columns.take(name);
    if (source < 0) {
        addMissing(columns, place);
    } else if (source == place) {
        columns.statuses[source] = QStringLiteral("No change");
        columns.copy(source, columns.statuses.at(source));
    } else if (m_schema.reorderMode == InputSchema::OrderIsError) {
        columns.statuses[source] = QStringLiteral("Out of order");
        m_warnings.append(QStringLiteral("Schema error: Column '%1' at position %2 when %3 expected")
                              .arg(name, shown(source), shown(place)));
        columns.ok = false;
    } else {
        columns.statuses[source] = QStringLiteral("Out of order, moved to position %1").arg(shown(place));
        columns.copy(source, QStringLiteral("Out of order, moved from position %1").arg(shown(source)));
        m_warnings.append(QStringLiteral("Schema change: Moved column '%1' from position %2 to position %3")
                              .arg(name, shown(source), shown(place)));
    }
}

void SchemaCheck::addMissing(Columns &columns, int place)
{
    const QString &name = m_schema.columnNames.at(place);
    if (m_schema.missingMode == InputSchema::MissingIsError) {
        m_warnings.append(QStringLiteral("Schema error: Missing column '%1'").arg(name));
        columns.ok = false;
        return;
    }
    const QString value = m_schema.missingValue(place);
    columns.output.appendColumn(ColumnBuilder::filled(value, columns.input.rowCount()), name);
    columns.outputStatuses.append(QStringLiteral("Added missing"));
    m_warnings.append(QStringLiteral("Schema change: Added missing column '%1' with values '%2' to position %3")
                          .arg(name, value, shown(place)));
}

void SchemaCheck::placeExtra(Columns &columns, int source)
{
    const QString &name = columns.names.at(source);
    if (m_schema.extraMode == InputSchema::ExtraIsError) {
        columns.statuses[source] = QStringLiteral("Extra");
        m_warnings.append(QStringLiteral("Schema error: Extra column '%1' at position %2").arg(name, shown(source)));
        columns.ok = false;
    } else if (m_schema.extraMode == InputSchema::IgnoreExtra) {
        columns.statuses[source] = QStringLiteral("Ignored");
        m_warnings.append(
            QStringLiteral("Schema change: Ignored extra column '%1' at position %2").arg(name, shown(source)));
    } else {
        const QString place = shown(columns.nextPlace++);
        columns.statuses[source] = QStringLiteral("Extra, added to position %1").arg(place);
        columns.copy(source, QStringLiteral("Extra, added from position %1").arg(shown(source)));
        m_warnings.append(QStringLiteral("Schema change: Added extra column '%1' from position %2 to position %3")
                              .arg(name, shown(source), place));
    }
}

void SchemaCheck::tellColumns(const QStringList &names, const QStringList &statuses)
{
    for (int i = 0; i < names.size(); ++i) {
        const QString status = statuses.at(i).isEmpty() ? QString() : QStringLiteral(" [%1]").arg(statuses.at(i));
        m_infos.append(QStringLiteral("Column position=%1 name='%2'%3").arg(shown(i), names.at(i), status));
    }
}
