#include "transforms/merge/loosenames.h"

LooseNames::LooseNames(const QStringList &names)
    : m_taken(static_cast<size_t>(names.size()))
{
    for (int looseness = 0; looseness < formCount; ++looseness) {
        QHash<QString, Columns> &columns = m_byForm[static_cast<size_t>(looseness)];
        columns.reserve(names.size());
        for (int column = 0; column < names.size(); ++column) {
            columns[form(names.at(column), looseness)].columns.push_back(column);
        }
    }
}

QString LooseNames::form(const QString &name, int looseness)
{
    switch (looseness) {
    case 0:
        return name;
    case 1:
        return name.toLower();
    case 2:
        return name.trimmed();
    default:
        return name.trimmed().toLower();
    }
}

int LooseNames::take(const QString &name)
{
    for (int looseness = 0; looseness < formCount; ++looseness) {
        QHash<QString, Columns> &byName = m_byForm[static_cast<size_t>(looseness)];
        const auto found = byName.find(form(name, looseness));
        if (found == byName.end()) {
            continue;
        }
        for (; found->next < found->columns.size(); ++found->next) {
            ++m_lookedAt;
            const int column = found->columns[found->next];
            if (!isTaken(column)) {
                m_taken[static_cast<size_t>(column)] = true;
                return column;
            }
        }
    }
    return -1;
}
