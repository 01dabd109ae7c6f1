#pragma once

#include <QByteArray>
#include <QString>
#include <map>

namespace spreadsheet {

/// Changes of the list that says of what type each part is.
class ContentTypes
{
public:
    void set(const QString &part, const QByteArray &type) { m_changes[part] = type; }
    void remove(const QString &part) { m_changes[part].clear(); }
    bool isChanged() const { return !m_changes.empty(); }
    /// The list with the changes, the rest byte for byte. Empty when `old` can't be read.
    QByteArray applied(const QByteArray &old) const;

private:
    std::map<QString, QByteArray> m_changes; // no type for parts that are gone
};

} // namespace spreadsheet
