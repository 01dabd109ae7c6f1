#pragma once

#include <QByteArray>
#include <QString>
#include <memory>
#include <vector>

class QIODevice;

namespace spreadsheet {

/// A stream or storage of a compound file, one that is there or one to be written.
struct CompoundPart
{
    QString path;           ///< names from the root on, joined by "/"; empty for the root storage
    bool isStorage = false; ///< holds other parts instead of bytes
    QByteArray classId;     ///< of a storage: 16 bytes, or empty for none
    qint64 size = 0;        ///< bytes of a stream in a file; below 0 when it can't be read
    QByteArray content;     ///< of a stream to be written that isn't copied
    int copyOf = -1;        ///< part of the file that a stream is copied from; -1 for one with content of its own
};

/// A compound file: streams in storages in one file. Functions that give false leave a text in error().
class CompoundFile
{
public:
    static constexpr qint64 maxStreamSize = qint64(512) << 20;
    static constexpr int maxParts = 10000;
    static constexpr int maxDepth = 16;

    CompoundFile();
    ~CompoundFile();
    Q_DISABLE_COPY(CompoundFile)

    /// The file stays open. False when it is no compound file or is damaged.
    bool open(const QString &path);
    /// The same for a file in memory.
    bool open(const QByteArray &bytes);

    /// All parts, each storage before what it holds and the root first. Streams are copies of themselves, so that the
    /// list, with some parts changed, dropped or added, can be given to write().
    const std::vector<CompoundPart> &parts() const { return m_parts; }
    /// Position of a part, in any case of letters; -1 when there is none.
    int find(const QString &path) const;
    bool read(int part, QByteArray *content);

    /// Writes a whole file to an open device. Storages stand before what they hold; the root may be left out.
    /// `original` gives the streams that are copied, and may be null when none is.
    bool write(QIODevice &device, const std::vector<CompoundPart> &parts, CompoundFile *original);

    const QString &error() const { return m_error; }

    /// True when bytes begin like a compound file.
    static bool isCompound(const QByteArray &head);

private:
    struct Input;
    bool openInput();
    bool fail(const QString &error);

    std::unique_ptr<Input> m_input;
    std::vector<CompoundPart> m_parts;
    QString m_error;
};

} // namespace spreadsheet
