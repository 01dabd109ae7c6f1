#pragma once

#include <QString>
#include <vector>

/// A term that texts are clustered by.
struct ClusterTerm
{
    QString shown;
    QString compared; ///< in the normal form of the texts
};

/// The term that a text is closest to.
struct NearestTerm
{
    int term = -1;      ///< -1 when none is close enough
    int closeness = -1; ///< in percent
};

/// The closest of `terms` that reaches `fuzziness` percent, the first of equally close ones. `text` is in the normal
/// form.
NearestTerm nearestTerm(const QString &text, const std::vector<ClusterTerm> &terms, int fuzziness);

/// The form in which texts and terms are compared.
QString clusterNormalForm(const QString &text, bool caseSensitive);
