#include "spreadsheet/xlsx/ziparchive.h"

#include <QFile>
#include <cstring>
#include <memory>
#include <zip.h>

namespace spreadsheet {
namespace {

constexpr int pieceSize = 64 << 10;
constexpr qint64 largestStated = 1LL << 40; // a larger size in a directory is a lie

/// Names are compared without regard to case, as the format demands, and some programs write "\".
QString comparedName(QString name)
{
    name.replace(QLatin1Char('\\'), QLatin1Char('/'));
    int slashes = 0;
    while (slashes < name.size() && name.at(slashes) == QLatin1Char('/')) {
        ++slashes;
    }
    return name.mid(slashes).toLower();
}

QString openingError(int code)
{
    switch (code) {
    case ZIP_ER_NOZIP:
        return QStringLiteral("The file is not an .xlsx workbook or is damaged");
    case ZIP_ER_INCONS:
        return QStringLiteral("The file is damaged or incomplete");
    case ZIP_ER_MEMORY:
        return QStringLiteral("There is not enough memory to open the file");
    default:
        return QStringLiteral("The file can't be opened for reading");
    }
}

QString readingError(zip_error_t *error)
{
    switch (zip_error_code_zip(error)) {
    case ZIP_ER_NOPASSWD:
    case ZIP_ER_WRONGPASSWD:
    case ZIP_ER_ENCRNOTSUPP:
        return QStringLiteral("The file is encrypted");
    case ZIP_ER_COMPNOTSUPP:
        return QStringLiteral("The file is compressed in a way that can't be read");
    default:
        return QStringLiteral("The file is damaged: %1").arg(QString::fromUtf8(zip_error_strerror(error)));
    }
}

} // namespace

ZipArchive::~ZipArchive()
{
    if (m_zip) {
        zip_discard(m_zip);
    }
}

bool ZipArchive::fail(const QString &error)
{
    m_error = error;
    return false;
}

bool ZipArchive::open(const QString &path)
{
    int code = 0;
    m_zip = zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, &code);
    return m_zip ? listEntries() : fail(openingError(code));
}

bool ZipArchive::open(const QByteArray &bytes)
{
    m_bytes = bytes;
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t *source = zip_source_buffer_create(
        m_bytes.constData(), static_cast<zip_uint64_t>(m_bytes.size()), 0, &error);
    m_zip = source ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr;
    if (source && !m_zip) {
        zip_source_free(source);
    }
    const int code = zip_error_code_zip(&error);
    zip_error_fini(&error);
    return m_zip ? listEntries() : fail(openingError(code));
}

bool ZipArchive::listEntries()
{
    const zip_int64_t count = zip_get_num_entries(m_zip, 0);
    for (zip_int64_t i = 0; i < count; ++i) {
        zip_stat_t state;
        if (zip_stat_index(m_zip, static_cast<zip_uint64_t>(i), 0, &state) != 0 || !(state.valid & ZIP_STAT_NAME)) {
            continue;
        }
        Entry entry;
        entry.name = QByteArray(state.name).replace('\\', '/');
        entry.name.remove(0, static_cast<int>(strspn(entry.name.constData(), "/")));
        entry.index = static_cast<quint64>(i);
        entry.size = static_cast<qint64>(qMin<zip_uint64_t>(state.size, largestStated));
        entry.packedSize = static_cast<qint64>(qMin<zip_uint64_t>(state.comp_size, largestStated));
        const QString compared = comparedName(QString::fromUtf8(entry.name));
        if (!m_byName.contains(compared)) {
            m_byName.insert(compared, m_entries.size());
        }
        m_entries.push_back(entry);
    }
    return true;
}

const ZipArchive::Entry *ZipArchive::find(const QString &part) const
{
    const auto found = m_byName.constFind(comparedName(part));
    return found == m_byName.constEnd() ? nullptr : &m_entries[*found];
}

bool ZipArchive::read(const QString &part, QByteArray *bytes, qint64 limit)
{
    bytes->clear();
    const Entry *entry = find(part);
    if (!entry) {
        return fail(QStringLiteral("The file has no part '%1'").arg(part));
    }
    bytes->reserve(static_cast<int>(qMin(qMin(entry->size, limit), entry->packedSize * 20 + pieceSize)));
    const bool whole = inflate(*entry, limit, [bytes](const char *piece, int size) {
        bytes->append(piece, size);
        return true;
    });
    if (!whole) {
        bytes->clear();
    }
    return whole;
}

bool ZipArchive::stream(const QString &part, const Sink &sink, const Limits &limits)
{
    const Entry *entry = find(part);
    if (!entry) {
        return fail(QStringLiteral("The file has no part '%1'").arg(part));
    }
    const qint64 byRatio = qMin(entry->packedSize, limits.size) * limits.ratio;
    return inflate(*entry, qMin(limits.size, qMax(limits.anyRatio, byRatio)), sink);
}

bool ZipArchive::inflate(const Entry &entry, qint64 limit, const Sink &sink)
{
    // Closed as well when the sink throws.
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t *)> file(zip_fopen_index(m_zip, entry.index, 0), zip_fclose);
    if (!file) {
        return fail(readingError(zip_get_error(m_zip)));
    }
    QByteArray piece(pieceSize, Qt::Uninitialized);
    qint64 total = 0;
    bool ok = true;
    for (bool more = true; more;) {
        const zip_int64_t size = zip_fread(file.get(), piece.data(), pieceSize);
        total += qMax<zip_int64_t>(size, 0);
        if (size < 0) {
            ok = fail(readingError(zip_file_get_error(file.get())));
        } else if (total > limit) {
            ok = fail(QStringLiteral("The part '%1' is too large").arg(QString::fromUtf8(entry.name)));
        }
        more = ok && size > 0 && sink(piece.constData(), static_cast<int>(size));
    }
    return ok;
}

} // namespace spreadsheet
