#include "inputs/treeflattener.h"

#include "data/dataset.h"
#include "inputs/rowbatch.h"
#include "inputs/treerecord.h"

#include <algorithm>

namespace {

constexpr qint64 workBetweenReports = 1000;
constexpr char objectNameColumn[] = "_ObjectName_";

} // namespace

TreeFlattener::TreeFlattener(TreePaths *paths, const TreeReadOptions &options, Dataset *dataset)
    : m_paths(paths)
    , m_dataset(dataset)
    , m_rows(options, dataset)
{
}

void TreeFlattener::work(qint64 amount)
{
    m_work += amount;
    if (m_work >= workBetweenReports) {
        m_work = 0;
        if (m_progress) {
            m_progress();
        }
    }
}

void TreeFlattener::add(const TreeRecord &record)
{
    work(static_cast<qint64>(record.nodes.size()) + m_paths->columnCount() / 16);
    m_rows.startRecord();
    if (!addPlainly(record)) {
        addInOrder(record);
    }
}

/// A record that makes one row, whose columns are all known; the order of its values doesn't matter then.
bool TreeFlattener::addPlainly(const TreeRecord &record)
{
    if (record.hasRepeats || record.hasArrays || record.hasObjectMembers || m_paths->columnsAreShared()) {
        return false;
    }
    Text *const row = m_rows.beginRow(m_paths->columnCount());
    for (const TreeNode &node : record.nodes) {
        if (!node.isLeaf()) {
            continue;
        }
        if (node.path->column < 0) {
            m_rows.dropRow();
            m_rows.digits().forgetRecord();
            return false;
        }
        row[node.path->column] = m_rows.text(node);
    }
    m_rows.endRow();
    return true;
}

void TreeFlattener::addInOrder(const TreeRecord &record)
{
    m_record = &record;
    m_children.clear();
    m_lists.assign(record.nodes.size(), Children());
    prepare(0);
    m_width = m_paths->columnCount();
    m_rowCount = 0;
    m_cells.clear();
    expandRecords();
    storeRows();
}

/// Brings the children inside `index` into their order and gives new values columns in that order.
void TreeFlattener::prepare(quint32 index)
{
    const TreeNode &node = m_record->nodes[index];
    work(1);
    if (node.isLeaf()) {
        const qint64 before = m_paths->nameSize();
        m_paths->column(node.path);
        work(m_paths->nameSize() - before);
        return;
    }
    const Children list = listChildren(index);
    m_lists[index] = list;
    for (quint32 i = 0; i < list.count; ++i) {
        const quint32 child = m_children[list.begin + i];
        if (index == 0 && m_record->hasObjectMembers && m_record->nodes[child].kind == TreeNode::Object) {
            m_objectNameColumn = m_paths->namedColumn(objectNameColumn);
        }
        prepare(child);
    }
}

TreeFlattener::Children TreeFlattener::listChildren(quint32 index)
{
    const std::vector<TreeNode> &nodes = m_record->nodes;
    const auto begin = static_cast<quint32>(m_children.size());
    for (quint32 child = index + 1; child < nodes[index].end; child = nodes[child].end) {
        m_children.push_back(child);
    }
    if (m_record->order == TreeRecord::ByKey && nodes[index].kind == TreeNode::Object) {
        sortByKey(begin);
    } else if (m_record->order == TreeRecord::ByGroup) {
        std::stable_sort(m_children.begin() + begin, m_children.end(),
            [&nodes](quint32 a, quint32 b) { return nodes[a].group < nodes[b].group; });
    }
    return {begin, static_cast<quint32>(m_children.size()) - begin};
}

/// Members of an object come in the order of their keys; of members with one key the last one counts.
void TreeFlattener::sortByKey(quint32 begin)
{
    const std::vector<TreeNode> &nodes = m_record->nodes;
    std::stable_sort(m_children.begin() + begin, m_children.end(),
        [&nodes](quint32 a, quint32 b) { return nodes[a].path->key < nodes[b].path->key; });
    const auto samePath = [&nodes](quint32 a, quint32 b) { return nodes[a].path == nodes[b].path; };
    // From the back, the last one of equals stays.
    const auto last = std::unique(m_children.rbegin(), m_children.rend() - begin, samePath);
    m_children.erase(m_children.begin() + begin, last.base());
}

