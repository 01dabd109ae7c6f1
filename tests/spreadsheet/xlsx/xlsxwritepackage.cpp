#include "spreadsheet/xlsx/xlsxwritepackage.h"

#include <QFile>
#include <zip.h>

TestPackage TestPackage::read(const QString &path)
{
    TestPackage package;
    zip_t *archive = zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY | ZIP_CHECKCONS, nullptr);
    const zip_int64_t count = archive ? zip_get_num_entries(archive, 0) : 0;
    for (zip_int64_t i = 0; i < count; ++i) {
        const auto index = static_cast<zip_uint64_t>(i);
        zip_stat_t state;
        zip_stat_index(archive, index, 0, &state);
        const auto readAll = [&](zip_uint64_t size, zip_flags_t flags) {
            QByteArray bytes(static_cast<int>(size), '\0');
            zip_file_t *file = zip_fopen_index(archive, index, flags);
            bytes.resize(static_cast<int>(qMax<zip_int64_t>(zip_fread(file, bytes.data(), size), 0)));
            zip_fclose(file);
            return bytes;
        };
        package.parts.push_back(
            {QString::fromUtf8(state.name), readAll(state.size, 0), readAll(state.comp_size, ZIP_FL_COMPRESSED)});
    }
    if (archive) {
        zip_discard(archive);
    }
    return package;
}

bool TestPackage::write(const QString &path) const
{
    QFile::remove(path);
    zip_t *archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE, nullptr);
    for (const Part &part : parts) {
        zip_source_t *source = zip_source_buffer(
            archive, part.bytes.constData(), static_cast<zip_uint64_t>(part.bytes.size()), 0);
        const zip_int64_t index = zip_file_add(archive, part.name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
        if (part.name.endsWith(QLatin1String(".png"))) {
            // Programs store what is compressed in itself.
            zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), ZIP_CM_STORE, 0);
        }
    }
    return zip_close(archive) == 0;
}

const TestPackage::Part *TestPackage::find(const QString &name) const
{
    for (const Part &part : parts) {
        if (part.name == name) {
            return &part;
        }
    }
    return nullptr;
}

QByteArray TestPackage::bytes(const QString &name) const
{
    const Part *part = find(name);
    return part ? part->bytes : QByteArray();
}

void TestPackage::set(const QString &name, const QByteArray &bytes)
{
    for (Part &part : parts) {
        if (part.name == name) {
            part.bytes = bytes;
            return;
        }
    }
    parts.push_back({name, bytes, QByteArray()});
}

void TestPackage::edit(const QString &name, const QByteArray &from, const QByteArray &to)
{
    set(name, bytes(name).replace(from, to));
}

QStringList TestPackage::names() const
{
    QStringList names;
    for (const Part &part : parts) {
        names << part.name;
    }
    return names;
}
