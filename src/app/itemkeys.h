#pragma once

#include "app/commands/commandcontext.h"

#include <QList>

class Node;

/// Ctrl+1 to Ctrl+9 select the first to ninth input, with Shift the outputs, in the order in which they were made.
class ItemKeys
{
public:
    explicit ItemKeys(const CommandContext &context);

    /// `number` counts from 1; one that there isn't does nothing.
    void selectInput(int number) const;
    void selectOutput(int number) const;

private:
    void select(QList<Node *> nodes, int number) const;

    const CommandContext m_context;
};
