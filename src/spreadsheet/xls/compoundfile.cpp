#include "spreadsheet/xls/compoundfile.h"

#include "spreadsheet/xls/compounddirectory.h"
#include "spreadsheet/xls/gsfhandle.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QIODevice>
#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-input-stdio.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-outfile.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-output.h>

namespace spreadsheet {
namespace {

constexpr int classIdSize = 16;

QByteArray classIdOf(GsfInput *storage)
{
    QByteArray id(classIdSize, '\0');
    gsf_infile_msole_get_class_id(GSF_INFILE_MSOLE(storage), reinterpret_cast<guint8 *>(id.data()));
    return id;
}

void setClassId(GsfOutput *storage, const QByteArray &id)
{
    if (id.size() == classIdSize) {
        gsf_outfile_msole_set_class_id(GSF_OUTFILE_MSOLE(storage), reinterpret_cast<const guint8 *>(id.constData()));
    }
}

int childCount(GsfInput *input)
{
    return gsf_infile_num_children(GSF_INFILE(input));
}

} // namespace

struct CompoundFile::Input
{
    /// Where a part hangs.
    struct Place
    {
        int parent = -1, child = -1;
    };

    GsfHandle<GsfInput> file, root;
    std::vector<Place> places;

    /// The part opened for reading; null when it can't be.
    GsfHandle<GsfInput> openPart(int part) const
    {
        const Place place = places[static_cast<size_t>(part)];
        if (place.parent < 0) {
            g_object_ref(root.get());
            return GsfHandle<GsfInput>(root.get());
        }
        const GsfHandle<GsfInput> parent = openPart(place.parent);
        return GsfHandle<GsfInput>(parent ? gsf_infile_child_by_index(GSF_INFILE(parent.get()), place.child) : nullptr);
    }

    /// Lists what a storage holds; false when there is too much of it.
    bool list(GsfInput *storage, int storagePart, int depth, std::vector<CompoundPart> &parts)
    {
        const int count = childCount(storage);
        if (depth > maxDepth || count > maxParts - static_cast<int>(parts.size())) {
            return false;
        }
        const QString path = parts[static_cast<size_t>(storagePart)].path;
        for (int child = 0; child < count; ++child) {
            const QString name = QString::fromUtf8(gsf_infile_name_by_index(GSF_INFILE(storage), child));
            const GsfHandle<GsfInput> input(gsf_infile_child_by_index(GSF_INFILE(storage), child));
            CompoundPart part;
            part.path = path.isEmpty() ? name : path + QLatin1Char('/') + name;
            part.isStorage = input && childCount(input.get()) >= 0;
            part.size = part.isStorage ? 0 : input ? gsf_input_size(input.get()) : -1;
            part.classId = part.isStorage ? classIdOf(input.get()) : QByteArray();
            const int number = static_cast<int>(parts.size());
            part.copyOf = part.isStorage ? -1 : number;
            parts.push_back(part);
            places.push_back({storagePart, child});
            if (part.isStorage && !list(input.get(), number, depth + 1, parts)) {
                return false;
            }
        }
        return true;
    }
};

CompoundFile::CompoundFile() = default;
CompoundFile::~CompoundFile() = default;

bool CompoundFile::fail(const QString &error)
{
    m_error = error;
    return false;
}

// Reading

bool CompoundFile::isCompound(const QByteArray &head)
{
    return head.startsWith(QByteArrayLiteral("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"));
}

bool CompoundFile::open(const QString &path)
{
    const GsfSession session;
    m_input.reset(new Input);
    QFile file(path);
    // Anything but a plain file might be copied to memory without an end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return fail(QStringLiteral("The file can't be read."));
    }
    if (!hasSaneDirectory(file, maxParts)) {
        return fail(QStringLiteral("The file's directory is damaged."));
    }
    m_input->file.reset(gsf_input_stdio_new(QFile::encodeName(path).constData(), nullptr));
    return openInput();
}

bool CompoundFile::open(const QByteArray &bytes)
{
    const GsfSession session;
    m_input.reset(new Input);
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    if (!hasSaneDirectory(buffer, maxParts)) {
        return fail(QStringLiteral("The file's directory is damaged."));
    }
    auto *copy = static_cast<guint8 *>(g_malloc(static_cast<gsize>(bytes.size())));
    std::copy(bytes.begin(), bytes.end(), copy);
    m_input->file.reset(gsf_input_memory_new(copy, bytes.size(), TRUE));
    return openInput();
}

