#pragma once

#include <QByteArray>
#include <functional>

/// What all text writers are told beside the options of their format.
struct TextLayout
{
    QByteArray lineEnding = QByteArrayLiteral("\n");
    bool writeHeader = true;
    /// Takes the number of a row just written and the number of rows; may be empty.
    std::function<void(int row, int rowCount)> progress;

    static constexpr int progressStep = 1000;
    /// To be called after each row; passes every 1000th on.
    void reportRow(int row, int rowCount) const
    {
        if (row % progressStep == 0 && progress) {
            progress(row, rowCount);
        }
    }
};
