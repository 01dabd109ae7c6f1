#pragma once

#include "data/textbuffer.h"
#include "transforms/verify/utf16cell.h"

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
    bool contains(Utf16Cell &text) const;

private:
    QSet<QByteArray> m_texts; ///< in WTF-8, folded unless case counts
    bool m_caseSensitive;
};
