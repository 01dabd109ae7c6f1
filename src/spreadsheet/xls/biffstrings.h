#pragma once

#include <QString>
#include <string>

namespace spreadsheet {

class ContinuedData;
class TextTable;
struct Record;

/// Reads a text with a length of 16 bits, and goes past its formatted runs and phonetic text. False when it is cut.
bool readText(ContinuedData &data, std::string *utf8);
/// A text at a place of a record, with a length of 8 or 16 bits; as far as the record goes.
QString shortTextAt(const Record &record, quint32 at);
QString textAt(const Record &record, quint32 at);

/// Appends the texts of the SST record, as many as it says or as there are. False when one is cut.
bool readSharedTexts(ContinuedData &data, TextTable &texts);

} // namespace spreadsheet
