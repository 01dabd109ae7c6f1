#include "inputs/xmlrecordbuilder.h"

#include "inputs/textcleanup.h"

#include <cstring>

namespace {

constexpr int documentDepth = 1;
constexpr int recordDepth = 2;
constexpr size_t nodesBetweenReports = 1 << 14;

bool isSpace(const char *begin, const char *end)
{
    while (begin < end) {
        const int size = TextCleanup::spaceSize(begin, static_cast<int>(end - begin));
        if (size == 0) {
            return false;
        }
        begin += size;
    }
    return true;
}

} // namespace

XmlRecordBuilder::XmlRecordBuilder(TreePaths *paths, bool longRows, std::function<void(const TreeRecord &)> done)
    : m_paths(paths)
    , m_longRows(longRows)
    , m_done(std::move(done))
    , m_elements(recordDepth)
{
    m_record.order = TreeRecord::ByGroup;
}

bool XmlRecordBuilder::startElement(const char *name, int size)
{
    finishText();
    if (m_depth == greatestDepth) {
        return false;
    }
    ++m_depth;
    if (static_cast<size_t>(m_depth) == m_elements.size()) {
        m_elements.emplace_back();
    }
    m_textBegin = 0;
    Element &element = current();
    element.text.clear();
    element.last = nullptr;
    element.serial = ++m_serial;
    if (m_depth == documentDepth) {
        return true;
    }
    TreePath *ownText; // place of the element's own text beside children
    if (m_depth == recordDepth) {
        startRecord();
        element.path = m_paths->root();
        element.node = 0;
        ownText = m_paths->child(m_paths->objectRoot(), name, size); // a child may have the same name
    } else {
        Element &parent = m_elements[static_cast<size_t>(m_depth - 1)];
        element.path = childPath(parent, name, size);
        element.node = addChild(parent, element.path);
        m_record.nodes[element.node].kind = TreeNode::Object;
        ownText = element.path;
    }
    addNode(ownText, TreeNode::Text);
    if (m_record.nodes.size() >= m_nextReport && m_progress) {
        m_nextReport += nodesBetweenReports;
        m_progress();
    }
    return true;
}

void XmlRecordBuilder::attribute(const char *name, int nameSize, const char *value, int valueSize)
{
    if (m_depth < recordDepth) {
        return;
    }
    Element &element = current();
    TreePath *const path = childPath(element, name, nameSize);
    const bool isNew = path->object != element.serial;
    setText(isNew ? addChild(element, path) : path->node, value, static_cast<size_t>(valueSize));
}

void XmlRecordBuilder::finishText(bool inCdata)
{
    std::string &text = current().text;
    if (!inCdata && isSpace(text.data() + m_textBegin, text.data() + text.size())) {
        text.resize(m_textBegin);
    }
    if (m_depth == documentDepth && (inCdata || !text.empty())) {
        addTextRecord(inCdata ? "#cdata-section" : "#text");
        text.clear();
    }
    m_textBegin = text.size();
}

void XmlRecordBuilder::endElement()
{
    finishText();
    if (m_depth >= recordDepth) {
        const Element &element = current();
        std::vector<TreeNode> &nodes = m_record.nodes;
        const quint32 ownText = element.node + 1;
        const bool isRecord = m_depth == recordDepth;
        const bool hasChildren = nodes.size() > ownText + 1;
        quint32 target = ownText;
        if (!hasChildren && (!isRecord || element.text.empty())) {
            nodes.pop_back();
            m_textOffsets.pop_back();
            target = element.node;
        }
        TreeNode &node = nodes[target];
        if (!element.text.empty() || (!hasChildren && !isRecord)) {
            node.kind = TreeNode::Text;
            setText(target, element.text.data(), element.text.size());
        } else {
            node.kind = TreeNode::Object; // without anything inside
        }
        nodes[element.node].end = static_cast<quint32>(nodes.size());
        if (isRecord) {
            finishRecord();
        }
    }
    --m_depth;
    m_textBegin = current().text.size();
}

TreePath *XmlRecordBuilder::childPath(Element &parent, const char *name, int size)
{
    TreePath *&expected = parent.last ? parent.last->next : parent.path->firstInside;
    const auto length = static_cast<size_t>(size);
    if (!expected || expected->key.size() != length || std::memcmp(expected->key.data(), name, length) != 0) {
        expected = m_paths->child(parent.path, name, size);
    }
    parent.last = expected;
    return parent.last;
}

/// Adds a node for a child at `path`, which remembers the first of its name.
quint32 XmlRecordBuilder::addChild(Element &parent, TreePath *path)
{
    const quint32 index = addNode(path, TreeNode::Text);
    if (path->object == parent.serial) {
        m_record.hasRepeats = true;
        m_record.nodes[index].group = path->node;
    } else {
        path->object = parent.serial;
        path->node = index;
    }
    return index;
}

quint32 XmlRecordBuilder::addNode(TreePath *path, TreeNode::Kind kind)
{
    const auto index = static_cast<quint32>(m_record.nodes.size());
    m_record.nodes.emplace_back();
    m_textOffsets.push_back(0);
    TreeNode &node = m_record.nodes.back();
    node.path = path;
    node.kind = kind;
    node.group = index;
    node.end = index + 1;
    return index;
}

void XmlRecordBuilder::setText(quint32 node, const char *bytes, size_t size)
{
    m_textOffsets[node] = m_texts.size();
    m_record.nodes[node].size = static_cast<quint32>(size);
    m_texts.append(bytes, size);
}

void XmlRecordBuilder::startRecord()
{
    m_record.clear();
    m_textOffsets.clear();
    m_texts.clear();
    m_nextReport = nodesBetweenReports;
    addNode(m_paths->root(), TreeNode::Object);
}

void XmlRecordBuilder::finishRecord()
{
    if (m_record.hasRepeats && !m_longRows) {
        m_repeats.assign(m_record.nodes.size(), Repeats());
        placeChildren(0, m_paths->root());
        m_record.hasRepeats = false;
    }
    for (size_t i = 0; i < m_record.nodes.size(); ++i) {
        m_record.nodes[i].bytes = m_texts.data() + m_textOffsets[i];
    }
    m_done(m_record);
}

/// Text beside the records is a record of its own.
void XmlRecordBuilder::addTextRecord(const char *name)
{
    startRecord();
    const quint32 node = addNode(
        m_paths->child(m_paths->root(), name, static_cast<int>(std::strlen(name))), TreeNode::Text);
    setText(node, current().text.data(), current().text.size());
    m_record.nodes[0].end = 2;
    finishRecord();
}

/// Gives siblings of one name places of their own, by position, and all that is inside them.
void XmlRecordBuilder::placeChildren(quint32 index, TreePath *path)
{
    std::vector<TreeNode> &nodes = m_record.nodes;
    if (index > 0) {
        nodes[index].path = path;
        nodes[index + 1].path = path;
    }
    const quint32 first = index + 2; // behind the element's own text
    for (quint32 child = first; child < nodes[index].end; child = nodes[child].end) {
        ++m_repeats[nodes[child].group].count;
    }
    for (quint32 child = first; child < nodes[index].end; child = nodes[child].end) {
        const std::string &key = nodes[child].path->key;
        TreePath *place = m_paths->child(path, key.data(), static_cast<int>(key.size()));
        Repeats &repeats = m_repeats[nodes[child].group];
        if (repeats.count > 1) {
            place = m_paths->position(place, repeats.placed++);
        }
        if (nodes[child].isLeaf()) {
            nodes[child].path = place;
        } else {
            placeChildren(child, place);
        }
    }
}
