#include "outputs/xmlwriter.h"

#include "outputs/cellescaper.h"
#include "outputs/outputtree.h"
#include "outputs/textlayout.h"
#include "outputs/xmlnames.h"

#include <algorithm>

namespace {

constexpr int indent = 2;

using Search = ByteSearch<5>;

/// The parts between points; a single empty one when there are none.
QStringList partsOf(const QString &name)
{
    const QStringList parts = name.split(QLatin1Char('.'), Qt::SkipEmptyParts);
    return parts.isEmpty() ? QStringList{QString()} : parts;
}

std::vector<QByteArray> tagsOf(const QString &name)
{
    std::vector<QByteArray> tags;
    for (const QString &part : partsOf(name)) {
        tags.push_back(XmlNames::tag(part));
    }
    return tags;
}

/// True when a leaf of this name is an attribute.
bool isAttributeName(const QString &name)
{
    return name.startsWith(QLatin1Char('_'));
}

/// What can be said of a node's element before a row is seen.
struct Element
{
    QByteArray tag;
    bool isAttribute = false; ///< as a leaf
    QByteArray attributeKey;
    std::vector<int> children;      ///< in the order of their last columns
    std::vector<int> keyedChildren; ///< the attributes in the order of their keys, equal keys as they came to be
};

/// A key of underscores, for attributes of whose names nothing is left, that none of those with a name has.
QString freeKey(
    const std::vector<int> &attributes, const std::vector<OutputTree::Node> &nodes, const std::vector<QString> &keys)
{
    QString key(1, QLatin1Char('_'));
    const auto isTaken = [&](int number) {
        const auto i = static_cast<size_t>(number);
        return keys[i] == key && !XmlNames::isKeyless(nodes[i].name);
    };
    while (std::any_of(attributes.cbegin(), attributes.cend(), isTaken)) {
        key += QLatin1Char('_');
    }
    return key;
}

std::vector<Element> elementsOf(const std::vector<OutputTree::Node> &nodes)
{
    std::vector<Element> elements(nodes.size());
    std::vector<QString> keys(nodes.size());
    for (size_t i = 1; i < nodes.size(); ++i) {
        const OutputTree::Node &node = nodes[i];
        Element &parent = elements[static_cast<size_t>(node.parent)];
        const int number = static_cast<int>(i);
        elements[i].tag = XmlNames::tag(node.name);
        parent.children.push_back(number);
        if (isAttributeName(node.name)) {
            elements[i].isAttribute = true;
            elements[i].attributeKey = XmlNames::tag(node.name.mid(1));
            keys[i] = TextCoding::decode(elements[i].attributeKey.constData(), elements[i].attributeKey.size());
            parent.keyedChildren.push_back(number);
        }
    }
    for (size_t i = 1; i < nodes.size(); ++i) {
        if (XmlNames::isKeyless(nodes[i].name)) {
            keys[i] = freeKey(elements[static_cast<size_t>(nodes[i].parent)].keyedChildren, nodes, keys);
            elements[i].attributeKey = keys[i].toLatin1();
        }
    }
    for (Element &element : elements) {
        std::sort(element.children.begin(), element.children.end(),
            [&](int a, int b) { return nodes[static_cast<size_t>(a)].column < nodes[static_cast<size_t>(b)].column; });
        std::stable_sort(element.keyedChildren.begin(), element.keyedChildren.end(),
            [&](int a, int b) { return keys[static_cast<size_t>(a)] < keys[static_cast<size_t>(b)]; });
    }
    return elements;
}

class Writer
{
public:
    Writer(TextSink &sink, OutputTree &tree, const XmlWriter::Format &format, const QByteArray &lineEnding)
        : m_sink(sink)
        , m_tree(tree)
        , m_format(format)
        , m_lineEnding(lineEnding)
        , m_escaper(sink, Search({'&', '"', '\'', '<', '>'}), XmlNames::references())
        , m_elements(elementsOf(tree.nodes()))
        , m_rootTags(tagsOf(format.rootName))
        , m_rowTags(tagsOf(format.rowName))
    {
        m_elements.front().tag = m_rowTags.back();
        m_rowTags.pop_back();
    }

    void writeProlog();
    void writeRow();
    /// Ends the root, or writes what is left of one without rows.
    void finish();

private:
    struct Attribute
    {
        QByteArray key;
        Cell value;
    };
    struct Open
    {
        int number;
        size_t nextChild;
    };