/// Rows of the record itself, then those of its members that are records of their own.
void TreeFlattener::expandRecords()
{
    const std::vector<Text> emptyRow(static_cast<size_t>(m_width));
    appendCopies(emptyRow, 1);
    if (!m_record->hasObjectMembers) {
        expand(0, 0);
        return;
    }
    std::vector<quint32> records;
    bool hasOwnValues = false;
    for (quint32 i = 0; i < m_lists[0].count; ++i) {
        const quint32 child = m_children[m_lists[0].begin + i];
        const TreeNode &node = m_record->nodes[child];
        if (node.kind == TreeNode::Object) {
            records.push_back(child);
        } else {
            hasOwnValues = hasOwnValues || node.isLeaf() || node.end > child + 1;
            expand(child, 0);
        }
    }
    if (!hasOwnValues && !records.empty()) {
        m_cells.clear();
        m_rowCount = 0;
    }
    for (quint32 child : records) {
        const qint64 firstRow = m_rowCount;
        appendCopies(emptyRow, 1);
        const QByteArray key = m_paths->cleanKey(*m_record->nodes[child].path);
        setCells(m_objectNameColumn, m_rows.literal(key.constData(), static_cast<quint32>(key.size())), firstRow);
        expandChildren(child, firstRow);
    }
}

// How a tree becomes rows: a value stands in all rows of what holds it; children that lie beside one another in one
// place (the elements of an array, elements of XML with the same name) make a row each, and those of several such
// places in one parent are combined each with each.

/// Puts what `index` holds into the rows from `firstRow` on, of which there may be more then.
void TreeFlattener::expand(quint32 index, qint64 firstRow)
{
    const TreeNode &node = m_record->nodes[index];
    if (node.isLeaf()) {
        setCells(node.path->column, m_rows.text(node), firstRow);
    } else {
        expandChildren(index, firstRow);
    }
}

void TreeFlattener::expandChildren(quint32 index, qint64 firstRow)
{
    const Children list = m_lists[index];
    const std::vector<TreeNode> &nodes = m_record->nodes;
    const quint32 *const children = m_children.data() + list.begin;
    const bool mayRepeat = nodes[index].kind == TreeNode::Array || m_record->order == TreeRecord::ByGroup;
    for (quint32 i = 0; i < list.count;) {
        quint32 end = i + 1;
        while (mayRepeat && end < list.count && nodes[children[end]].path == nodes[children[i]].path) {
            ++end;
        }
        if (end - i == 1) {
            expand(children[i], firstRow);
        } else {
            expandRepeats(children + i, end - i, firstRow);
        }
        i = end;
    }
}

/// Children in one place: each gets a copy of the rows from `firstRow` on as they were before the first child.
void TreeFlattener::expandRepeats(const quint32 *children, quint32 count, qint64 firstRow)
{
    const std::vector<Text> before(m_cells.begin() + firstRow * m_width, m_cells.end());
    const qint64 rows = m_rowCount - firstRow;
    m_rows.checkRoom(m_rowCount + rows * (count - 1), m_width);
    expand(children[0], firstRow);
    for (quint32 i = 1; i < count; ++i) {
        const qint64 begin = m_rowCount;
        appendCopies(before, rows);
        expand(children[i], begin);
    }
}

void TreeFlattener::appendCopies(const std::vector<Text> &cells, qint64 rows)
{
    m_rows.checkRoom(m_rowCount + rows, m_width);
    m_cells.insert(m_cells.end(), cells.begin(), cells.end());
    m_rowCount += rows;
    work(rows * (m_width + 1));
}

void TreeFlattener::setCells(int column, Text text, qint64 firstRow)
{
    for (qint64 row = firstRow; row < m_rowCount; ++row) {
        m_cells[static_cast<size_t>(row * m_width + column)] = text;
    }
    work(m_rowCount - firstRow);
}

void TreeFlattener::storeRows()
{
    for (qint64 row = 0; row < m_rowCount; ++row) {
        const auto begin = m_cells.begin() + row * m_width;
        std::copy(begin, begin + m_width, m_rows.beginRow(m_width));
        m_rows.endRow();
        work(m_width + 1);
    }
}

void TreeFlattener::finish(QStringList *infos, QStringList *warnings)
{
    m_rows.flush();
    m_dataset->setColumnCount(m_paths->columnCount());
    m_dataset->setHeader(m_paths->columnNames());
    *infos += RowBatch::emptyRowsInfos(m_rows.emptyRowsDropped());
    const QString warning = m_rows.digits().warning();
    if (!warning.isEmpty()) {
        warnings->append(warning);
    }
}
