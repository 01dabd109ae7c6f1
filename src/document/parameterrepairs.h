#pragma once

#include <QString>

/// One stored option of a transform: its key, the text of its value and, for people who read the file, its kind.
struct ParameterRecord
{
    QString name;
    QString value;
    int kind = 0;
};

/// Brings an option of a document of `version` up to date where keys or whole values have changed since; what has
/// changed by the kind of an option is the option's own business.
void repairParameter(const QString &transformName, int version, ParameterRecord &parameter);
