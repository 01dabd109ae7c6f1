#pragma once

#include <QString>

class InputNode;
class OutputNode;
struct FileSheet;

// Other files in the place of an item's own. A sheet in brackets behind the path of a workbook is parted from it;
// without one, the item's sheet stays, and so does its file type. The item and all downstream need to run again.

/// The file and the sheet that `value` means to an item of a file type.
FileSheet fileOfInput(const InputNode &input, const QString &value);
void setInputFile(InputNode &input, const QString &value);
void setInputFolder(InputNode &input, const QString &folder);
void setOutputFile(OutputNode &output, const QString &value);
