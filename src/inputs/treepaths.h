#pragma once

#include "inputs/treeread.h"

#include <QStringList>
#include <deque>
#include <string>
#include <vector>

/// Where values of trees lie: the keys from the root of a record down. One place lasts for the whole reading, so what
/// is known of it, first of all its column, is looked up once and not for each record.
struct TreePath
{
    TreePath *parent = nullptr;
    std::string key; ///< as it stands in the source
    quint64 hash = 0;
    int column = -1;       ///< -1 as long as no value was met here
    bool plainKey = false; ///< written in JSON, the key has the same bytes
    // What came first inside this place, and next behind it, the last time: most records are like the one before.
    TreePath *firstInside = nullptr;
    TreePath *next = nullptr;
    // The object in which a reader met this place last, and the node there.
    quint64 object = 0;
    quint32 node = 0;
    std::vector<TreePath *> positions; ///< inside, by position in an array
};

/// All places of values and their columns.
class TreePaths
{
public:
    /// With `dotsInKeys`, points in keys stay as they are; otherwise they become dashes in column names.
    TreePaths(const TreeReadOptions &options, bool dotsInKeys);

    /// The record itself.
    TreePath *root() { return &m_root; }
    /// The same for an object whose key is a value in the record, not part of its column names.
    TreePath *objectRoot() { return &m_objectRoot; }
    /// The place of `key`, `size` bytes, inside `parent`; the same for the same key each time.
    TreePath *child(TreePath *parent, const char *key, int size);
    /// The place of an array's child with this position, from 0.
    TreePath *position(TreePath *parent, int index);
    /// The column of the values at `path`, a new one at the end when no other value has its name.
    int column(TreePath *path);
    /// The column of this name.
    int namedColumn(const char *name);
    /// The key as column names have it.
    QByteArray cleanKey(const TreePath &path) const;

    int columnCount() const { return m_names.size(); }
    QStringList columnNames() const;
    /// Bytes in all column names.
    qint64 nameSize() const { return m_nameSize; }
    /// True when the values of several places go to one column.
    bool columnsAreShared() const { return m_columnsAreShared; }

private:
    TreePath *named(TreePath *path);
    QByteArray nameOf(const TreePath *path) const;
    quint64 hash(const TreePath *parent, const char *key, int size) const;
    void grow();

    const TreeReadOptions m_options;
    const bool m_dotsInKeys;
    const quint64 m_secret;
    TreePath m_root;
    TreePath m_objectRoot;
    TreePath m_nameRoot; // below it, each place is a column's name
    std::deque<TreePath> m_paths;
    std::vector<TreePath *> m_slots;
    QList<QByteArray> m_names;
    qint64 m_nameSize = 0;
    bool m_columnsAreShared = false;
};
