#include "document/documentbuilder.h"

#include "charts/chartnode.h"
#include "document/connectionfilter.h"
#include "document/documentparser.h"
#include "document/missingtransforms.h"
#include "document/pathrelocation.h"
#include "graph/graphscene.h"
#include "graph/notenode.h"
#include "graph/transformnode.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"
#include "settings/settings.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QDomDocument>
#include <QFileInfo>
#include <QSet>
#include <algorithm>

namespace {

QString extensionOf(const QString &path)
{
    return QFileInfo(path).suffix().toLower();
}

int knownOrDelimited(int type)
{
    return type < 0 || type >= FileType::None ? FileType::Delimited : type;
}

/// Makes the nodes of one document and joins them.
class DocumentBuilder
{
public:
    DocumentBuilder(const DocumentRecords &records, GraphScene &scene, const QString &docPath)
        : m_records(records)
        , m_scene(scene)
        , m_relocation(records.meta.docPath, docPath)
        , m_repairs(records.repairs)
    {
    }

    DocumentContents build()
    {
        addInputs();
        addTransforms();
        addOutputs();
        addCharts();
        addNotes();
        connectNodes();
        createParameters();
        return contents();
    }

private:
    void add(Node *node, const NodeRecord &record)
    {
        node->setComment(record.comment);
        node->setFlagged(false);
        m_scene.insertNode(node, record.position);
        m_nodes.insert(record.id, node);
    }

    void fillAlias(Node *node, const QString &path)
    {
        if (node->alias().isEmpty() && !path.isEmpty()) {
            node->setAlias(m_scene.uniqueAlias(path));
        }
    }

    void addInputs();
    void addTransforms();
    void addOutputs();
    void addCharts();
    void addNotes();
    bool isPossible(const ConnectionRecord &connection);
    void connectNodes();
    void createParameters();
    DocumentContents contents() const;

