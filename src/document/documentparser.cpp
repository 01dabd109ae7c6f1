#include "document/documentparser.h"

#include "document/chartfields.h"
#include "document/documentattributes.h"
#include "document/inputfields.h"
#include "document/outputfields.h"

#include <QDomElement>
#include <QSet>

namespace {

/// Ids above this are no ids that the program gave.
constexpr int largestId = 1000000000;

QString metaText(const QDomElement &meta, const char *name)
{
    return AttributeReader(meta.firstChildElement(QLatin1String(name))).stored("value");
}

DocumentMeta parseMeta(const QDomElement &element)
{
    DocumentMeta meta;
    meta.version = DocumentValue::toInteger(metaText(element, "version"), currentDocumentVersion);
    meta.locale = DocumentValue::toText(metaText(element, "locale"));
    meta.snapToGrid = DocumentValue::toInteger(metaText(element, "snap_to_grid"), 0) != 0;
    meta.notes = DocumentValue::toText(metaText(element, "notes"));
    meta.docPath = DocumentValue::toText(metaText(element, "doc_path"));
    meta.autoRunOn = DocumentValue::toInteger(metaText(element, "auto_run_on"), 1) != 0;
    return meta;
}

InputRecord parseInput(const AttributeReader &reader, int version)
{
    InputRecord input;
    inputFields(reader, input);
    if (version < 72 && !reader.stored("ignore_excel_hidden").isNull()) {
        bool hidden = false;
        reader.boolean("ignore_excel_hidden", hidden, false);
        input.options.ignoreHiddenColumns = hidden;
        input.options.ignoreHiddenRows = hidden;
    }
    return input;
}

TransformRecord parseTransform(const AttributeReader &reader, const QDomElement &element, int version)
{
    TransformRecord transform;
    reader.text("name", transform.name);
    reader.text("comment", transform.comment);
    reader.point("pos_v12", "pos", transform.position);
    const QDomElement parameters = element.firstChildElement(QStringLiteral("parameters"));
    const QString tag = QStringLiteral("parameter");
    for (QDomElement e = parameters.firstChildElement(tag); !e.isNull(); e = e.nextSiblingElement(tag)) {
        const AttributeReader parameterReader(e);
        ParameterRecord parameter;
        parameterReader.text("name", parameter.name);
        parameterReader.raw("value", parameter.value);
        repairParameter(transform.name, version, parameter);
        transform.parameters.append(parameter);
    }
    return transform;
}

OutputRecord parseOutput(const AttributeReader &reader, int version)
{
    OutputRecord output;
    outputFields(reader, output);
    if (version < 61 && reader.stored("file_comment").isNull()) {
        output.options.fileComment = OutputOptions::defaultFileComment();
    }
    return output;
}

ChartRecord parseChart(const AttributeReader &reader, int)
{
    ChartRecord chart;
    chartFields(reader, chart);
    return chart;
}

NoteRecord parseNote(const AttributeReader &reader, int)
{
    NoteRecord note;
    reader.text("comment", note.comment);
    reader.point("pos_v12", note.position);
    reader.colour("color", note.color, Qt::white);
    reader.integer("arrow", note.arrow, 0, 0, 4);
    return note;
}

/// The records of all elements `tag` in `group` that have a valid id.
template<class Record, class Parse>
QVector<Record> parseGroup(
    const QDomElement &root, const char *group, const char *tag, DocumentRepairs &repairs, Parse parse)
{
    QVector<Record> records;
    const QString name = QString::fromLatin1(tag);
    QDomElement element = root.firstChildElement(QString::fromLatin1(group)).firstChildElement(name);
    for (; !element.isNull(); element = element.nextSiblingElement(name)) {
        const AttributeReader reader(element);
        int id = -1;
        reader.integer("id", id, -1, 0, largestId);
        if (id >= 0) {
            records.append(parse(reader, element));
            records.last().id = id;
        } else {
            repairs.add(DocumentRepairs::IdOutsideRange, QStringLiteral("%1 '%2'").arg(name, reader.stored("id")));
        }
    }
    return records;
}

QVector<ConnectionRecord> parseConnections(const QDomElement &root)
{
    QVector<ConnectionRecord> connections;
    const QString tag = QStringLiteral("connection");
    QDomElement element = root.firstChildElement(QStringLiteral("connections")).firstChildElement(tag);
    for (; !element.isNull(); element = element.nextSiblingElement(tag)) {
        const AttributeReader reader(element);
        ConnectionRecord connection;
        reader.integer("start_id", connection.startId, -1);
        reader.integer("end_id", connection.endId, -1);
        connections.append(connection);
    }
    return connections;
}

/// Gives each second holder of an id a free one, so that no item is lost; connections mean the first holder.
class IdRepair
{
public:
    template<class Records>
    void note(const Records &records)
    {
        for (const NodeRecord &record : records) {
            m_next = qMax(m_next, record.id + 1);
        }
    }
    template<class Records>
    void apply(Records &records, DocumentRepairs &repairs)
    {
        for (NodeRecord &record : records) {
            if (m_taken.contains(record.id)) {
                const QString before = QString::number(record.id);
                record.id = m_next++;
                repairs.add(DocumentRepairs::IdRepeated,
                    QStringLiteral("%1 is now %2").arg(before, QString::number(record.id)));
            }
            m_taken.insert(record.id);
        }
    }

private:
    int m_next = 0;
    QSet<int> m_taken;
};

void repairIds(DocumentRecords &records)
{
    IdRepair repair;
    repair.note(records.inputs);
    repair.note(records.transforms);
    repair.note(records.outputs);
    repair.note(records.charts);
    repair.note(records.notes);
    repair.apply(records.inputs, records.repairs);
    repair.apply(records.transforms, records.repairs);
    repair.apply(records.outputs, records.repairs);
    repair.apply(records.charts, records.repairs);
    repair.apply(records.notes, records.repairs);
}

} // namespace

