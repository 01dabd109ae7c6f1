#pragma once

#include <QString>

class Dataset;
class Prompts;
struct FileRequest;

/// Takes a whole table out of the program: to the clipboard, into an editor, into a file. Says what went wrong.
class DatasetExport
{
public:
    explicit DatasetExport(Prompts &prompts)
        : m_prompts(prompts)
    {
    }

    /// Asks first when the table is large.
    void copy(const Dataset &dataset);
    /// Opens a temporary .csv file in the program that the desktop has for it.
    void edit(const Dataset &dataset);
    /// Asks for a path; `name` is the file name that is proposed.
    void save(const Dataset &dataset, const QString &name);
    /// The same, beginning as `request` says.
    void saveAs(const Dataset &dataset, const FileRequest &request);

private:
    bool write(const Dataset &dataset, const QString &path);

    Prompts &m_prompts;
};
