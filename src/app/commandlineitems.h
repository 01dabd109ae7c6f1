#pragma once

#include <QList>
#include <QString>

class GraphScene;

/// What the text for the command line and batches need to know of an item.
struct CommandLineItem
{
    enum Kind { Input, Output, Chart };

    Kind kind = Input;
    QString alias;
    /// File with its sheet, or folder.
    QString path;
    bool isFolder = false;
    /// An input that reaches an output or chart, or one of these that an input reaches.
    bool isConnected = false;
    /// An input that reaches an output or chart that writes a file.
    bool feedsFile = false;
    /// What an output or chart does with files: a value of WriteMode.
    int writeMode = 0;
    /// An output that wants the names of its files from a column, and has no column.
    bool lacksFilesColumn = false;
    /// An output that takes the names of its files from a column.
    bool isMultiFile = false;
    /// What a chart draws, such as "Line".
    QString chartType;
};

/// The inputs from files and folders, the outputs, and the charts that write files, each kind by ascending id.
QList<CommandLineItem> commandLineItems(const GraphScene &scene);
