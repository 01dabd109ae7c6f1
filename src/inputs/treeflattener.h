#pragma once

#include "inputs/treepaths.h"
#include "inputs/treerows.h"

#include <functional>

struct TreeNode;
struct TreeRecord;

/// Turns the trees of records into rows of a table.
class TreeFlattener
{
public:
    TreeFlattener(TreePaths *paths, const TreeReadOptions &options, Dataset *dataset);

    /// Called about every thousand values and cells; may throw, which ends the work.
    void setProgress(std::function<void()> progress) { m_progress = std::move(progress); }

    void add(const TreeRecord &record);
    /// Looks for numbers of JSON whose digits change, in text whose values come by another way than as text.
    void checkDigits(const char *begin, const char *end) { m_rows.digits().checkAll(begin, end); }
    /// Hands over what is left and gives the table its header; what there is to tell goes to the lists.
    void finish(QStringList *infos, QStringList *warnings);

private:
    using Text = TreeRows::Text;
    /// The children of a node in their order, as a stretch of m_children.
    struct Children
    {
        quint32 begin = 0;
        quint32 count = 0;
    };

    bool addPlainly(const TreeRecord &record);
    void addInOrder(const TreeRecord &record);
    void prepare(quint32 node);
    Children listChildren(quint32 node);
    void sortByKey(quint32 begin);
    void expandRecords();
    void expand(quint32 node, qint64 firstRow);
    void expandChildren(quint32 node, qint64 firstRow);
    void expandRepeats(const quint32 *children, quint32 count, qint64 firstRow);
    void setCells(int column, Text text, qint64 firstRow);
    void appendCopies(const std::vector<Text> &cells, qint64 rows);
    void storeRows();
    void work(qint64 amount);

    TreePaths *m_paths;
    Dataset *m_dataset;
    TreeRows m_rows;
    std::function<void()> m_progress;
    qint64 m_work = 0;

    const TreeRecord *m_record = nullptr;
    std::vector<quint32> m_children;
    std::vector<Children> m_lists; // one for each node of the record
    int m_objectNameColumn = -1;
    int m_width = 0;
    qint64 m_rowCount = 0;
    std::vector<Text> m_cells; // m_rowCount rows of m_width
};