    const DocumentRecords &m_records;
    GraphScene &m_scene;
    PathRelocation m_relocation;
    MissingTransforms m_missing;
    DocumentRepairs m_repairs;
    QSet<int> m_missingIds; ///< of transforms that the program doesn't have
    QList<Node *> m_nodesInCircles;
    QHash<int, Node *> m_nodes;
};

/// The type that a document leaves open follows the name of what is read, once that is cleaned, else the look of its
/// text.
int inputType(const InputOptions &options)
{
    if (options.fileType >= 0 && options.fileType < FileType::None) {
        return options.fileType;
    }
    const bool byMatch = options.medium == Medium::Folder && options.path.isEmpty();
    const QString name = byMatch ? options.folder.fileMatch : options.path;
    if (name.isEmpty()) {
        return InputOptions::fileTypeOfText(options.text);
    }
    return knownOrDelimited(Settings::current().inputTypeOf(extensionOf(name)));
}

/// The same for an output to `path`.
int outputType(int fileType, const QString &path)
{
    if (fileType >= 0 && fileType < FileType::None) {
        return fileType;
    }
    return knownOrDelimited(Settings::current().outputTypeOf(extensionOf(path)));
}

void DocumentBuilder::addInputs()
{
    QList<InputNode *> added;
    for (const InputRecord &record : m_records.inputs) {
        InputOptions options = record.options;
        options.path = m_relocation.existing(PathRelocation::cleaned(options.path));
        options.fileType = inputType(options);
        options.folder.folder = m_relocation.existing(PathRelocation::cleaned(options.folder.folder));
        if (options.medium == Medium::Folder && options.folder.folder.isEmpty()) {
            options.folder.folder = options.path;
        }
        auto *node = new InputNode(options, record.id);
        node->setAlias(record.alias);
        add(node, record);
        added.append(node);
    }
    for (InputNode *node : qAsConst(added)) {
        fillAlias(node, node->path());
    }
}

void DocumentBuilder::addTransforms()
{
    for (const TransformRecord &record : m_records.transforms) {
        Transform *transform = Catalogue::create(record.name);
        if (transform) {
            add(new TransformNode(transform, record.id), record);
        } else {
            m_missing.add(record.name);
            m_missingIds.insert(record.id);
        }
    }
}

void DocumentBuilder::addOutputs()
{
    QList<OutputNode *> added;
    for (const OutputRecord &record : m_records.outputs) {
        OutputOptions options = record.options;
        options.path = m_relocation.writable(PathRelocation::cleaned(options.path));
        options.fileType = outputType(options.fileType, options.path);
        auto *node = new OutputNode(options.path, options.fileType, record.id);
        node->setOptions(options);
        node->setAlias(record.alias);
        node->columns().setStored(record.multiFileColumn, record.excelFormats, record.jsonTypes);
        add(node, record);
        added.append(node);
    }
    for (OutputNode *node : qAsConst(added)) {
        fillAlias(node, node->path());
    }
}

void DocumentBuilder::addCharts()
{
    QList<ChartNode *> added;
    for (const ChartRecord &record : m_records.charts) {
        ChartOptions options = record.options;
        options.path = m_relocation.writable(PathRelocation::cleaned(options.path));
        auto *node = new ChartNode(options, record.id);
        node->setStoredColumns(record.xColumn, record.yColumns);
        node->setAlias(record.alias);
        add(node, record);
        added.append(node);
    }
    for (ChartNode *node : qAsConst(added)) {
        fillAlias(node, node->path());
    }
}

void DocumentBuilder::addNotes()
{
    for (const NoteRecord &record : m_records.notes) {
        auto *node = new NoteNode(static_cast<NoteArrow::Arrow>(record.arrow), record.id);
        node->setColor(record.color);
        add(node, record);
    }
}

/// Tells of a connection that isn't.
bool DocumentBuilder::isPossible(const ConnectionRecord &connection)
{
    const Node *from = m_nodes.value(connection.startId);
    const Node *to = m_nodes.value(connection.endId);
    const auto refuse = [&](DocumentRepairs::Kind kind) {
        m_repairs.addConnection(kind, connection.startId, connection.endId);
        return false;
    };
    if (!from || !to) {
        // What becomes of a transform that isn't added is told already.
        const bool isTold = m_missingIds.contains(connection.startId) || m_missingIds.contains(connection.endId);
        return isTold ? false : refuse(DocumentRepairs::ConnectionWithoutItem);
    }
    if (to->maxInputs() == 0) {
        return refuse(DocumentRepairs::ConnectionIntoInput);
    }
    return from->maxOutputs() > 0 || refuse(DocumentRepairs::ConnectionOutOfEnd);
}

void DocumentBuilder::connectNodes()
{
    QVector<ConnectionRecord> possible;
    for (const ConnectionRecord &connection : m_records.connections) {
        if (isPossible(connection)) {
            possible.append(connection);
        }
    }
    const FilteredConnections filtered = filterConnections(possible);
    for (const ConnectionRecord &connection : filtered.kept) {
        m_scene.insertConnection(m_nodes.value(connection.startId), m_nodes.value(connection.endId));
    }
    for (const ConnectionRecord &connection : filtered.repeated) {
        m_repairs.addConnection(DocumentRepairs::ConnectionRepeated, connection.startId, connection.endId);
    }
    for (const ConnectionRecord &connection : filtered.closingCircles) {
        m_repairs.addConnection(DocumentRepairs::ConnectionClosingCircle, connection.startId, connection.endId);
    }
    for (int id : filtered.idsInCircles) {
        m_repairs.add(DocumentRepairs::ItemInCircle, m_nodes.value(id)->labelWithId());
        m_nodesInCircles.append(m_nodes.value(id));
    }
}

void DocumentBuilder::createParameters()
{
    for (const TransformRecord &record : m_records.transforms) {
        auto *node = qobject_cast<TransformNode *>(m_nodes.value(record.id));
        if (!node) {
            continue;
        }
        QList<DataSource *> inputs;
        const QList<Node *> upstream = node->upstreamNodes(true);
        for (Node *input : upstream) {
            inputs.append(input);
        }
        Transform *transform = node->transform();
        transform->createParameters(inputs, false);
        for (const ParameterRecord &stored : record.parameters) {
            if (Parameter *parameter = transform->parameter(stored.name)) {
                parameter->setDeferredText(stored.value, m_records.meta.version);
            }
        }
    }
}

DocumentContents DocumentBuilder::contents() const
{
    const DocumentMeta &meta = m_records.meta;
    DocumentContents contents;
    contents.version = meta.version;
    contents.locale = meta.locale;
    contents.notes = meta.notes;
    contents.snapToGrid = meta.snapToGrid;
    contents.autoRunOn = meta.autoRunOn;
    contents.laterVersion = meta.version > currentDocumentVersion;
    contents.relocated = m_relocation.hasRelocated();
    contents.notAdded = m_missing.message();
    contents.repairs = m_repairs.lines();
    contents.nodesInCircles = m_nodesInCircles;
    contents.nodes = m_nodes.values();
    std::sort(
        contents.nodes.begin(), contents.nodes.end(), [](const Node *a, const Node *b) { return a->id() < b->id(); });
    contents.nodesById = m_nodes;
    return contents;
}

} // namespace

DocumentContents readDocument(const QDomDocument &document, GraphScene &scene, const QString &docPath)
{
    return buildDocument(parseDocument(document.documentElement()), scene, docPath);
}

DocumentContents buildDocument(const DocumentRecords &records, GraphScene &scene, const QString &docPath)
{
    return DocumentBuilder(records, scene, docPath).build();
}
