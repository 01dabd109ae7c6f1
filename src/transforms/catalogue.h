#pragma once

#include <QString>
#include <vector>

class Transform;

/// What stands fast about one kind of transform.
struct CatalogueRow
{
    int id;
    const char *typeName;    ///< stored in documents
    const char *displayName; ///< the button's text
    int category;            ///< Transform::Category
    int minInputs;
    int maxInputs;
    bool advanced;
    bool canCompare;
    bool drilldown;
    Transform *(*create)(); ///< null while the kind has no class
};

namespace Catalogue {

/// All 74 kinds, in alphabetical order of their classes.
const std::vector<CatalogueRow> &rows();
/// The row with this stored name, or null.
const CatalogueRow *find(const QString &typeName);
/// A new transform of that kind without options, or null for a name that has no class.
Transform *create(const QString &typeName);

} // namespace Catalogue