    const Element &element(int number) const { return m_elements[static_cast<size_t>(number)]; }
    const OutputTree::Node &node(int number) const { return m_tree.nodes()[static_cast<size_t>(number)]; }
    int depthOf(int number) const
    {
        return static_cast<int>(m_rootTags.size() + m_rowTags.size()) + node(number).depth;
    }
    bool isAttribute(int number) const { return m_tree.isLeaf(number) && element(number).isAttribute; }

    void openTag(int depth, const QByteArray &tag);
    void closeTag(int depth, const QByteArray &tag);
    void writeText(int depth, const QString &text);
    void openRoot(size_t tagCount);
    void closeRoot(size_t tagCount);
    void writeElement(int number);
    void openElement(int number);
    bool hasElements(int number) const;
    void collectAttributes(int number, bool withElements);
    void writeAttributes();
    void writeSimple(int number);

    TextSink &m_sink;
    OutputTree &m_tree;
    const XmlWriter::Format &m_format;
    const QByteArray m_lineEnding;
    CellEscaper<Search> m_escaper;
    std::vector<Element> m_elements;
    std::vector<QByteArray> m_rootTags;
    std::vector<QByteArray> m_rowTags; ///< those around each row's own element
    std::vector<Open> m_open;
    std::vector<Attribute> m_attributes;
    bool m_hasRows = false;
};

void Writer::openTag(int depth, const QByteArray &tag)
{
    m_sink.append(indent * depth, ' ');
    m_sink.append('<');
    m_sink.append(tag);
    m_sink.append('>');
    m_sink.append(m_lineEnding);
}

void Writer::closeTag(int depth, const QByteArray &tag)
{
    m_sink.append(indent * depth, ' ');
    m_sink.append("</", 2);
    m_sink.append(tag);
    m_sink.append('>');
    m_sink.append(m_lineEnding);
}

void Writer::writeText(int depth, const QString &text)
{
    if (text.isEmpty()) {
        return;
    }
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        m_sink.append(indent * depth, ' ');
        m_sink.append(line);
        m_sink.append(m_lineEnding);
    }
}

void Writer::writeProlog()
{
    m_sink.append(QStringLiteral("<?xml version=\"1.0\" encoding=\"") + m_format.encoding + QStringLiteral("\"?>"));
    m_sink.append(m_lineEnding);
    if (!m_format.comment.isEmpty()) {
        m_sink.append("<!--" + XmlNames::escaped(m_format.comment) + "-->");
        m_sink.append(m_lineEnding);
    }
}

void Writer::openRoot(size_t tagCount)
{
    for (size_t i = 0; i < tagCount; ++i) {
        const int depth = static_cast<int>(i);
        writeText(depth, i == 0 ? m_format.aboveRoot : QString());
        openTag(depth, m_rootTags[i]);
        writeText(depth + 1, i == 0 ? m_format.belowRoot : QString());
    }
}

void Writer::closeRoot(size_t tagCount)
{
    while (tagCount > 0) {
        --tagCount;
        closeTag(static_cast<int>(tagCount), m_rootTags[tagCount]);
    }
}

void Writer::finish()
{
    if (m_hasRows) {
        closeRoot(m_rootTags.size());
        return;
    }
    // The innermost is a leaf now: an element without a value in those around it, an attribute of no value, or, on its
    // own, nothing.
    const size_t around = m_rootTags.size() - 1;
    openRoot(around);
    if (around > 0 && !isAttributeName(partsOf(m_format.rootName).constLast())) {
        m_sink.append(indent * static_cast<int>(around), ' ');
        m_sink.append('<' + m_rootTags.back() + "></" + m_rootTags.back() + '>' + m_lineEnding);
    }
    closeRoot(around);
}

void Writer::writeRow()
{
    if (!m_hasRows) {
        m_hasRows = true;
        openRoot(m_rootTags.size());
    }
    const int rootDepth = static_cast<int>(m_rootTags.size());
    const int around = static_cast<int>(m_rowTags.size());
    for (int i = 0; i < around; ++i) {
        openTag(rootDepth + i, m_rowTags[static_cast<size_t>(i)]);
    }
    writeElement(0);
    for (int i = around - 1; i >= 0; --i) {
        closeTag(rootDepth + i, m_rowTags[static_cast<size_t>(i)]);
    }
}

