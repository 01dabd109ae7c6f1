#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>
#include <vector>

namespace spreadsheet {

/// Changes of a part's relations to other parts and to addresses outside.
class RelationshipsEdit
{
public:
    struct Entry
    {
        QByteArray id, type, target;
        bool isExternal = false;
    };

    /// `part` is the part that they are of; `bytes` what the archive has of them, or nothing. False for what isn't XML.
    bool read(const QString &part, const QByteArray &bytes);
    const std::vector<Entry> &entries() const { return m_entries; }
    /// The first whose type ends with `typeEnd`, such as "/styles"; null when there is none.
    const Entry *find(const char *typeEnd) const;
    const Entry *byId(const QByteArray &id) const;
    /// The part that a relation within the package leads to.
    QString targetPart(const Entry &entry) const;
    /// A new relation; its id.
    QByteArray add(const QByteArray &type, const QByteArray &target, bool isExternal);
    QByteArray addPart(const QByteArray &type, const QString &target);
    void remove(const QByteArray &id);
    /// Removes those of a type that aren't among `used`.
    void removeUnused(const char *typeEnd, const QSet<QByteArray> &used);

    bool isChanged() const { return m_isChanged; }
    bool isEmpty() const { return m_entries.empty(); }
    /// The part that holds them.
    QString ownPart() const;
    QByteArray toXml() const;

private:
    template<typename Condition>
    void removeIf(Condition condition);

    QString m_part;
    QString m_folder; // of the part, with a slash at the end
    std::vector<Entry> m_entries;
    int m_nextId = 1;
    bool m_isChanged = false;
};

} // namespace spreadsheet
