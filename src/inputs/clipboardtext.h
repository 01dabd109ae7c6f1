#pragma once

#include <QString>

class QMimeData;

/// The text that an input from the clipboard holds: delimited text of a spreadsheet program where it is offered,
/// otherwise the text; empty when there is neither or `mimeData` is null.
QString clipboardText(const QMimeData *mimeData);
