#include "spreadsheet/xlsx/relationships.h"

#include "spreadsheet/xlsx/xmlparser.h"
#include "spreadsheet/xlsx/ziparchive.h"

#include <QStringList>
#include <QUrl>

namespace spreadsheet {
namespace {

constexpr size_t mostRelations = 1000000;

class RelationsHandler final : public XmlHandler
{
public:
    explicit RelationsHandler(std::vector<Relationships::Relation> *relations)
        : m_relations(relations)
    {
    }

    bool startElement(std::string_view name, const XmlAttributes &attributes) override
    {
        if (name != "Relationship") {
            return name == "Relationships";
        }
        if (m_relations->size() >= mostRelations) {
            return fail(QStringLiteral("The file has too many relations between its parts"));
        }
        Relationships::Relation relation;
        relation.id = textOf(attributes, "Id");
        relation.kind = textOf(attributes, "Type").section(QLatin1Char('/'), -1);
        relation.target = textOf(attributes, "Target");
        relation.isExternal = attributes.value("TargetMode") == "External";
        m_relations->push_back(relation);
        return true;
    }

private:
    static QString textOf(const XmlAttributes &attributes, std::string_view name)
    {
        return QString::fromUtf8(attributes.find(name));
    }

    std::vector<Relationships::Relation> *m_relations;
};

} // namespace

QString Relationships::partFor(const QString &part)
{
    const int slash = part.lastIndexOf(QLatin1Char('/'));
    return part.left(slash + 1) + QLatin1String("_rels/") + part.mid(slash + 1) + QLatin1String(".rels");
}

QString Relationships::resolve(const QString &part, const QString &target)
{
    QString path = target;
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (!path.startsWith(QLatin1Char('/'))) {
        path.prepend(part.left(part.lastIndexOf(QLatin1Char('/')) + 1));
    }
    QStringList resolved;
    const QStringList steps = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString &step : steps) {
        if (step == QLatin1String("..")) {
            if (!resolved.isEmpty()) {
                resolved.removeLast();
            }
        } else if (step != QLatin1String(".")) {
            resolved.append(step);
        }
    }
    return resolved.join(QLatin1Char('/'));
}

bool Relationships::load(ZipArchive &archive, const QString &part, QString *error)
{
    m_relations.clear();
    m_byId.clear();
    const QString relationsPart = partFor(part);
    if (!archive.contains(relationsPart)) {
        return true;
    }
    RelationsHandler handler(&m_relations);
    if (!parsePart(archive, relationsPart, &handler, error)) {
        m_relations.clear();
        return false;
    }
    for (size_t i = 0; i < m_relations.size(); ++i) {
        Relation &relation = m_relations[i];
        if (!m_byId.contains(relation.id)) {
            m_byId.insert(relation.id, i);
        }
        if (relation.isExternal || relation.kind == QLatin1String("hyperlink")) {
            continue;
        }
        const QString target = resolve(part, relation.target);
        // Names may be written with percent signs where the archive has the characters themselves.
        relation.target = archive.contains(target) ? target : QUrl::fromPercentEncoding(target.toUtf8());
    }
    return true;
}

const Relationships::Relation *Relationships::byId(const QString &id) const
{
    const auto found = m_byId.constFind(id);
    return found == m_byId.constEnd() ? nullptr : &m_relations[*found];
}

const Relationships::Relation *Relationships::byKind(const QString &kind) const
{
    for (const Relation &relation : m_relations) {
        if (relation.kind == kind && !relation.isExternal) {
            return &relation;
        }
    }
    return nullptr;
}

} // namespace spreadsheet
