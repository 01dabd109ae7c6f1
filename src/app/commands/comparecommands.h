#pragma once

#include "app/commands/commandcontext.h"
#include "panes/explore/exploreditems.h"

#include <QList>
#include <QPointer>

class Node;
class QDialog;

/// Commands that compare the tables of selected items in windows that stay open beside the canvas.
class CompareCommands
{
public:
    explicit CompareCommands(const CommandContext &context);
    /// Closes the windows.
    ~CompareCommands();
    CompareCommands(const CompareCommands &) = delete;
    CompareCommands &operator=(const CompareCommands &) = delete;

    /// The data of the two items that are selected.
    void compareData();
    /// The headers of all items that are selected.
    void compareHeaders();

private:
    /// The selected items that can have a table, from left to right on the canvas.
    QList<int> selectedIds() const;
    void open(QDialog *window);
    void closeWindows();

    const CommandContext m_context;
    ExploredItems m_items;
    QList<QPointer<QDialog>> m_windows;
};
