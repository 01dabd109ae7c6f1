#include "panes/explore/nodesummarydialog.h"

#include "data/dataset.h"
#include "data/values.h"
#include "graph/graphscene.h"
#include "graph/ionode.h"
#include "graph/nodelook.h"
#include "graph/notenode.h"
#include "graph/transformnode.h"
#include "panes/dialogs/helphook.h"
#include "panes/dialogs/prompts.h"
#include "panes/items/datasetexport.h"
#include "panes/widgets/keptgeometry.h"
#include "panes/widgets/numericsortabletablewidgetitem.h"
#include "panes/widgets/tips.h"
#include "settings/settings.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(1100, 520);
constexpr int tipMs = 8000;
constexpr int widestColumn = 260;

enum Column {
    Id,
    Name,
    Type,
    Processing,
    Columns,
    Rows,
    Status,
    Upstream,
    UpstreamIds,
    Downstream,
    DownstreamIds,
    Result,
    Warnings,
    Info,
    LastProcessed,
    Comment,
    ColumnCount
};

struct Heading
{
    const char *title;
    const char *tip;
};

const Heading headings[ColumnCount] = {
    {"Id", "The number of the item, unique within the document."},
    {"Name", "The name of the item."},
    {"Type", "The type of the item."},
    {"Processing", "How long the last processing took, in seconds."},
    {"Columns", "The number of columns in the data of the item."},
    {"Rows", "The number of rows in the data of the item."},
    {"Status", "Whether the item is up to date."},
    {"Upstream", "The number of items that the item takes data from."},
    {"Upstream Ids", "The ids of the items that the item takes data from."},
    {"Downstream", "The number of items that take data from the item."},
    {"Downstream Ids", "The ids of the items that take data from the item."},
    {"Result", "The result of the last processing."},
    {"Warnings", "The number of warnings from the last processing."},
    {"Info", "The number of lines of information from the last processing."},
    {"Last Processed", "When the item was last processed."},
    {"Comment", "The comment of the item."},
};

QTableWidgetItem *numberCell(double number, const QString &text)
{
    return new NumericSortableTableWidgetItem(text, number);
}

QTableWidgetItem *countCell(int count)
{
    return numberCell(count, formatInteger(count, true));
}

QTableWidgetItem *textCell(const QString &text)
{
    auto *cell = new QTableWidgetItem(text.simplified());
    cell->setToolTip(Tips::plain(text));
    return cell;
}

QTableWidgetItem *emptyNumber()
{
    return new NumericSortableTableWidgetItem(QString(), QVariant());
}

QString idsOf(const QList<Node *> &nodes)
{
    QStringList ids;
    for (const Node *node : nodes) {
        ids.append(QString::number(node->id()));
    }
    return ids.join(QStringLiteral(", "));
}

} // namespace

