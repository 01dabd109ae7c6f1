#pragma once

class QPlainTextEdit;
class QString;

/// The text of an editor as it was typed or set, with line feeds between lines. The editor's own way gives blanks for
/// non-breaking spaces.
QString plainTextOf(const QPlainTextEdit &edit);
