#pragma once

#include "data/dataset.h"
#include "inputs/textsource.h"
#include "inputs/treeread.h"
#include "support/grid.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <QVector>
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

/// All that a reader of trees tells.
struct TreeOutcome
{
    bool done = false;
    QStringList header;
    QStringList rows;
    QStringList infos;
    QStringList warnings;
};

/// What `Reader` makes of `bytes`, read so many at a time.
template<class Reader>
TreeOutcome readTree(const QByteArray &bytes, const TreeReadOptions &options, int blockSize = 1 << 16)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    TextSource source(&buffer, TextSource::automatic());
    Reader reader(options, &source);
    reader.setBlockSize(blockSize);
    Dataset dataset;
    TreeOutcome reading;
    reading.done = reader.read(&dataset);
    reading.header = dataset.header();
    reading.rows = rows(dataset);
    reading.infos = reader.infos();
    reading.warnings = reader.warnings();
    return reading;
}

/// While one lives, the leak check passes over what is left behind: QJsonDocument forgets a few small blocks of each
/// nested text that it doesn't take.
class IgnoredLeaks
{
public:
#ifdef __SANITIZE_ADDRESS__
    IgnoredLeaks()
    {
        __lsan_disable();
    }
    ~IgnoredLeaks()
    {
        __lsan_enable();
    }
#else
    IgnoredLeaks() {}
#endif
    Q_DISABLE_COPY(IgnoredLeaks)
};

/// `text` with some bytes or pieces changed, moved, doubled or cut off, by chance; no '|' comes in.
inline QByteArray mutated(QByteArray text, const QVector<QByteArray> &pieces, QRandomGenerator &random)
{
    const auto below = [&random](int limit) { return static_cast<int>(random.bounded(qMax(1, limit))); };
    for (int edits = 1 + below(3); edits > 0; --edits) {
        const int at = below(text.size() + 1);
        switch (below(6)) {
        case 0:
            text.insert(at, pieces.at(below(pieces.size())));
            break;
        case 1:
            text.remove(at, 1 + below(4));
            break;
        case 2:
            text.replace(at, 1, pieces.at(below(pieces.size())));
            break;
        case 3:
            text.insert(at, text.mid(below(text.size()), below(20)));
            break;
        case 4:
            text.truncate(at);
            break;
        default:
            text.replace(at, 1, QByteArray(1, static_cast<char>(below(124))));
        }
    }
    return text;
}
