#include "data/longtext.h"

#include <stdexcept>

[[noreturn]] static void refuse()
{
    throw std::length_error("text too long for a cell");
}

void LongText::append(TextBuffer &text, const char *bytes, int size)
{
    if (size > mostBytes - text.size()) {
        refuse();
    }
    text.append(bytes, size);
}

void LongText::replace(QString &text, const QString &find, const QString &with, Qt::CaseSensitivity sensitivity)
{
    const qint64 growth = with.size() - find.size();
    const qint64 most = mostBytes - text.size();
    // Counting takes as long as replacing, so it is left to texts that may become too long.
    if (growth > 0 && text.size() / find.size() * growth > most && text.count(find, sensitivity) * growth > most) {
        refuse();
    }
    text.replace(find, with, sensitivity);
}
