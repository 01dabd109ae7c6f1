#pragma once

#include "inputs/treepaths.h"
#include "inputs/treerecord.h"

#include <functional>

/// Parses one JSON value after the other from UTF-8 into records. It takes nothing that QJsonDocument wouldn't take
/// with the same meaning, but not all that it would.
class JsonParser
{
public:
    enum Status {
        Parsed,
        Incomplete, ///< the text ended inside the value
        Refused     ///< not valid, or too unusual to be sure
    };

    /// `longArrays` gives all children of an array the place of the array. `plainNumbers` says that numbers are shown
    /// with a point and ASCII digits.
    JsonParser(TreePaths *paths, bool longArrays, bool plainNumbers);

    /// Called now and then within large values; may throw, which ends the work.
    void setProgress(std::function<void()> progress) { m_progress = std::move(progress); }
    /// With `on`, line ends inside the value are refused.
    void setOneLine(bool on) { m_oneLine = on; }

    /// Parses the value at `begin` into `record`; an object whose members may be records of their own when it is
    /// `topLevel`. The text ends at `end`, where a quote stands, and 64 more bytes are readable.
    Status parse(const char *begin, const char *end, bool topLevel, TreeRecord *record);
    /// Behind the value parsed last.
    const char *rest() const { return m_at; }

    /// Whitespace between values.
    static bool isSpace(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }
    /// Behind the spaces, tabs, line feeds and carriage returns at `at`.
    static const char *skipSpace(const char *at)
    {
        while (isSpace(*at)) {
            ++at;
        }
        return at;
    }

private:
    struct Container
    {
        TreePath *path; // of what is inside
        TreePath *last; // of the member before
        quint64 serial; // of an object
        quint32 node;
        int count; // of children begun
        bool isObject;
    };

    bool token()
    {
        if (Q_UNLIKELY(static_cast<uchar>(*m_at) <= ' ')) {
            skipSpaces();
        }
        return m_at < m_end;
    }
    void skipSpaces();
    bool value(TreePath *path);
    bool string(TreePath *path);
    bool number(TreePath *path);
    bool literal(TreePath *path, const char *text, int size);
    bool open(TreePath *path, TreeNode::Kind kind);
    bool next(Container &container);
    bool member(Container &object);
    TreePath *key(const Container &object);
    TreePath *unusualKey(const Container &object);
    void close();
    TreeNode &addNode(TreePath *path, TreeNode::Kind kind);
    bool orderIsSure() const;

    TreePaths *m_paths;
    const bool m_longArrays;
    const bool m_plainNumbers;
    std::function<void()> m_progress;
    size_t m_nextReport = 0; // number of nodes
    bool m_oneLine = false;
    TreeRecord *m_record = nullptr;
    const char *m_at = nullptr;
    const char *m_end = nullptr;
    bool m_topLevel = false;
    bool m_hasEscapedKeys = false;
    quint64 m_objects = 0;
    std::vector<Container> m_containers;
    std::string m_key;
};
