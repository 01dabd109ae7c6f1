#include "inputs/treepaths.h"

#include "data/textcoding.h"
#include "inputs/textcleanup.h"

#include <QRandomGenerator>
#include <algorithm>
#include <cstring>

namespace {

__extension__ using Wide = unsigned __int128;

constexpr size_t firstSlotCount = 64;

quint64 folded(quint64 a, quint64 b)
{
    const Wide product = static_cast<Wide>(a) * b;
    return static_cast<quint64>(product) ^ static_cast<quint64>(product >> 64);
}

} // namespace

TreePaths::TreePaths(const TreeReadOptions &options, bool dotsInKeys)
    : m_options(options)
    , m_dotsInKeys(dotsInKeys)
    , m_secret(QRandomGenerator::global()->generate64() | 1)
    , m_slots(firstSlotCount)
{
}

/// Nobody outside can choose keys that meet in one slot, since the secret is new each time.
quint64 TreePaths::hash(const TreePath *parent, const char *key, int size) const
{
    quint64 result = folded(reinterpret_cast<quint64>(parent) ^ m_secret, static_cast<quint64>(size) ^ ~m_secret);
    for (; size > 0; key += 8, size -= 8) {
        quint64 word = 0;
        std::memcpy(&word, key, static_cast<size_t>(qMin(size, 8)));
        result = folded(result ^ m_secret, word ^ 0x9E3779B97F4A7C15ULL ^ result >> 32);
    }
    return result;
}

TreePath *TreePaths::child(TreePath *parent, const char *key, int size)
{
    const quint64 keyHash = hash(parent, key, size);
    const size_t mask = m_slots.size() - 1;
    size_t slot = keyHash & mask;
    const std::string_view wanted(key, static_cast<size_t>(size));
    for (; m_slots[slot]; slot = (slot + 1) & mask) {
        TreePath *path = m_slots[slot];
        if (path->hash == keyHash && path->parent == parent && path->key == wanted) {
            return path;
        }
    }
    m_paths.emplace_back();
    TreePath *path = &m_paths.back();
    path->parent = parent;
    path->key = wanted;
    path->hash = keyHash;
    path->plainKey = std::none_of(
        wanted.begin(), wanted.end(), [](char c) { return c == '"' || c == '\\' || static_cast<uchar>(c) < ' '; });
    m_slots[slot] = path;
    if (m_paths.size() * 2 > m_slots.size()) {
        grow();
    }
    return path;
}

void TreePaths::grow()
{
    std::vector<TreePath *> larger(m_slots.size() * 2);
    const size_t mask = larger.size() - 1;
    for (TreePath &path : m_paths) {
        size_t slot = path.hash & mask;
        while (larger[slot]) {
            slot = (slot + 1) & mask;
        }
        larger[slot] = &path;
    }
    m_slots.swap(larger);
}

TreePath *TreePaths::position(TreePath *parent, int index)
{
    while (parent->positions.size() <= static_cast<size_t>(index)) {
        const std::string key = std::to_string(parent->positions.size());
        parent->positions.push_back(child(parent, key.data(), static_cast<int>(key.size())));
    }
    return parent->positions[static_cast<size_t>(index)];
}

QByteArray TreePaths::cleanKey(const TreePath &path) const
{
    QByteArray key(path.key.data(), static_cast<int>(path.key.size()));
    if (!m_dotsInKeys) {
        key.replace('.', '-');
    }
    if (m_options.trim) {
        const char *begin = key.constData();
        const char *end = begin + key.size();
        TextCleanup::trim(begin, end);
        key = QByteArray(begin, static_cast<int>(end - begin));
    }
    if (m_options.simplify) {
        key.truncate(TextCleanup::simplify(key.data(), key.size()));
    }
    return key;
}

/// The place that stands for the column's name. Names are split at points, so that equal names have one place.
TreePath *TreePaths::named(TreePath *path)
{
    std::vector<const TreePath *> keys;
    for (const TreePath *at = path; at->parent; at = at->parent) {
        keys.push_back(at);
    }
    TreePath *result = &m_nameRoot;
    for (auto at = keys.rbegin(); at != keys.rend(); ++at) {
        const QByteArray key = cleanKey(**at);
        if (!key.isEmpty()) {
            for (const QByteArray &part : key.split('.')) {
                result = child(result, part.constData(), part.size());
            }
        }
    }
    return result;
}

QByteArray TreePaths::nameOf(const TreePath *path) const
{
    std::vector<const TreePath *> keys;
    for (; path->parent; path = path->parent) {
        keys.push_back(path);
    }
    QByteArray name;
    for (auto at = keys.rbegin(); at != keys.rend(); ++at) {
        if (at != keys.rbegin()) {
            name.append('.');
        }
        name.append((*at)->key.data(), static_cast<int>((*at)->key.size()));
    }
    return name;
}

int TreePaths::column(TreePath *path)
{
    if (path->column < 0) {
        TreePath *name = named(path);
        if (name->column < 0) {
            name->column = m_names.size();
            m_names.append(nameOf(name));
            m_nameSize += m_names.constLast().size();
        } else {
            m_columnsAreShared = true;
        }
        path->column = name->column;
    }
    return path->column;
}

int TreePaths::namedColumn(const char *name)
{
    return column(child(&m_objectRoot, name, static_cast<int>(std::strlen(name))));
}

QStringList TreePaths::columnNames() const
{
    QStringList names;
    names.reserve(m_names.size());
    for (const QByteArray &name : m_names) {
        names.append(TextCoding::decode(name.constData(), name.size()));
    }
    return names;
}
