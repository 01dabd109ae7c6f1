#include "spreadsheet/xlsx/write/savetarget.h"

#include <cerrno>
#include <cstring>
#include <zip.h>

namespace spreadsheet {

/// What the archive asks of the file. It is made anew, so there is nothing to read.
struct SaveTarget::Calls
{
    static zip_int64_t call(void *user, void *data, zip_uint64_t length, zip_source_cmd_t command)
    {
        SaveTarget &target = *static_cast<SaveTarget *>(user);
        QFile &file = target.m_replacement.file();
        switch (command) {
        case ZIP_SOURCE_STAT:
            return stat(data, length);
        case ZIP_SOURCE_ERROR:
            return error(target, data, length);
        case ZIP_SOURCE_WRITE:
            return write(target, data, length);
        case ZIP_SOURCE_SEEK_WRITE:
            return seek(target, data, length);
        case ZIP_SOURCE_TELL_WRITE:
            return file.pos();
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_WRITABLE;
        default:
            return 0; // nothing to open, read, close or remove; the file is committed by its owner
        }
    }

    static zip_int64_t write(SaveTarget &target, const void *data, zip_uint64_t length)
    {
        errno = 0;
        const qint64 written = target.m_replacement.file().write(
            static_cast<const char *>(data), static_cast<qint64>(length));
        target.m_systemError = written < 0 ? errno : 0;
        return written;
    }

    static zip_int64_t stat(void *data, zip_uint64_t length)
    {
        if (length < sizeof(zip_stat_t)) {
            return -1;
        }
        auto *state = static_cast<zip_stat_t *>(data);
        zip_stat_init(state);
        state->size = 0;
        state->valid = ZIP_STAT_SIZE;
        return sizeof(zip_stat_t);
    }

    static zip_int64_t error(const SaveTarget &target, void *data, zip_uint64_t length)
    {
        const int codes[] = {ZIP_ER_WRITE, target.m_systemError};
        if (length < sizeof(codes)) {
            return -1;
        }
        memcpy(data, codes, sizeof(codes));
        return sizeof(codes);
    }

    static zip_int64_t seek(SaveTarget &target, void *data, zip_uint64_t length)
    {
        QFile &file = target.m_replacement.file();
        zip_error_t ignored;
        zip_error_init(&ignored);
        const zip_int64_t place = zip_source_seek_compute_offset(
            static_cast<zip_uint64_t>(file.pos()), static_cast<zip_uint64_t>(file.size()), data, length, &ignored);
        zip_error_fini(&ignored);
        return place >= 0 && file.seek(place) ? 0 : -1;
    }
};

SaveTarget::SaveTarget(const QString &path)
    : m_replacement(path)
{
}

bool SaveTarget::open()
{
    return m_replacement.open();
}

zip_source *SaveTarget::source()
{
    return zip_source_function_create(Calls::call, this, nullptr);
}

bool SaveTarget::commit()
{
    return m_replacement.commit();
}

QString SaveTarget::error() const
{
    return m_replacement.error();
}

} // namespace spreadsheet