NodeSummaryDialog::NodeSummaryDialog(GraphScene &scene, Prompts &prompts)
    : QDialog(prompts.window())
    , m_scene(scene)
    , m_prompts(prompts)
    , m_table(new QTableWidget)
{
    setWindowTitle(QStringLiteral("Item Summary"));
    HelpHook::setHelpPage(*this, QStringLiteral("Item_summary"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    addColumns();
    addRows();
    restoreLook();
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *copy = buttons->addButton(QStringLiteral("Cop&y"), QDialogButtonBox::ActionRole);
    copy->setToolTip(QStringLiteral("Copy the summary to the clipboard."));
    QPushButton *save = buttons->addButton(QStringLiteral("&Export..."), QDialogButtonBox::ActionRole);
    save->setToolTip(QStringLiteral("Export the summary to a file."));
    connect(copy, &QPushButton::clicked, this, &NodeSummaryDialog::onClickedClipboard);
    connect(save, &QPushButton::clicked, this, &NodeSummaryDialog::onClickedExport);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_table, 1);
    layout->addWidget(new QLabel(countLine()));
    layout->addWidget(buttons);
    connect(m_table, &QTableWidget::itemEntered, this, &NodeSummaryDialog::onItemEntered);
    connect(m_table, &QTableWidget::itemDoubleClicked, this, &NodeSummaryDialog::onItemDoubleClicked);
    connect(m_table, &QTableWidget::itemActivated, this, &NodeSummaryDialog::onItemDoubleClicked);
    keepGeometry(*this, &Settings::itemSummaryWindowGeometry, &Settings::setItemSummaryWindowGeometry, firstSize);
    QTimer::singleShot(Tips::openingPauseMs, this, &NodeSummaryDialog::onShowTip);
}

NodeSummaryDialog::~NodeSummaryDialog()
{
    storeLook();
    highlight(nullptr);
}

void NodeSummaryDialog::addColumns()
{
    m_table->setColumnCount(ColumnCount);
    for (int column = 0; column < ColumnCount; ++column) {
        auto *title = new QTableWidgetItem(QLatin1String(headings[column].title));
        title->setToolTip(
            QLatin1String(headings[column].tip) + QStringLiteral("\nClick header to sort by this column."));
        m_table->setHorizontalHeaderItem(column, title);
    }
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setSectionsMovable(true);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->setMouseTracking(true);
    m_table->viewport()->installEventFilter(this);
    m_table->setAccessibleName(windowTitle());
}

void NodeSummaryDialog::addRows()
{
    const QList<Node *> nodes = m_scene.nodes();
    m_table->setRowCount(nodes.size());
    for (int row = 0; row < nodes.size(); ++row) {
        addRow(row, *nodes.at(row));
    }
}

void NodeSummaryDialog::addRow(int row, const Node &node)
{
    const bool isNote = qgraphicsitem_cast<const NoteNode *>(&node);
    const bool hasTable = !isNote && node.columnCount() > 0;
    const QList<Node *> upstream = node.upstreamNodes(true);
    const QList<Node *> downstream = node.downstreamNodes(true);
    constexpr double msPerSecond = 1000.0;
    const double seconds = static_cast<double>(node.processingMs()) / msPerSecond;
    const bool isTimed = !isNote && node.hasRun();
    QTableWidgetItem *cells[ColumnCount] = {
        numberCell(node.id(), QString::number(node.id())),
        textCell(node.name()),
        textCell(node.kindName()),
        isTimed ? numberCell(seconds, QLocale().toString(seconds, 'f', 3)) : emptyNumber(),
        hasTable ? countCell(node.columnCount()) : emptyNumber(),
        hasTable ? countCell(node.rowCount()) : emptyNumber(),
        textCell(isNote ? QString() : node.stateText()),
        isNote ? emptyNumber() : countCell(upstream.size()),
        textCell(idsOf(upstream)),
        isNote ? emptyNumber() : countCell(downstream.size()),
        textCell(idsOf(downstream)),
        textCell(node.resultText()),
        isNote ? emptyNumber() : countCell(node.warningCount()),
        isNote ? emptyNumber() : countCell(node.infos().size()),
        node.lastProcessed().isValid() ? new NumericSortableTableWidgetItem(
            QLocale().toString(node.lastProcessed(), QLocale::ShortFormat), node.lastProcessed().toMSecsSinceEpoch())
                                       : emptyNumber(),
        textCell(node.comment()),
    };
    for (int column = 0; column < ColumnCount; ++column) {
        m_table->setItem(row, column, cells[column]);
    }
    m_table->item(row, Warnings)->setToolTip(Tips::plain(node.warningsText()));
    m_table->item(row, Info)->setToolTip(Tips::plain(node.infosText()));
}

void NodeSummaryDialog::restoreLook()
{
    const Settings &settings = Settings::current();
    QHeaderView &header = *m_table->horizontalHeader();
    m_table->resizeColumnsToContents();
    const QList<int> widths = settings.itemSummaryColWidths();
    const QList<int> order = settings.itemSummaryColOrder();
    for (int column = 0; column < ColumnCount; ++column) {
        const int width = widths.size() == ColumnCount ? widths.at(column) : 0;
        m_table->setColumnWidth(column, width > 0 ? width : qMin(widestColumn, m_table->columnWidth(column)));
    }
    for (int place = 0; order.size() == ColumnCount && place < ColumnCount; ++place) {
        const int from = header.visualIndex(order.at(place));
        if (from >= 0) {
            header.moveSection(from, place);
        }
    }
    m_table->setSortingEnabled(true);
    const int column = settings.itemSummarySortCol(Id);
    const bool isKept = settings.itemSummarySortCol() >= 0;
    m_table->sortByColumn(
        column < ColumnCount ? column : Id, isKept ? settings.itemSummarySortOrder() : Qt::AscendingOrder);
}

void NodeSummaryDialog::storeLook() const
{
    Settings &settings = Settings::current();
    const QHeaderView &header = *m_table->horizontalHeader();
    QList<int> order;
    QList<int> widths;
    for (int i = 0; i < ColumnCount; ++i) {
        order.append(header.logicalIndex(i));
        widths.append(m_table->columnWidth(i));
    }
    settings.setItemSummaryColOrder(order);
    settings.setItemSummaryColWidths(widths);
    settings.setItemSummarySortCol(header.sortIndicatorSection());
    settings.setItemSummarySortOrder(header.sortIndicatorOrder());
}

QString NodeSummaryDialog::countLine() const
{
    const auto line = [](const char *text, int count) {
        return QString::fromLatin1(text).arg(formatInteger(count, true));
    };
    return QStringList{line("Inputs: %1", m_scene.inputNodes().size()),
        line("Transforms: %1", m_scene.transformNodes().size()), line("Outputs: %1", m_scene.outputNodes().size()),
        line("Charts: %1", m_scene.chartNodes().size()), line("Notes: %1", m_scene.noteNodes().size())}
        .join(QStringLiteral("    "));
}

Dataset NodeSummaryDialog::shownTable() const
{
    const QHeaderView &header = *m_table->horizontalHeader();
    Dataset table;
    table.setColumnCount(ColumnCount);
    QStringList names;
    for (int place = 0; place < ColumnCount; ++place) {
        names.append(m_table->horizontalHeaderItem(header.logicalIndex(place))->text());
    }
    table.setHeader(names);
    for (int row = 0; row < m_table->rowCount(); ++row) {
        QStringList cells;
        for (int place = 0; place < ColumnCount; ++place) {
            cells.append(m_table->item(row, header.logicalIndex(place))->text());
        }
        table.appendRow(cells);
    }
    return table;
}

Node *NodeSummaryDialog::nodeOf(const QTableWidgetItem &item) const
{
    return m_scene.nodeById(m_table->item(item.row(), Id)->data(Qt::UserRole).toInt());
}

void NodeSummaryDialog::highlight(Node *node)
{
    Node *before = m_highlighted >= 0 ? m_scene.nodeById(m_highlighted) : nullptr;
    if (before && before != node) {
        before->look().setHighlighted(false);
    }
    m_highlighted = node ? node->id() : -1;
    if (node) {
        node->look().setHighlighted(true);
    }
}

void NodeSummaryDialog::onItemEntered(QTableWidgetItem *item)
{
    highlight(nodeOf(*item));
}

bool NodeSummaryDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Leave) {
        highlight(nullptr);
    }
    return QDialog::eventFilter(watched, event);
}