/// Names can nest very deeply, so what is open is held in a list.
void Writer::writeElement(int number)
{
    openElement(number);
    while (!m_open.empty()) {
        Open &top = m_open.back();
        const Element &parent = element(top.number);
        if (top.nextChild == parent.children.size()) {
            closeTag(depthOf(top.number), parent.tag);
            m_open.pop_back();
            continue;
        }
        const int child = parent.children[top.nextChild++];
        if (!m_tree.has(child)) {
            continue;
        }
        if (!m_tree.isLeaf(child)) {
            openElement(child);
        } else if (!element(child).isAttribute) {
            writeSimple(child);
        }
    }
}

/// Writes the whole element where it has attributes alone, else its start tag.
void Writer::openElement(int number)
{
    const int depth = depthOf(number);
    const QByteArray &tag = element(number).tag;
    m_attributes.clear();
    const bool mayHaveAttributes = !element(number).keyedChildren.empty() || !m_tree.value(number).isEmpty();
    const bool withElements = mayHaveAttributes && hasElements(number);
    if (mayHaveAttributes) {
        collectAttributes(number, withElements);
    }
    if (m_attributes.empty()) {
        openTag(depth, tag);
        m_open.push_back({number, 0});
        return;
    }
    m_sink.append(indent * depth, ' ');
    m_sink.append('<');
    m_sink.append(tag);
    writeAttributes();
    if (withElements) {
        m_sink.append('>');
        m_open.push_back({number, 0});
    } else if (m_tree.value(number).isEmpty()) {
        m_sink.append("/>", 2);
    } else {
        m_sink.append('>');
        m_escaper.append(m_tree.value(number));
        m_sink.append("</" + tag + '>');
    }
    m_sink.append(m_lineEnding);
}

bool Writer::hasElements(int number) const
{
    const std::vector<int> &children = element(number).children;
    return std::any_of(
        children.cbegin(), children.cend(), [this](int child) { return m_tree.has(child) && !isAttribute(child); });
}

void Writer::collectAttributes(int number, bool withElements)
{
    for (const int child : element(number).keyedChildren) {
        if (!m_tree.has(child) || !m_tree.isLeaf(child) || m_tree.value(child).isEmpty()) {
            continue;
        }
        const QByteArray &key = element(child).attributeKey;
        if (!m_attributes.empty() && m_attributes.back().key == key) {
            m_attributes.back().value = m_tree.value(child);
        } else {
            m_attributes.push_back({key, m_tree.value(child)});
        }
    }
    if (!withElements || m_tree.value(number).isEmpty()) {
        return;
    }
    QByteArray key("value");
    const auto isTaken = [&key](const Attribute &attribute) { return attribute.key == key; };
    while (std::any_of(m_attributes.cbegin(), m_attributes.cend(), isTaken)) {
        key.prepend('_');
    }
    const auto place = std::find_if(
        m_attributes.cbegin(), m_attributes.cend(), [&key](const Attribute &attribute) { return key < attribute.key; });
    m_attributes.insert(place, {key, m_tree.value(number)});
}

void Writer::writeAttributes()
{
    for (const Attribute &attribute : m_attributes) {
        m_sink.append(' ');
        m_sink.append(attribute.key);
        m_sink.append("=\"", 2);
        m_escaper.append(attribute.value);
        m_sink.append('"');
    }
}

void Writer::writeSimple(int number)
{
    const QByteArray &tag = element(number).tag;
    m_sink.append(indent * depthOf(number), ' ');
    m_sink.append('<');
    m_sink.append(tag);
    m_sink.append('>');
    m_escaper.append(m_tree.value(number));
    m_sink.append("</", 2);
    m_sink.append(tag);
    m_sink.append('>');
    m_sink.append(m_lineEnding);
}

} // namespace

void XmlWriter::write(TextSink &sink, const Dataset &dataset, const Format &format, const TextLayout &layout)
{
    OutputTree tree = buildOutputTree(dataset, format.removeEmpty);
    Writer writer(sink, tree, format, layout.lineEnding);
    writer.writeProlog();
    for (int row = 0; row < tree.rowCount(); ++row) {
        if (tree.goTo(row)) {
            writer.writeRow();
        }
        layout.reportRow(row, tree.rowCount());
    }
    writer.finish();
}
