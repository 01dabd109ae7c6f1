#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <functional>
#include <vector>

struct zip;

namespace spreadsheet {

/// A zip archive open for reading. Entries are found by part name: in any case, with either slash, with or without one
/// at the front. Inflated sizes are bounded whatever the archive states about them.
class ZipArchive
{
public:
    struct Entry
    {
        QByteArray name;       ///< UTF-8, as the archive has it, but with "/" and none at the front
        quint64 index = 0;     ///< in the archive, for its handle
        qint64 size = 0;       ///< inflated, as the archive states it
        qint64 packedSize = 0; ///< bytes in the archive
    };
    /// Takes the next bytes of an entry; false to stop.
    using Sink = std::function<bool(const char *bytes, int size)>;
    /// How much a part may inflate to.
    struct Limits
    {
        qint64 size = 8LL << 30;
        qint64 ratio = 200;            ///< to its packed size; real sheets reach a quarter of it at most
        qint64 anyRatio = 256LL << 20; ///< smaller ones may have any ratio
    };

    ZipArchive() = default;
    ~ZipArchive();
    Q_DISABLE_COPY(ZipArchive)

    /// The file stays open, and what is read stays the same when another takes its place. False with an error() for
    /// what isn't an archive.
    bool open(const QString &path);
    /// The same for an archive in memory.
    bool open(const QByteArray &bytes);
    const std::vector<Entry> &entries() const { return m_entries; }
    /// Null when there is no such part. The first of equal names counts.
    const Entry *find(const QString &part) const;
    bool contains(const QString &part) const { return find(part); }
    /// All of a part. False when it is missing, damaged or larger than `limit` bytes.
    bool read(const QString &part, QByteArray *bytes, qint64 limit = smallPartLimit);
    /// Hands a part piece by piece to the sink. True as well when the sink stopped it; false for a part that is missing
    /// or damaged, or one that expands beyond all measure.
    bool stream(const QString &part, const Sink &sink) { return stream(part, sink, Limits()); }
    bool stream(const QString &part, const Sink &sink, const Limits &limits);

    /// For copying entries as they are; owned by the archive.
    zip *handle() const { return m_zip; }
    /// Of the last call that failed, in words for the user.
    const QString &error() const { return m_error; }

    static constexpr qint64 smallPartLimit = 64LL << 20;

private:
    bool fail(const QString &error);
    bool listEntries();
    bool inflate(const Entry &entry, qint64 limit, const Sink &sink);

    QByteArray m_bytes; // of an archive in memory
    zip *m_zip = nullptr;
    std::vector<Entry> m_entries;
    QHash<QString, size_t> m_byName; // by the name that names are compared by
    QString m_error;
};

} // namespace spreadsheet
