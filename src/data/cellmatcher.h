#pragma once

#include "data/cell.h"

#include <QByteArray>
#include <QString>

/// Looks for one text within many cells. An empty text is found everywhere.
class CellMatcher
{
public:
    CellMatcher(const QString &text, Qt::CaseSensitivity cs);

    bool foundIn(const Cell &cell) const;

private:
    QString m_text;
    QByteArray m_bytes; ///< WTF-8, in lower case when that counts
    Qt::CaseSensitivity m_cs;
    bool m_plain; ///< a search by bytes finds the same
};
