#include "charts/chartnode.h"

#include "charts/chartfile.h"
#include "charts/chartmodelbuilder.h"
#include "graph/colors.h"
#include "graph/graphscene.h"
#include "outputnode/filenamecontext.h"
#include "settings/optionwalk.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace {

QVariantList columnValues(const ChartColumns &columns)
{
    QVariantList values{columns.x().nodeId(), columns.x().serial()};
    for (ColumnId id : columns.y()) {
        values << id.nodeId() << id.serial();
    }
    return values;
}

} // namespace

ChartNode::ChartNode(const ChartOptions &options, int id)
    : Node(id)
    , m_options(options)
{
}

void ChartNode::setOptions(const ChartOptions &options)
{
    m_options = options;
    update();
}

void ChartNode::setPath(const QString &path)
{
    m_options.path = path;
    setState(NodeState::NeedsProcessing, false);
    update();
}

const Dataset *ChartNode::upstreamDataset() const
{
    const QList<Node *> upstream = upstreamNodes(false);
    return upstream.isEmpty() ? nullptr : &upstream.first()->datasetConst();
}

QString ChartNode::storedXColumn() const
{
    return m_columns.storedX(upstreamDataset());
}

QString ChartNode::storedYColumns() const
{
    return m_columns.storedY(upstreamDataset());
}

Node *ChartNode::cloneKind() const
{
    auto *copy = new ChartNode(m_options, id());
    copy->m_columns = m_columns;
    return copy;
}

void ChartNode::takeColumnsAsText(const Node &original)
{
    const auto &other = static_cast<const ChartNode &>(original);
    m_columns.setStored(other.storedXColumn(), other.storedYColumns());
}

QString ChartNode::name() const
{
    return m_options.type == ChartChoice::NoType ? kindName() : ChartChoice::typeLabel(m_options.type);
}

QString ChartNode::listName() const
{
    const QString fileName = QFileInfo(m_options.path).fileName();
    return m_options.writeFile && !fileName.isEmpty() ? fileName : name();
}

QString ChartNode::description() const
{
    return QStringLiteral("Output to %1.").arg(QStringLiteral("Chart"));
}

QString ChartNode::helpPage() const
{
    return QStringLiteral("Chart_data");
}

QString ChartNode::resultText() const
{
    const bool failed = state() == NodeState::Failed;
    if (m_options.writeFile && (!failed || m_model.isDrawn())) {
        return failed ? QStringLiteral("Error writing") : QStringLiteral("Written");
    }
    return failed ? QStringLiteral("Error plotting") : QStringLiteral("Plotted");
}

bool ChartNode::isEmpty() const
{
    const Dataset *upstream = upstreamDataset();
    return !upstream || upstream->isEmpty();
}

QString ChartNode::displaySizeText() const
{
    const Dataset *upstream = upstreamDataset();
    const int points = upstream ? upstream->rowCount() : 0;
    const QLocale locale;
    return QStringLiteral("%1 series / %2 %3")
        .arg(locale.toString(m_columns.y().size()), locale.toString(points),
            points == 1 ? QStringLiteral("point") : QStringLiteral("points"));
}

void ChartNode::beforeProcess()
{
    const QList<Node *> upstream = upstreamNodes(false);
    if (!upstream.isEmpty() && upstream.first()->isReady()) {
        m_columns.resolve(upstream.first()->datasetConst());
    }
}

bool ChartNode::mayRun()
{
    m_writtenFiles.clear();
    if (upstreamNodes(false).size() == 1) {
        return true;
    }
    m_model = ChartModel();
    m_warnings = QStringList(QStringLiteral("No transforms or inputs connected"));
    m_infos.clear();
    setState(NodeState::Processed, false);
    return false;
}

void ChartNode::prepareRun()
{
    m_model = ChartModel();
    m_columns.reconnect(*upstreamDataset(), m_warnings, m_infos);
}

bool ChartNode::produce()
{
    m_model = ChartModelBuilder(m_options, m_columns, *upstreamDataset()).build();
    m_warnings += m_model.warnings;
    m_infos += m_model.infos;
    return m_model.isDrawn() && (!m_options.writeFile || writePicture());
}

bool ChartNode::writePicture()
{
    const QString expanded = FileNameVariables::expanded(m_options.path, fileNameContext(graphScene()));
    const QString path = expanded.isEmpty() ? expanded : QFileInfo(expanded).absoluteFilePath();
    if (!ChartFile(m_model, m_options).write(path, m_warnings, m_infos)) {
        return false;
    }
    m_writtenFiles.append(QDir::toNativeSeparators(path));
    return true;
}

QString ChartNode::placeText() const
{
    if (state() == NodeState::Processing) {
        return QStringLiteral("Processing...");
    }
    if (!hasRun()) {
        return graphScene() && graphScene()->isAutoRunOn() ? QStringLiteral("Awaiting update")
                                                           : QStringLiteral("Run to update");
    }
    if (m_model.isDrawn()) {
        return QString();
    }
    return m_model.refusal.isEmpty() ? missingChoice() : m_model.refusal;
}

/// What to choose first where no run has come as far as to ask for it.
QString ChartNode::missingChoice() const
{
    if (m_options.type == ChartChoice::NoType) {
        return QStringLiteral("Select a chart type");
    }
    if (storedXColumn().isEmpty()) {
        return QStringLiteral("Select a column for the X axis");
    }
    return storedYColumns().isEmpty() ? QStringLiteral("Select one or more columns for the Y axis")
                                      : QStringLiteral("No data");
}

void ChartNode::goToRest()
{
    Node::goToRest();
    m_model = ChartModel();
}

InfoRows ChartNode::kindRows() const
{
    return {{QStringLiteral("Connections in"), QLocale().toString(connections(Direction::Incoming).size())},
        {QStringLiteral("Alias"), alias()}};
}

InfoRows ChartNode::optionRows() const
{
    InfoRows rows = OptionWalk::summary(ChartOptions::fields(), m_options);
    // What is drawn comes behind the type, how it is drawn after it.
    const QList<ColumnId> x = m_columns.x().isNull() ? QList<ColumnId>() : QList<ColumnId>{m_columns.x()};
    rows.insert(1, {QStringLiteral("X axis data"), x.isEmpty() ? QString() : columnsText(x)});
    rows.insert(2, {QStringLiteral("Y axis data"), columnsText(m_columns.y())});
    return rows;
}

QString ChartNode::columnsText(const QList<ColumnId> &ids) const
{
    constexpr int maxNames = 3;
    const QList<Node *> upstream = upstreamNodes(false);
    return upstream.isEmpty() ? QString() : upstream.first()->columnsDescription(ids, maxNames);
}

QVariantList ChartNode::summaryRow() const
{
    return Node::summaryRow() << QVariant(columnValues(m_columns))
                              << OptionWalk::values(ChartOptions::fields(), m_options);
}

QColor ChartNode::borderColor() const
{
    return graphScene() ? graphScene()->colors().color(Colors::OutputBorder)
                        : Colors::current().color(Colors::OutputBorder);
}

QColor ChartNode::boxColor() const
{
    return graphScene() ? graphScene()->colors().color(Colors::OutputBox) : Colors::current().color(Colors::OutputBox);
}

QColor ChartNode::textColor() const
{
    return graphScene() ? graphScene()->colors().color(Colors::OutputText)
                        : Colors::current().color(Colors::OutputText);
}
