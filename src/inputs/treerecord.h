#pragma once

#include <QtGlobal>
#include <vector>

struct TreePath;

/// One value of a record's tree, in the order of the source: a node's children follow it at once.
struct TreeNode
{
    enum Kind : quint8 {
        Literal, ///< text that needs no cleaning
        Plain,   ///< text that holds no whitespace but blanks
        Text,
        JsonText,   ///< text with escapes of JSON in it
        JsonNumber, ///< a number that reads as a double
        Object,
        Array
    };

    TreePath *path = nullptr;
    const char *bytes = nullptr; ///< a leaf's text
    quint32 size = 0;
    quint32 end = 0;   ///< index of the first node that isn't inside this one
    quint32 group = 0; ///< where siblings may repeat, the first of those with the same key
    Kind kind = Literal;

    bool isLeaf() const { return kind < Object; }
};

/// The tree of one record, from which rows are made.
struct TreeRecord
{
    enum Order {
        BySource, ///< children are taken as they come
        ByKey,    ///< by the bytes of their keys; of equal keys the last one counts
        ByGroup   ///< siblings with the same key together, at the first one
    };

    void clear()
    {
        nodes.clear();
        hasRepeats = false;
        hasArrays = false;
        hasObjectMembers = false;
    }

    /// The first node is the record itself.
    std::vector<TreeNode> nodes;
    Order order = BySource;
    bool hasRepeats = false;       ///< siblings with the same key
    bool hasArrays = false;        ///< arrays, whose children are rows of their own
    bool hasObjectMembers = false; ///< the record is a top-level object with objects as members
};
