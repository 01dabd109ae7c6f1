#pragma once

#include "inputs/treepaths.h"
#include "inputs/treerecord.h"

#include <functional>

/// Makes records of what an XML parser meets: one of each child of the document element. Names and texts are given in
/// WTF-8.
class XmlRecordBuilder
{
public:
    /// Deeper elements are refused.
    static constexpr int greatestDepth = 1024;

    /// `done` takes each record and may throw. With `longRows`, siblings of one name share their place, so that they
    /// become rows; otherwise each has a place of its own, by position.
    XmlRecordBuilder(TreePaths *paths, bool longRows, std::function<void(const TreeRecord &)> done);

    /// Called now and then within large records; may throw, which ends the work.
    void setProgress(std::function<void()> progress) { m_progress = std::move(progress); }

    /// False when the elements are nested too deeply.
    bool startElement(const char *name, int size);
    /// Of the element begun last; of attributes with the same name the last one counts.
    void attribute(const char *name, int nameSize, const char *value, int valueSize);
    void text(const char *bytes, int size) { current().text.append(bytes, static_cast<size_t>(size)); }
    /// Something that isn't text comes or came: what was text since the last call is complete. Whitespace alone is
    /// dropped unless it stood `inCdata`.
    void finishText(bool inCdata = false);
    void endElement();

private:
    struct Element
    {
        TreePath *path = nullptr;
        TreePath *last = nullptr; // of the child before
        quint64 serial = 0;
        quint32 node = 0;
        std::string text;
    };

    struct Repeats
    {
        int count = 0;
        int placed = 0;
    };

    Element &current() { return m_elements[static_cast<size_t>(m_depth)]; }
    TreePath *childPath(Element &parent, const char *name, int size);
    quint32 addChild(Element &parent, TreePath *path);
    quint32 addNode(TreePath *path, TreeNode::Kind kind);
    void setText(quint32 node, const char *bytes, size_t size);
    void startRecord();
    void finishRecord();
    void addTextRecord(const char *name);
    void placeChildren(quint32 node, TreePath *path);

    TreePaths *m_paths;
    const bool m_longRows;
    const std::function<void(const TreeRecord &)> m_done;
    std::function<void()> m_progress;
    size_t m_nextReport = 0; // number of nodes

    // The first is the document itself, the second the document element.
    std::vector<Element> m_elements;
    int m_depth = 0;
    quint64 m_serial = 0;
    size_t m_textBegin = 0; // in the current element's text
    TreeRecord m_record;
    std::vector<quint64> m_textOffsets; // in m_texts, for each node
    std::string m_texts;
    std::vector<Repeats> m_repeats; // for each node that is the first of its name
};