bool CompoundFile::openInput()
{
    m_parts.clear();
    GsfInfile *root = m_input->file ? gsf_infile_msole_new(m_input->file.get(), nullptr) : nullptr;
    if (!root) {
        return fail(QStringLiteral("The file is damaged."));
    }
    m_input->root.reset(GSF_INPUT(root));
    CompoundPart part;
    part.isStorage = true;
    part.classId = classIdOf(m_input->root.get());
    m_parts.push_back(part);
    m_input->places.push_back({});
    return m_input->list(m_input->root.get(), 0, 0, m_parts)
           || fail(QStringLiteral("The file's directory is damaged."));
}

int CompoundFile::find(const QString &path) const
{
    for (size_t i = 0; i < m_parts.size(); ++i) {
        if (m_parts[i].path.compare(path, Qt::CaseInsensitive) == 0) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

bool CompoundFile::read(int part, QByteArray *content)
{
    const GsfSession session;
    const CompoundPart &wanted = m_parts[static_cast<size_t>(part)];
    const QString name = wanted.path.section(QLatin1Char('/'), -1);
    if (wanted.size > maxStreamSize) {
        return fail(QStringLiteral("The stream '%1' is too large.").arg(name));
    }
    const GsfHandle<GsfInput> input = m_input->openPart(part);
    if (wanted.isStorage || wanted.size < 0 || wanted.size > gsf_input_size(m_input->file.get()) || !input) {
        return fail(QStringLiteral("The stream '%1' is damaged.").arg(name));
    }
    content->resize(static_cast<int>(wanted.size));
    const auto size = static_cast<size_t>(wanted.size);
    if (size > 0 && !gsf_input_read(input.get(), size, reinterpret_cast<guint8 *>(content->data()))) {
        content->clear();
        return fail(QStringLiteral("The stream '%1' is damaged.").arg(name));
    }
    return true;
}

// Writing

namespace {

/// The storages that are open for writing, by path.
class OpenStorages
{
public:
    explicit OpenStorages(GsfOutput *sink) { m_order.emplace_back(GSF_OUTPUT(gsf_outfile_msole_new(sink))); }

    GsfOutput *root() const { return m_order.front().get(); }

    /// A new storage or stream; null when the storage around it is missing.
    GsfOutput *add(const CompoundPart &part)
    {
        const int slash = part.path.lastIndexOf(QLatin1Char('/'));
        GsfOutput *parent = slash < 0 ? root() : m_byPath.value(part.path.left(slash));
        if (!parent) {
            return nullptr;
        }
        const QByteArray name = part.path.mid(slash + 1).toUtf8();
        GsfOutput *output = gsf_outfile_new_child(GSF_OUTFILE(parent), name.constData(), part.isStorage);
        if (part.isStorage && output) {
            m_order.emplace_back(output);
            m_byPath.insert(part.path, output);
        }
        return output;
    }

    /// Inner ones first, the root last.
    bool close()
    {
        bool isWritten = true;
        while (!m_order.empty()) {
            isWritten = gsf_output_close(m_order.back().get()) && isWritten;
            m_order.pop_back();
        }
        return isWritten;
    }

private:
    std::vector<GsfHandle<GsfOutput>> m_order;
    QHash<QString, GsfOutput *> m_byPath;
};

bool writeStream(GsfOutput *output, const QByteArray &content)
{
    const auto *bytes = reinterpret_cast<const guint8 *>(content.constData());
    const bool isWritten = content.isEmpty() || gsf_output_write(output, static_cast<size_t>(content.size()), bytes);
    return gsf_output_close(output) && isWritten;
}

} // namespace

bool CompoundFile::write(QIODevice &device, const std::vector<CompoundPart> &parts, CompoundFile *original)
{
    const GsfSession session;
    const GsfHandle<GsfOutput> sink(gsf_output_memory_new());
    OpenStorages storages(sink.get());
    bool isWritten = true;
    for (const CompoundPart &part : parts) {
        if (part.path.isEmpty()) {
            setClassId(storages.root(), part.classId);
            continue;
        }
        GsfOutput *output = storages.add(part);
        if (!output) {
            isWritten = fail(QStringLiteral("The storage of '%1' is missing.").arg(part.path));
            break;
        }
        if (part.isStorage) {
            setClassId(output, part.classId);
            continue;
        }
        const GsfHandle<GsfOutput> stream(output);
        QByteArray content = part.content;
        if (part.copyOf >= 0 && !(original && original->read(part.copyOf, &content))) {
            m_error = original ? original->error() : QString();
            isWritten = false;
        }
        isWritten = writeStream(output, content) && isWritten;
    }
    isWritten = storages.close() && isWritten;
    const qint64 size = gsf_output_size(sink.get());
    const guint8 *bytes = gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(sink.get()));
    if (!isWritten) {
        return false;
    }
    return device.write(reinterpret_cast<const char *>(bytes), size) == size || fail(device.errorString());
}

} // namespace spreadsheet
