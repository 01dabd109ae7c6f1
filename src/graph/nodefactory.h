#pragma once

#include <QString>
#include <functional>

class IONode;
class Node;

/// Makes the kinds of node that higher layers own; Application fills it, tests put doubles in. New nodes have the
/// next free id and belong to the caller.
struct NodeFactory
{
    /// An input of a file, its type by the extension.
    std::function<IONode *(const QString &path)> createInput;
    /// An input of a folder; may ask the user, and gives null when the user cancels. `mask` is a proposal.
    std::function<IONode *(const QString &folder, const QString &mask)> createFolderInput;
    /// An input that holds the clipboard's text.
    std::function<IONode *(const QString &text)> createClipboardInput;
    std::function<IONode *(const QString &path, int fileType)> createOutput;
    std::function<Node *()> createChart;

    /// The one of the process.
    static NodeFactory &instance();
};
