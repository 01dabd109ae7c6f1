#pragma once

#include "outputs/storedtext.h"

#include <QString>

/// How texts stand in XML.
namespace XmlNames {

/// The five characters with a meaning of their own, as references.
const ByteReplacements &references();
/// In WTF-8.
QByteArray escaped(const QString &text);
/// The name as a tag, in WTF-8: escaped, without exclamation marks in front, hyphens for spaces; "_" when
/// nothing is left.
QByteArray tag(const QString &name);
/// What is wrong with a column name as a tag, as a warning; empty for nothing.
QString checkXmlTagName(const QString &name);
/// True when nothing of a name is left in its tag.
bool isTagless(const QStringRef &name);
/// True when nothing of an attribute's name, which begins with an underscore, is left in its key.
bool isKeyless(const QString &name);

} // namespace XmlNames
