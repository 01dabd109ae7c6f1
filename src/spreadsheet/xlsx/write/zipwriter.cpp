#include "spreadsheet/xlsx/write/zipwriter.h"

#include <algorithm>
#include <cstring>
#include <zip.h>

namespace spreadsheet {
namespace {

// 1980-01-01, the first day that entries can have
constexpr zip_uint16_t firstDosDate = 0x21;

} // namespace

/// Hands the bytes of a part to the archive, deflated as they are.
struct ZipWriter::PartReader
{
    const DeflatedPart *part;
    size_t piece = 0, place = 0;

    static zip_int64_t call(void *user, void *data, zip_uint64_t length, zip_source_cmd_t command)
    {
        auto &reader = *static_cast<PartReader *>(user);
        switch (command) {
        case ZIP_SOURCE_OPEN:
            reader.piece = reader.place = 0;
            return 0;
        case ZIP_SOURCE_READ:
            return reader.read(static_cast<unsigned char *>(data), length);
        case ZIP_SOURCE_STAT:
            return length < sizeof(zip_stat_t) ? -1 : reader.stat(static_cast<zip_stat_t *>(data));
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_READABLE;
        default:
            return 0;
        }
    }

    zip_int64_t read(unsigned char *bytes, zip_uint64_t length)
    {
        zip_uint64_t done = 0;
        while (done < length && piece < part->pieces().size()) {
            const DeflatedPart::Piece &source = part->pieces()[piece];
            const size_t size = static_cast<size_t>(std::min<zip_uint64_t>(length - done, source.size - place));
            memcpy(bytes + done, source.bytes.get() + place, size);
            done += size;
            place += size;
            if (place == source.size) {
                ++piece;
                place = 0;
            }
        }
        return static_cast<zip_int64_t>(done);
    }

    zip_int64_t stat(zip_stat_t *state) const
    {
        zip_stat_init(state);
        state->size = part->size();
        state->comp_size = part->packedSize();
        state->crc = static_cast<zip_uint32_t>(part->crc());
        state->comp_method = ZIP_CM_DEFLATE;
        state->valid = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_CRC | ZIP_STAT_COMP_METHOD;
        return sizeof(zip_stat_t);
    }
};

ZipWriter::ZipWriter(const QString &path)
    : m_target(path)
{
}

ZipWriter::~ZipWriter()
{
    if (m_zip) {
        zip_discard(m_zip);
    }
}

bool ZipWriter::fail(const QString &error)
{
    m_error = error;
    return false;
}

bool ZipWriter::failByArchive()
{
    return fail(QString::fromUtf8(zip_strerror(m_zip)));
}

bool ZipWriter::open()
{
    if (!m_target.open()) {
        return fail(m_target.error());
    }
    zip_source_t *source = m_target.source();
    if (!source) {
        throw std::bad_alloc();
    }
    zip_error_t error;
    zip_error_init(&error);
    m_zip = zip_open_from_source(source, ZIP_CREATE | ZIP_TRUNCATE, &error);
    if (!m_zip) {
        fail(QString::fromUtf8(zip_error_strerror(&error)));
        zip_source_free(source);
    }
    zip_error_fini(&error);
    return m_zip;
}

bool ZipWriter::add(const QByteArray &name, const DeflatedPart &part)
{
    m_readers.push_back({&part});
    zip_source_t *source = zip_source_function(m_zip, PartReader::call, &m_readers.back());
    const zip_int64_t index = source ? zip_file_add(m_zip, name.constData(), source, 0) : -1;
    if (index < 0) {
        zip_source_free(source);
        return failByArchive();
    }
    zip_file_set_dostime(m_zip, static_cast<zip_uint64_t>(index), 0, firstDosDate, 0);
    return true;
}

bool ZipWriter::copy(zip *from, quint64 index)
{
    const char *name = zip_get_name(from, index, ZIP_FL_ENC_RAW);
    if (!name || zip_name_locate(m_zip, name, ZIP_FL_ENC_RAW) >= 0) {
        return true;
    }
    zip_source_t *source = zip_source_zip(m_zip, from, index, 0, 0, 0);
    const zip_int64_t added = source ? zip_file_add(m_zip, name, source, ZIP_FL_ENC_GUESS) : -1;
    if (added < 0) {
        zip_source_free(source);
        return failByArchive();
    }
    keepProperties(from, index, static_cast<zip_uint64_t>(added));
    return true;
}

/// What the archive would choose anew for an entry.
void ZipWriter::keepProperties(zip *from, quint64 index, quint64 added)
{
    zip_stat_t state;
    if (zip_stat_index(from, index, 0, &state) == 0) {
        if ((state.valid & ZIP_STAT_COMP_METHOD) != 0 && state.comp_method == ZIP_CM_STORE) {
            zip_set_file_compression(m_zip, added, ZIP_CM_STORE, 0);
        }
        if ((state.valid & ZIP_STAT_MTIME) != 0) {
            zip_file_set_mtime(m_zip, added, state.mtime, 0);
        }
    }
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(from, index, 0, &system, &attributes) == 0) {
        zip_file_set_external_attributes(m_zip, added, 0, system, attributes);
    }
}

bool ZipWriter::finish()
{
    if (zip_close(m_zip) != 0) {
        return failByArchive();
    }
    m_zip = nullptr;
    return m_target.commit() || fail(m_target.error());
}

} // namespace spreadsheet
