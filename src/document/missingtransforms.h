#pragma once

#include <QMap>
#include <QString>

/// Transforms of a document that the program doesn't have, counted by name.
class MissingTransforms
{
public:
    void add(const QString &name);
    /// What was not added and what to use instead, in blocks of lines; empty when nothing is missing.
    QString message() const;

private:
    QMap<QString, int> m_deprecated;
    QMap<QString, int> m_unknown;
};