void NodeSummaryDialog::leaveEvent(QEvent *event)
{
    highlight(nullptr);
    QDialog::leaveEvent(event);
}

void NodeSummaryDialog::onItemDoubleClicked(QTableWidgetItem *item)
{
    if (Node *node = nodeOf(*item)) {
        m_scene.clearSelection();
        node->setSelected(true);
        accept();
    }
}

void NodeSummaryDialog::onClickedClipboard()
{
    DatasetExport(m_prompts).copy(shownTable());
}

void NodeSummaryDialog::onClickedExport()
{
    FileRequest request;
    request.title = QStringLiteral("Export summary");
    request.start = QDir(Settings::current().lastOutputDataDir()).filePath(QStringLiteral("summary.csv"));
    request.filter = QStringLiteral("Summary data (*.csv)");
    DatasetExport(m_prompts).saveAs(shownTable(), request);
}

void NodeSummaryDialog::onShowTip()
{
    if (!Tips::showOnce(QStringLiteral("tip_summary_hover"), QStringLiteral("Highlight items"),
            QStringLiteral("Hover over a row to highlight the item in the Center pane."), tipMs, m_table)) {
        Tips::showOnce(QStringLiteral("tip_summary_double_click"), QStringLiteral("Select items"),
            QStringLiteral("Double click a row to select the item in the Center pane and close this window."), tipMs,
            m_table);
    }
}
