#include "graph/transformnode.h"

#include "data/datasource.h"
#include "graph/colors.h"
#include "graph/connection.h"
#include "graph/nodepainter.h"
#include "settings/settings.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QUrl>
#include <limits>

namespace {

QList<DataSource *> asSources(const QList<Node *> &nodes)
{
    QList<DataSource *> sources;
    for (Node *node : nodes) {
        sources.append(node);
    }
    return sources;
}

} // namespace

TransformNode::TransformNode(Transform *transform, int id)
    : Node(id)
    , m_transform(transform)
{
    connect(transform, &Transform::processed, this, &Node::onProcessed);
}

TransformNode::~TransformNode() = default;

Node *TransformNode::cloneKind() const
{
    return new TransformNode(m_transform->clone(), id());
}

// What the transform says

QString TransformNode::name() const
{
    return m_transform->displayName();
}

QString TransformNode::typeName() const
{
    return m_transform->typeName();
}

QString TransformNode::description() const
{
    return m_transform->description();
}

QString TransformNode::helpPage() const
{
    return m_transform->typeName();
}

QString TransformNode::imageName() const
{
    return m_transform->imageName();
}

QString TransformNode::resultText() const
{
    return m_transform->resultText();
}

QStringList TransformNode::warnings() const
{
    return m_warnings + m_transform->warnings();
}

QStringList TransformNode::infos() const
{
    return m_infos + m_transform->infos();
}

int TransformNode::minInputs() const
{
    return m_transform->minInputs();
}

int TransformNode::maxInputs() const
{
    return m_transform->maxInputs();
}

InfoRows TransformNode::kindRows() const
{
    return {{QStringLiteral("Connections in"), QString::number(connections(Direction::Incoming).size())},
        {QStringLiteral("Connections out"), QString::number(connections(Direction::Outgoing).size())},
        {QStringLiteral("Transform type"), Transform::categoryName(m_transform->category(), false)},
        {QStringLiteral("Description"), description()}, {QStringLiteral("Result"), resultText()}};
}

InfoRows TransformNode::optionRows() const
{
    QSet<QString> inactive;
    for (const auto &state : m_transform->parameterStates()) {
        if (!state.second) {
            inactive.insert(state.first);
        }
    }
    InfoRows rows;
    for (const Parameter *parameter : m_transform->parameters()) {
        if (parameter->kind() != Parameter::Label && !inactive.contains(parameter->name())) {
            rows.append({parameter->label(), parameter->summary()});
        }
    }
    return rows;
}

QVariantList TransformNode::summaryRow() const
{
    QVariantList row = Node::summaryRow();
    row.append(typeName());
    for (const Parameter *parameter : m_transform->parameters()) {
        row.append(parameter->hasDeferredText() ? QVariant(parameter->toDocumentText()) : parameter->value());
    }
    return row;
}

// Inputs and columns

void TransformNode::setInputsChanged(bool connected)
{
    m_transform->setInputs(asSources(upstreamNodes(true)));
    if (!connected) {
        return;
    }
    // An option that lists the columns to keep means those of what was connected before.
    for (Parameter *parameter : m_transform->parameters()) {
        if (parameter->kind() == Parameter::RemoveColumns) {
            parameter->selectAllColumns();
        }
    }
    refreshColumnOptions();
}

bool TransformNode::updateInputOrder()
{
    return m_transform->updateInputOrder(asSources(upstreamNodes(true)));
}

void TransformNode::beforeProcess()
{
    for (Parameter *parameter : m_transform->parameters()) {
        parameter->resolveDeferred();
    }
}

void TransformNode::prepareRun()
{
    for (Parameter *parameter : m_transform->parameters()) {
        parameter->reconnectColumns(m_warnings, m_infos);
    }
}

void TransformNode::refreshColumnOptions()
{
    allowReconnect();
    Node::refreshColumnOptions();
}

void TransformNode::allowReconnect()
{
    for (Parameter *parameter : m_transform->parameters()) {
        parameter->allowReconnect();
    }
}

/// Of documents as this program writes them.
constexpr int presentVersion = std::numeric_limits<int>::max();

void TransformNode::takeColumnsAsText(const Node &original)
{
    const auto &other = static_cast<const TransformNode &>(original);
    for (const Parameter *parameter : other.m_transform->parameters()) {
        if (parameter->dependsOnColumns()) {
            // Documents hold the text encoded; whoever reads one has decoded it.
            const QString text = QUrl::fromPercentEncoding(parameter->toDocumentText().toUtf8());
            m_transform->parameter(parameter->name())->setDeferredText(text, presentVersion);
        }
    }
}

void TransformNode::remapColumnIds(const QHash<ColumnId, ColumnId> &map)
{
    for (Parameter *parameter : m_transform->parameters()) {
        parameter->remapColumnIds(map);
    }
}

int TransformNode::columnOptionsInUse(const Node *source) const
{
    int count = 0;
    for (const Parameter *parameter : m_transform->parameters()) {
        const bool concerned = !source || parameter->node() == static_cast<const DataSource *>(source);
        if (concerned && parameter->dependsOnColumns() && !parameter->referencedColumns().isEmpty()) {
            ++count;
        }
    }
    return count;
}

void TransformNode::removeConnection(Connection *connection)
{
    // Another connection from the same node may still be there.
    if (connection->to() == this && upstreamNodes(false).count(connection->from()) == 1) {
        for (Parameter *parameter : m_transform->parametersForNode(connection->from())) {
            parameter->clearNode();
        }
    }
    Node::removeConnection(connection);
}

// Running

bool TransformNode::produce()
{
    const QList<Node *> inputs = upstreamNodes(true);
    m_transform->clearMessages();
    bool failed = false;
    m_dataset = m_transform->run(asSources(inputs), &failed);
    if (!m_transform->hasDrilldown()) {
        m_dataset.clearDrilldown();
    }
    if (!m_transform->isVerify()) {
        m_dataset.clearIssues();
    }
    m_transform->checkOptions();
    warnOfWrongInputs(inputs.size());
    return !failed;
}

void TransformNode::warnOfWrongInputs(int count)
{
    const int least = minInputs();
    const int most = maxInputs();
    if (count >= least && count <= most) {
        return;
    }
    if (least == most) {
        m_warnings.append(QStringLiteral("%1 upstream %2 expected")
                              .arg(QString::number(least),
                                  least == 1 ? QStringLiteral("connection") : QStringLiteral("connections")));
    } else if (count < least) {
        m_warnings.append(QStringLiteral("At least %1 upstream connections expected").arg(least));
    } else {
        m_warnings.append(QStringLiteral("At most %1 upstream connections expected").arg(most));
    }
}

// Look

QColor TransformNode::borderColor() const
{
    return colors().color(Colors::TransformBorder);
}

QColor TransformNode::boxColor() const
{
    return colors().color(Colors::TransformBox);
}

QColor TransformNode::textColor() const
{
    return colors().color(Colors::TransformText);
}

void TransformNode::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    Node::paint(painter, option, widget);
    if (Settings::current().showChanges() && state() == NodeState::Processed) {
        paintChanges(painter);
    }
}

void TransformNode::paintChanges(QPainter *painter) const
{
    const QList<Node *> sources = upstreamNodes(true);
    if (sources.isEmpty() || sources.size() > 2) {
        return;
    }
    NodePainter::drawChanges(
        *painter, *this, rowCount() - sources.first()->rowCount(), columnCount() - sources.first()->columnCount());
}
