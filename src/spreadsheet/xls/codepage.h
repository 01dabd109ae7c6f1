#pragma once

#include <QtGlobal>

class QTextCodec;

namespace spreadsheet {

/// The encoding that a CODEPAGE record's number stands for; null for one that is unknown.
const QTextCodec *codecOfCodePage(quint16 codePage);

} // namespace spreadsheet
