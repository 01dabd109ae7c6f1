#include "document/documentwriter.h"

#include "document/chartfields.h"
#include "document/documentattributes.h"
#include "document/inputfields.h"
#include "document/outputfields.h"
#include "document/scenerecords.h"
#include "graph/graphscene.h"
#include "settings/product.h"
#include "settings/version.h"

#include <QDateTime>
#include <QDir>
#include <QDomDocument>
#include <QLocale>
#include <QRegularExpression>
#include <QSysInfo>

namespace {

QDomElement addChild(QDomElement &parent, const char *tag)
{
    QDomElement child = parent.ownerDocument().createElement(QString::fromLatin1(tag));
    parent.appendChild(child);
    return child;
}

/// One line for support people: which program on which system wrote this, and when.
QString lastSavedBy()
{
    static const QRegularExpression brackets(QStringLiteral("[()]"));
    static const QRegularExpression separators(QStringLiteral("[ :.-]"));
    const QDateTime now = QDateTime::currentDateTime();
    const QString line = QStringLiteral("%1_v%2.%3.%4_on_%5 %6_at_%7 %8")
                             .arg(QString::fromLatin1(Product::name), QString::number(Version::major),
                                 QString::number(Version::minor), QString::number(Version::patch),
                                 QSysInfo::prettyProductName().remove(brackets), QSysInfo::currentCpuArchitecture(),
                                 now.date().toString(Qt::ISODate), now.time().toString(Qt::ISODate));
    return QString(line).replace(separators, QStringLiteral("_"));
}

void writeMeta(const DocumentMeta &meta, QDomElement &root)
{
    QDomElement parent = addChild(root, "meta");
    const auto field = [&parent](const char *name) { return AttributeWriter(addChild(parent, name)); };
    field("version").integer("value", meta.version, 0);
    field("last_saved_by").text("value", lastSavedBy());
    field("locale").text("value", meta.locale);
    field("snap_to_grid").boolean("value", meta.snapToGrid, false);
    field("notes").text("value", meta.notes);
    field("doc_path").text("value", meta.docPath);
    field("auto_run_on").boolean("value", meta.autoRunOn, true);
}

void writeInputs(const QVector<InputRecord> &inputs, QDomElement &root)
{
    QDomElement group = addChild(root, "inputs");
    for (const InputRecord &input : inputs) {
        AttributeWriter writer(addChild(group, "input"));
        writer.integer("id", input.id, -1);
        writer.text("name", input.name);
        inputFields(writer, input);
    }
}

void writeTransforms(const QVector<TransformRecord> &transforms, QDomElement &root)
{
    QDomElement group = addChild(root, "transforms");
    for (const TransformRecord &transform : transforms) {
        QDomElement element = addChild(group, "transform");
        AttributeWriter writer(element);
        writer.integer("id", transform.id, -1);
        writer.text("name", transform.name);
        writer.text("comment", transform.comment);
        writer.point("pos_v12", "pos", transform.position);
        QDomElement parameters = addChild(element, "parameters");
        for (const ParameterRecord &parameter : transform.parameters) {
            AttributeWriter parameterWriter(addChild(parameters, "parameter"));
            parameterWriter.text("name", parameter.name);
            parameterWriter.integer("type", parameter.kind, 0);
            parameterWriter.raw("value", parameter.value);
        }
    }
}

void writeOutputs(const QVector<OutputRecord> &outputs, QDomElement &root)
{
    QDomElement group = addChild(root, "outputs");
    for (const OutputRecord &output : outputs) {
        AttributeWriter writer(addChild(group, "output"));
        writer.integer("id", output.id, -1);
        writer.text("name", output.name);
        outputFields(writer, output);
    }
}

void writeCharts(const QVector<ChartRecord> &charts, QDomElement &root)
{
    QDomElement group = addChild(root, "charts");
    for (const ChartRecord &chart : charts) {
        AttributeWriter writer(addChild(group, "chart"));
        writer.integer("id", chart.id, -1);
        chartFields(writer, chart);
    }
}

void writeNotes(const QVector<NoteRecord> &notes, QDomElement &root)
{
    QDomElement group = addChild(root, "notes");
    for (const NoteRecord &note : notes) {
        AttributeWriter writer(addChild(group, "note"));
        writer.integer("id", note.id, -1);
        writer.text("comment", note.comment);
        writer.point("pos_v12", note.position);
        writer.colour("color", note.color, QColor());
        writer.integer("arrow", note.arrow, 0);
    }
}

void writeConnections(const QVector<ConnectionRecord> &connections, QDomElement &root)
{
    QDomElement group = addChild(root, "connections");
    for (const ConnectionRecord &connection : connections) {
        AttributeWriter writer(addChild(group, "connection"));
        writer.integer("start_id", connection.startId, -1);
        writer.integer("end_id", connection.endId, -1);
    }
}

} // namespace

QDomElement writeDocument(const GraphScene &scene, bool selectedOnly, const DocumentHead &head, QDomDocument &document)
{
    DocumentRecords records = recordsOf(scene, selectedOnly);
    records.meta.locale = QLocale().name();
    records.meta.snapToGrid = scene.snapToGrid();
    records.meta.notes = head.notes;
    records.meta.docPath = QDir::toNativeSeparators(head.path);
    records.meta.autoRunOn = head.autoRunOn;
    return writeRecords(records, document);
}

QDomElement writeRecords(const DocumentRecords &records, QDomDocument &document)
{
    QDomElement root = document.createElement(QStringLiteral("root"));
    document.appendChild(root);
    writeMeta(records.meta, root);
    writeInputs(records.inputs, root);
    writeTransforms(records.transforms, root);
    writeOutputs(records.outputs, root);
    writeCharts(records.charts, root);
    writeNotes(records.notes, root);
    writeConnections(records.connections, root);
    return root;
}

void writeBatchSettings(const BatchSettings &batch, QDomElement &rootElement)
{
    QDomElement values = addChild(rootElement, "batch_values");
    for (auto it = batch.values.constBegin(); it != batch.values.constEnd(); ++it) {
        if (it.value().isEmpty()) {
            continue;
        }
        AttributeWriter writer(addChild(values, "batch_value"));
        writer.integer("row", it.key().first, 0);
        writer.text("alias", it.key().second);
        writer.text("value", it.value());
    }
    AttributeWriter writer(addChild(rootElement, "batch_logging"));
    writer.integer("verbosity", batch.verbosity, 0);
    writer.boolean("enabled", batch.loggingEnabled, false);
    writer.text("path", batch.logPath);
    writer.integer("mode", batch.logMode, 0);
}