DocumentRecords parseDocument(const QDomElement &root)
{
    DocumentRecords records;
    records.meta = parseMeta(root.firstChildElement(QStringLiteral("meta")));
    const int version = records.meta.version;
    records.inputs = parseGroup<InputRecord>(root, "inputs", "input", records.repairs,
        [version](const AttributeReader &reader, const QDomElement &) { return parseInput(reader, version); });
    records.transforms = parseGroup<TransformRecord>(root, "transforms", "transform", records.repairs,
        [version](const AttributeReader &reader, const QDomElement &element) {
            return parseTransform(reader, element, version);
        });
    records.outputs = parseGroup<OutputRecord>(root, "outputs", "output", records.repairs,
        [version](const AttributeReader &reader, const QDomElement &) { return parseOutput(reader, version); });
    records.charts = parseGroup<ChartRecord>(root, "charts", "chart", records.repairs,
        [version](const AttributeReader &reader, const QDomElement &) { return parseChart(reader, version); });
    records.notes = parseGroup<NoteRecord>(root, "notes", "note", records.repairs,
        [version](const AttributeReader &reader, const QDomElement &) { return parseNote(reader, version); });
    records.connections = parseConnections(root);
    repairIds(records);
    return records;
}

BatchSettings parseBatchSettings(const QDomElement &root, int version)
{
    BatchSettings batch;
    const QString tag = QStringLiteral("batch_value");
    QDomElement element = root.firstChildElement(QStringLiteral("batch_values")).firstChildElement(tag);
    for (; !element.isNull(); element = element.nextSiblingElement(tag)) {
        const AttributeReader reader(element);
        int row = 0;
        QString alias;
        QString value;
        reader.integer("row", row, 0);
        reader.text("alias", alias);
        reader.text("value", value);
        if (row >= 0 && row < BatchSettings::maxRows && !alias.isEmpty()) {
            batch.values.insert({row, alias}, value);
        }
    }
    const QDomElement logging = root.firstChildElement(QStringLiteral("batch_logging"));
    if (logging.isNull()) {
        return batch;
    }
    const AttributeReader reader(logging);
    if (version < 84) {
        int verbose = 0;
        reader.integer("verbose", verbose, 0);
        batch.verbosity = verbose == 0 ? 1 : 2;
    } else {
        reader.integer("verbosity", batch.verbosity, 2, 0, BatchSettings::maxVerbosity);
    }
    reader.boolean("enabled", batch.loggingEnabled, false);
    reader.text("path", batch.logPath);
    reader.integer("mode", batch.logMode, BatchSettings::Append, BatchSettings::Append, BatchSettings::Overwrite);
    return batch;
}
