#pragma once

#include "data/textbuffer.h"
#include "transforms/verify/celltext.h"

#include <QByteArray>
#include <QSet>
#include <QStringList>

/// Some texts among which those of many cells are looked up. Without regard to case two texts are the same when
/// QString::compare says so.
class TextSet
{
public:
    TextSet(const QStringList &texts, bool caseSensitive);

    bool isEmpty() const { return m_texts.isEmpty(); }
    bool contains(CellText &text) const;

private:
    QSet<QByteArray> m_texts; ///< in storage form, folded unless case counts
    bool m_caseSensitive;
};
