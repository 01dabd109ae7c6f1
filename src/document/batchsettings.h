#pragma once

#include <QMap>
#include <QPair>
#include <QString>

/// What a document keeps of batch runs: the grid and where the report goes.
struct BatchSettings
{
    enum LogMode { Append = 0, Overwrite = 1 };
    static constexpr int maxRows = 100000;
    static constexpr int maxVerbosity = 4;

    /// The grid's cells by 0-based row and alias; only those that hold something.
    QMap<QPair<int, QString>, QString> values;
    int verbosity = 2;
    bool loggingEnabled = false;
    QString logPath; ///< variables unexpanded
    int logMode = Append;

    /// Rows up to the last that holds something.
    int rowCount() const { return values.isEmpty() ? 0 : values.lastKey().first + 1; }

    friend bool operator==(const BatchSettings &a, const BatchSettings &b)
    {
        return a.values == b.values && a.verbosity == b.verbosity && a.loggingEnabled == b.loggingEnabled
               && a.logPath == b.logPath && a.logMode == b.logMode;
    }
    friend bool operator!=(const BatchSettings &a, const BatchSettings &b) { return !(a == b); }
};
