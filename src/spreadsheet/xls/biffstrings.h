#pragma once

#include <QString>
#include <string>

class QTextCodec;

namespace spreadsheet {

class ContinuedData;
class TextTable;
struct Record;

// Texts are those of version 97 when `codec` is null; else, as in versions before, bytes in that encoding.

/// Reads a text with a length of 16 bits, and goes past its formatted runs and phonetic text. False when it is cut.
bool readText(ContinuedData &data, const QTextCodec *codec, std::string *utf8);
/// A text at a place of a record, with a length of 8 or 16 bits; as far as the record goes.
QString shortTextAt(const Record &record, quint32 at, const QTextCodec *codec = nullptr);
QString textAt(const Record &record, quint32 at);

/// Appends the texts of the SST record, as many as it says or as there are. False when one is cut.
bool readSharedTexts(ContinuedData &data, TextTable &texts);

} // namespace spreadsheet
