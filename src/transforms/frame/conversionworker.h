#pragma once

#include "data/textbuffer.h"
#include "transforms/frame/cellmemo.h"
#include "transforms/frame/columnedit.h"

#include <functional>
#include <optional>
#include <vector>

/// Applies a conversion to one column, some rows at a time. Results are remembered by the cell's bits, so that a text
/// that repeats costs a look-up.
class ConversionWorker
{
public:
    using Rule = std::function<bool(const Cell &cell, TextBuffer &out)>;

    /// `rule` must outlive the worker; `unreadText` is what cells that it can't read become.
    ConversionWorker(const Rule &rule, const std::optional<QString> &unreadText, const CellColumn &column);

    /// Rows from `first` to before `end`.
    void process(int first, int end);
    int changedCount() const { return m_changed; }
    int unreadCount() const { return m_unread; }
    int unreadChangedCount() const { return m_unreadChanged; }
    /// The first rows that didn't read, CappedList::usualLimit at most.
    const std::vector<int> &unreadRows() const { return m_unreadRows; }
    bool isChanged() const { return m_edit.isChanged(); }
    CellColumn take() { return m_edit.take(); }

private:
    struct Known
    {
        Cell result;
        bool isRead = false;
    };
    void learn(const Cell &cell, Known &known);

    const Rule &m_rule;
    std::optional<QString> m_unreadText;
    ColumnEdit m_edit;
    CellMemo<Known> m_known;
    TextBuffer m_buffer;
    std::vector<int> m_unreadRows;
    int m_changed = 0;
    int m_unread = 0;
    int m_unreadChanged = 0;
};
