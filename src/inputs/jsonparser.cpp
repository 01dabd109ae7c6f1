#include "inputs/jsonparser.h"

#include "inputs/jsonnumber.h"
#include "inputs/jsonstring.h"

#include <algorithm>
#include <cstring>

namespace {

// Deeper ones are the business of QJsonDocument, which has a limit of its own.
constexpr size_t greatestDepth = 1000;
// How many missing members are passed over before a key is looked up.
constexpr int membersTried = 3;
constexpr size_t nodesBetweenReports = 1 << 14;

} // namespace

JsonParser::JsonParser(TreePaths *paths, bool longArrays, bool plainNumbers)
    : m_paths(paths)
    , m_longArrays(longArrays)
    , m_plainNumbers(plainNumbers)
{
}

JsonParser::Status JsonParser::parse(const char *begin, const char *end, bool topLevel, TreeRecord *record)
{
    m_record = record;
    m_record->clear();
    m_record->order = TreeRecord::ByKey;
    m_at = begin;
    m_end = end;
    m_topLevel = topLevel;
    m_hasEscapedKeys = false;
    m_containers.clear();
    m_nextReport = nodesBetweenReports;
    bool valid = value(m_paths->root());
    while (valid && !m_containers.empty()) {
        valid = next(m_containers.back());
        if (m_record->nodes.size() >= m_nextReport && m_progress) {
            m_nextReport += nodesBetweenReports;
            m_progress();
        }
    }
    // Even a number that seems whole may go on behind the end.
    if (m_at >= m_end && !(valid && !m_record->nodes[0].isLeaf())) {
        return Incomplete;
    }
    return valid && (!m_hasEscapedKeys || orderIsSure()) ? Parsed : Refused;
}

void JsonParser::skipSpaces()
{
    if (m_oneLine) {
        while (*m_at == ' ' || *m_at == '\t') {
            ++m_at;
        }
        return;
    }
    m_at = skipSpace(m_at);
}

/// One step inside an open container: a child with what separates it, or the container's end.
bool JsonParser::next(Container &container)
{
    if (!token()) {
        return false;
    }
    const char closing = container.isObject ? '}' : ']';
    if (*m_at == closing) {
        ++m_at;
        close();
        return true;
    }
    if (container.count > 0) {
        if (*m_at != ',') {
            return false;
        }
        ++m_at;
        if (!token() || *m_at == closing) {
            return false;
        }
    }
    const int index = container.count++;
    if (container.isObject) {
        return member(container);
    }
    return value(m_longArrays ? container.path : m_paths->position(container.path, index));
}

bool JsonParser::member(Container &object)
{
    if (*m_at != '"') {
        return false;
    }
    ++m_at;
    TreePath *const path = key(object);
    if (!path || !token() || *m_at != ':') {
        return false;
    }
    ++m_at;
    object.last = path;
    m_record->hasRepeats = m_record->hasRepeats || path->object == object.serial;
    path->object = object.serial;
    return value(path);
}

/// The place that the key at the current character names; moves behind its closing quote. Null when it isn't valid.
TreePath *JsonParser::key(const Container &object)
{
    TreePath *expected = object.last ? object.last->next : object.path->firstInside;
    for (int tried = 0; expected && tried < membersTried; ++tried, expected = expected->next) {
        const size_t size = expected->key.size();
        if (expected->plainKey && size < static_cast<size_t>(m_end - m_at) && m_at[size] == '"'
            && std::memcmp(m_at, expected->key.data(), size) == 0) {
            m_at += size + 1;
            return expected;
        }
    }
    TreePath *const path = unusualKey(object);
    if (path) {
        (object.last ? object.last->next : object.path->firstInside) = path;
    }
    return path;
}

TreePath *JsonParser::unusualKey(const Container &object)
{
    const JsonString::Found found = JsonString::find(m_at, m_end);
    const char *bytes = m_at;
    auto size = static_cast<quint32>(found.end - bytes);
    m_at = found.end;
    if (m_at >= m_end) {
        return nullptr;
    }
    ++m_at;
    if (!found.isPlain || found.hasEscapes) {
        const bool hasLineEnd = std::memchr(bytes, '\n', size) || std::memchr(bytes, '\r', size);
        if ((m_oneLine && hasLineEnd) || !JsonString::isValid(bytes, size)) {
            return nullptr;
        }
        if (JsonString::startsWithMark(bytes, size)) {
            return nullptr; // its place among other keys is for the library to say
        }
    }
    if (found.hasEscapes) {
        m_hasEscapedKeys = true;
        m_key.resize(size);
        size = JsonString::unescape(bytes, size, &m_key[0]);
        bytes = m_key.data();
    }
    return m_paths->child(object.path, bytes, static_cast<int>(size));
}

