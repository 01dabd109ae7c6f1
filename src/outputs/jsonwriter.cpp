#include "outputs/jsonwriter.h"

#include "data/numberscan.h"
#include "data/values.h"
#include "outputs/cellescaper.h"
#include "outputs/outputtree.h"
#include "outputs/textlayout.h"

namespace {

constexpr int indent = 2;

using Escaper = CellEscaper<ByteSearch<3, true>>;

const ByteReplacements &replacements()
{
    static const ByteReplacements table{{'\\', "\\\\"}, {'"', "\\\""}, {'/', "\\/"}, {'\b', "\\b"}, {'\f', "\\f"},
        {'\n', "\\n"}, {'\r', "\\r"}, {'\t', "\\t"}};
    return table;
}

bool isNumber(const Cell &cell)
{
    const StoredText text = StoredText(cell).trimmed();
    return NumberScan::isJsonNumber(text.bytes, text.bytes + text.size);
}

/// False for types whose values stand as they are.
bool isQuoted(int type)
{
    return type != JsonColumnType::Boolean && type != JsonColumnType::Number && type != JsonColumnType::RawData;
}

/// The name with its quotes and colon.
QByteArray keyOf(const QString &name)
{
    QByteArray key(1, '"');
    appendReplaced(key, StoredText(toStored(name)), replacements());
    return key + "\": ";
}

/// What a line begins with: the comma and line ending that the sibling before lacks, the indent and a key or brace.
struct LineStart
{
    QByteArray text;
    int separatorSize = 0;
    int blanksBefore = 0; ///< where in `text` the blanks end
    int moreBlanks = 0;   ///< that `text` doesn't hold
};

/// Writes the rows of a tree one behind the other.
class Writer
{
public:
    Writer(TextSink &sink, OutputTree &tree, const JsonColumnTypes &types, const QByteArray &lineEnding);

    void writeRow();
    /// Ends the last row's line.
    void finish()
    {
        if (m_afterSibling) {
            m_sink.append(m_lineEnding);
        }
    }
    const CappedList &issues() const { return m_issues; }

private:
    const OutputTree::Node &node(int number) const { return m_tree.nodes()[static_cast<size_t>(number)]; }
    /// The row's own node stands one level within the list.
    static int indentOf(const OutputTree::Node &node) { return indent * (node.depth + 1); }

    LineStart startOf(const OutputTree::Node &node, const QByteArray &key) const;
    void beginLine(const LineStart &start);
    void open(int number);
    void close();
    void writeLeaf(int number);
    void writeValue(int type, const Cell &value, int column);
    void writeNull(int type, const Cell &value, int column);

    TextSink &m_sink;
    OutputTree &m_tree;
    Escaper m_escaper;
    const QByteArray m_lineEnding;
    // By number of node
    std::vector<LineStart> m_objectStarts;
    std::vector<LineStart> m_leafStarts;
    std::vector<int> m_types;
    std::vector<int> m_open;
    bool m_afterSibling = false;
    CappedList m_issues;
};

Writer::Writer(TextSink &sink, OutputTree &tree, const JsonColumnTypes &types, const QByteArray &lineEnding)
    : m_sink(sink)
    , m_tree(tree)
    , m_escaper(sink, ByteSearch<3, true>({'"', '\\', '/'}), replacements())
    , m_lineEnding(lineEnding)
{
    for (const OutputTree::Node &node : tree.nodes()) {
        const int type = types.value(node.column, JsonColumnType::Automatic);
        const QByteArray key = keyOf(node.name);
        m_types.push_back(type);
        // The row's own object stands in a list, all others are members, whatever their names are.
        const bool isRow = node.parent < 0;
        m_objectStarts.push_back(startOf(node, (isRow ? QByteArray() : key) + '{' + lineEnding));
        m_leafStarts.push_back(startOf(node, isQuoted(type) ? key + '"' : key));
    }
}

LineStart Writer::startOf(const OutputTree::Node &node, const QByteArray &key) const
{
    // Names that nest very deeply would take room without end.
    constexpr int maxBlanks = 128;
    const int blanks = qMin(indentOf(node), maxBlanks);
    LineStart start;
    start.text = ',' + m_lineEnding + QByteArray(blanks, ' ') + key;
    start.separatorSize = 1 + m_lineEnding.size();
    start.blanksBefore = start.separatorSize + blanks;
    start.moreBlanks = indentOf(node) - blanks;
    return start;
}

void Writer::beginLine(const LineStart &start)
{
    const char *const text = start.text.constData();
    const int from = m_afterSibling ? 0 : start.separatorSize;
    if (Q_LIKELY(start.moreBlanks == 0)) {
        m_sink.append(text + from, start.text.size() - from);
        return;
    }
    m_sink.append(text + from, start.blanksBefore - from);
    m_sink.append(start.moreBlanks, ' ');
    m_sink.append(text + start.blanksBefore, start.text.size() - start.blanksBefore);
}

void Writer::writeRow()
{
    const int count = static_cast<int>(m_tree.nodes().size());
    for (int number = 0; number < count;) {
        if (!m_tree.has(number)) {
            number = node(number).end;
        } else if (m_tree.isLeaf(number)) {
            writeLeaf(number);
            number = node(number).end;
        } else {
            open(number++);
        }
        while (!m_open.empty() && node(m_open.back()).end == number) {
            close();
        }
    }
}

void Writer::open(int number)
{
    beginLine(m_objectStarts[static_cast<size_t>(number)]);
    m_open.push_back(number);
    m_afterSibling = false;
}

void Writer::close()
{
    m_sink.append(m_lineEnding);
    m_sink.append(indentOf(node(m_open.back())), ' ');
    m_sink.append('}');
    m_open.pop_back();
    m_afterSibling = true;
}

void Writer::writeLeaf(int number)
{
    beginLine(m_leafStarts[static_cast<size_t>(number)]);
    writeValue(m_types[static_cast<size_t>(number)], m_tree.value(number), node(number).column);
    m_afterSibling = true;
}

void Writer::writeValue(int type, const Cell &value, int column)
{
    bool ok = true;
    switch (type) {
    case JsonColumnType::Boolean: {
        const bool isTrue = parseBoolean(value.text(), true, true, &ok);
        return ok ? m_sink.append(isTrue ? "true" : "false", isTrue ? 4 : 5) : writeNull(type, value, column);
    }
    case JsonColumnType::Number:
        return isNumber(value) ? m_sink.append(value) : writeNull(type, value, column);
    case JsonColumnType::RawData:
        return m_sink.append(value);
    default:
        m_escaper.append(value);
        m_sink.append('"');
    }
}

void Writer::writeNull(int type, const Cell &value, int column)
{
    m_sink.append("null", 4);
    m_issues.add([&] {
        return QStringLiteral("'%1' not of type %2 in column %3.")
            .arg(value.text(), JsonColumnType::label(type), QString::number(column + 1));
    });
}

} // namespace

CappedList JsonWriter::write(
    TextSink &sink, const Dataset &dataset, const JsonColumnTypes &types, bool removeEmpty, const TextLayout &layout)
{
    OutputTree tree = buildOutputTree(dataset, removeEmpty);
    Writer writer(sink, tree, types, layout.lineEnding);
    sink.append("[" + layout.lineEnding);
    for (int row = 0; row < tree.rowCount(); ++row) {
        if (tree.goTo(row)) {
            writer.writeRow();
        }
        layout.reportRow(row, tree.rowCount());
    }
    writer.finish();
    sink.append("]" + layout.lineEnding);
    return writer.issues();
}
