#include "spreadsheet/xlsx/write/package.h"

#include "spreadsheet/xlsx/relationships.h"
#include "spreadsheet/xlsx/write/emptybook.h"
#include "spreadsheet/xlsx/write/utf8stream.h"
#include "spreadsheet/xlsx/write/xmloutline.h"
#include "spreadsheet/xlsx/write/zipwriter.h"

namespace spreadsheet {
namespace {

const char typesPart[] = "[Content_Types].xml";

} // namespace

Package::Package(ZipArchive *archive)
    : m_archive(archive)
{
    if (!archive) {
        for (const EmptyBookPart &part : emptyBookParts()) {
            const QString name = QString::fromLatin1(part.name);
            m_fresh[name.toLower()] = part.text;
            m_order << name;
            put(name, part.text);
        }
    }
}

Package::~Package() = default;

bool Package::fail(const QString &error)
{
    m_error = error;
    return false;
}

bool Package::contains(const QString &part) const
{
    return m_fresh.count(part.toLower()) > 0
           || (m_archive && m_archive->contains(part) && !m_removed.contains(part, Qt::CaseInsensitive));
}

bool Package::stream(const QString &part, const Sink &sink)
{
    const auto fresh = m_fresh.find(part.toLower());
    if (fresh != m_fresh.end()) {
        return sink(fresh->second.constData(), fresh->second.size());
    }
    if (!m_archive) {
        return fail(QStringLiteral("The workbook has no part '%1'").arg(part));
    }
    Utf8Stream utf8(sink);
    const bool read = m_archive->stream(part, [&utf8](const char *bytes, int size) { return utf8.feed(bytes, size); });
    return read ? utf8.finish() : fail(m_archive->error());
}

bool Package::read(const QString &part, QByteArray *bytes)
{
    bytes->clear();
    return stream(part, [bytes](const char *piece, int size) {
        bytes->append(piece, size);
        return bytes->size() <= ZipArchive::smallPartLimit;
    });
}

bool Package::outline(const QString &part, XmlOutline *outline)
{
    const bool read = stream(part, [outline](const char *bytes, int size) { return outline->feed(bytes, size); });
    return read && (outline->finish() || fail(QStringLiteral("The part '%1' is damaged").arg(part)));
}

void Package::begin(const QString &part, const QByteArray &type, const QByteArray &text)
{
    m_fresh[part.toLower()] = text;
    m_order << part;
    m_types.set(part, type);
    put(part, text);
}

void Package::put(const QString &part, const QByteArray &bytes)
{
    DeflatedPart deflated;
    deflated.write({bytes.constData(), static_cast<size_t>(bytes.size())});
    deflated.finish();
    m_written[part.toLower()] = std::move(deflated);
}

bool Package::change(const QString &part, PartEdit edit)
{
    DeflatedPart deflated;
    const bool read = stream(part, [&](const char *bytes, int size) {
        edit.feed(bytes, size, deflated);
        return true;
    });
    if (!read) {
        return false;
    }
    edit.finish(deflated);
    m_written[part.toLower()] = std::move(deflated);
    return true;
}

void Package::remove(const QString &part)
{
    m_removed << part;
    m_types.remove(part);
}

QString Package::freeName(const QString &pattern) const
{
    int number = 1;
    // Names of parts that are taken away don't come back as others.
    while (contains(pattern.arg(number)) || (m_archive && m_archive->contains(pattern.arg(number)))) {
        ++number;
    }
    return pattern.arg(number);
}

RelationshipsEdit *Package::relationships(const QString &part)
{
    std::unique_ptr<RelationshipsEdit> &known = m_relationships[part.toLower()];
    if (!known) {
        auto relationships = std::make_unique<RelationshipsEdit>();
        const QString name = Relationships::partFor(part);
        QByteArray bytes;
        if (contains(name) && !read(name, &bytes)) {
            return nullptr;
        }
        if (!relationships->read(part, bytes)) {
            fail(QStringLiteral("The part '%1' is damaged").arg(name));
            return nullptr;
        }
        known = std::move(relationships);
    }
    return known.get();
}

/// Turns the changed relations and types into parts.
bool Package::putRelationships()
{
    for (const auto &[part, relationships] : m_relationships) {
        if (!relationships || !relationships->isChanged()) {
            continue;
        }
        const QString name = relationships->ownPart();
        if (relationships->isEmpty()) {
            m_removed << name;
            continue;
        }
        if (!contains(name)) {
            m_order << name;
        }
        put(name, relationships->toXml());
    }
    if (m_types.isChanged()) {
        const QString name = QString::fromLatin1(typesPart);
        QByteArray old;
        if (!read(name, &old)) {
            return false;
        }
        const QByteArray list = m_types.applied(old);
        if (list.isEmpty()) {
            return fail(QStringLiteral("The part '%1' is damaged").arg(name));
        }
        put(name, list);
    }
    return true;
}

bool Package::writeEntries(ZipWriter &writer)
{
    if (m_archive) {
        for (const ZipArchive::Entry &entry : m_archive->entries()) {
            const QString name = QString::fromUtf8(entry.name);
            const auto written = m_written.find(name.toLower());
            bool done = true;
            if (written != m_written.end()) {
                done = m_archive->find(name)->index != entry.index || writer.add(entry.name, written->second);
            } else if (!m_removed.contains(name, Qt::CaseInsensitive)) {
                done = writer.copy(m_archive->handle(), entry.index);
            }
            if (!done) {
                return false;
            }
        }
    }
    for (const QString &name : qAsConst(m_order)) {
        if (!m_removed.contains(name, Qt::CaseInsensitive)
            && !writer.add(name.toUtf8(), m_written.at(name.toLower()))) {
            return false;
        }
    }
    return true;
}

bool Package::write(const QString &path)
{
    if (!putRelationships()) {
        return false;
    }
    ZipWriter writer(path);
    return (writer.open() && writeEntries(writer) && writer.finish()) || fail(writer.error());
}

} // namespace spreadsheet