bool JsonParser::value(TreePath *path)
{
    if (!token()) {
        return false;
    }
    switch (*m_at) {
    case '"':
        ++m_at;
        return string(path);
    case '{':
        return open(path, TreeNode::Object);
    case '[':
        return open(path, TreeNode::Array);
    case 't':
        return literal(path, "true", 4);
    case 'f':
        return literal(path, "false", 5);
    case 'n':
        return literal(path, "null", 4);
    default:
        return number(path);
    }
}

bool JsonParser::string(TreePath *path)
{
    const JsonString::Found found = JsonString::find(m_at, m_end);
    const char *const bytes = m_at;
    const auto size = static_cast<quint32>(found.end - bytes);
    m_at = found.end;
    if (m_at >= m_end) {
        return false;
    }
    ++m_at;
    TreeNode &node = addNode(path, TreeNode::Plain);
    node.bytes = bytes;
    node.size = size;
    if (found.isPlain && !found.hasEscapes) {
        return true;
    }
    node.kind = found.hasEscapes ? TreeNode::JsonText : TreeNode::Text;
    if (m_oneLine && !found.isPlain && (std::memchr(bytes, '\n', size) || std::memchr(bytes, '\r', size))) {
        return false;
    }
    return JsonString::isValid(bytes, size);
}

bool JsonParser::number(TreePath *path)
{
    const JsonNumber::Found found = JsonNumber::find(m_at);
    if (!found.end) {
        // What is missing may stand behind the end.
        const char *p = m_at;
        while (p < m_end && (std::strchr("+-.eE", *p) || (*p >= '0' && *p <= '9'))) {
            ++p;
        }
        m_at = p;
        return false;
    }
    TreeNode &node = addNode(path, found.shown && m_plainNumbers ? TreeNode::Literal : TreeNode::JsonNumber);
    node.bytes = m_at;
    node.size = static_cast<quint32>((node.kind == TreeNode::Literal ? found.shown : found.end) - m_at);
    m_at = found.end;
    return true;
}

bool JsonParser::literal(TreePath *path, const char *text, int size)
{
    const auto there = static_cast<int>(qMin<qint64>(size, m_end - m_at));
    if (std::memcmp(m_at, text, static_cast<size_t>(there)) != 0) {
        return false;
    }
    if (there < size) {
        m_at = m_end;
        return false;
    }
    TreeNode &node = addNode(path, TreeNode::Literal);
    node.bytes = text;
    node.size = static_cast<quint32>(size);
    m_at += size;
    return true;
}

bool JsonParser::open(TreePath *path, TreeNode::Kind kind)
{
    if (m_containers.size() == greatestDepth) {
        return false;
    }
    ++m_at;
    Container container{path, nullptr, 0, static_cast<quint32>(m_record->nodes.size()), 0, kind == TreeNode::Object};
    if (container.isObject) {
        container.serial = ++m_objects;
        if (m_topLevel && m_containers.size() == 1 && m_containers[0].isObject) {
            m_record->hasObjectMembers = true;
            container.path = m_paths->objectRoot();
        }
    } else {
        m_record->hasArrays = m_record->hasArrays || m_longArrays;
    }
    addNode(path, kind);
    m_containers.push_back(container);
    return true;
}

void JsonParser::close()
{
    m_record->nodes[m_containers.back().node].end = static_cast<quint32>(m_record->nodes.size());
    m_containers.pop_back();
}

TreeNode &JsonParser::addNode(TreePath *path, TreeNode::Kind kind)
{
    std::vector<TreeNode> &nodes = m_record->nodes;
    nodes.emplace_back();
    TreeNode &node = nodes.back();
    node.path = path;
    node.kind = kind;
    node.end = static_cast<quint32>(nodes.size());
    return node;
}

/// Keys with escapes go by UTF-16 units among themselves. That makes a difference beside characters from U+E000 on.
bool JsonParser::orderIsSure() const
{
    return std::all_of(m_record->nodes.begin(), m_record->nodes.end(), [](const TreeNode &node) {
        const std::string &key = node.path->key;
        return std::none_of(key.begin(), key.end(), [](char c) { return static_cast<uchar>(c) >= 0xED; });
    });
}
