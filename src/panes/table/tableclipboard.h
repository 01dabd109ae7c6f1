#pragma once

class Dataset;
class Prompts;

/// Tables on their way to the clipboard.
namespace TableClipboard {

/// Whether the person, when there is much to copy, agrees.
bool confirm(Prompts &prompts, int rows, int columns);
/// Copies unless the person, when there is much to copy, doesn't agree.
void copyConfirmed(Prompts &prompts, const Dataset &dataset);
/// Copies as plain text in the form that is set, as CSV and as HTML.
void copy(const Dataset &dataset);

} // namespace TableClipboard
