#pragma once

#include "inputs/inputoptions.h"

#include <QDateTime>
#include <functional>

/// A file that an input from a folder would read.
struct FolderListingRow
{
    QString folder;
    QString name;
    QStringList sheets; ///< those that match; empty for files that aren't workbooks
    qint64 bytes = 0;
    QDateTime created; ///< invalid where the file system doesn't keep it
    QDateTime modified;

    /// Rounded up, so that only an empty file has none.
    qint64 kilobytes() const { return (bytes + 1023) / 1024; }
};

/// What an input from a folder would read, for a person to check before.
class FolderListing
{
public:
    FolderListing(const FolderInput &source, int fileType);

    /// What is wrong with folder, wildcard or type, in lines; an input can be made nonetheless.
    QStringList checks() const;
    /// Lists the files. `goOn` is called after each of them and may let events in; false ends the listing.
    void run(const std::function<bool()> &goOn);

    const QList<FolderListingRow> &rows() const { return m_rows; }
    /// What the listing left out, and whether it was stopped.
    const QStringList &messages() const { return m_messages; }
    /// How many files and sheets of how many folders, and their size.
    QString summary() const;

private:
    const FolderInput m_source;
    const int m_fileType;
    QList<FolderListingRow> m_rows;
    QStringList m_messages;
    bool m_isStopped = false;
};
