#pragma once

#include <QString>
#include <QVector>

class GraphScene;

/// A kind of transform as menus offer it.
struct TransformChoice
{
    QString typeName;
    QString displayName;
    QString description;
    int category = 0;
    int minInputs = 1;
    int maxInputs = 1;

    /// All kinds, in the order of the catalogue; made once.
    static const QVector<TransformChoice> &all();
    /// Those whose name has all the words of `typed`, each at the beginning of one of its words: first the names that
    /// begin with the text, else in the order of the catalogue. All for an empty text.
    static QVector<TransformChoice> matching(const QString &typed);
    /// Whether it can be added to what is selected.
    bool fits(const GraphScene &scene) const;
};
