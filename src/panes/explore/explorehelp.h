#pragma once

class QDialog;
class QDialogButtonBox;
class QString;

/// Help in the windows that explore data.
namespace ExploreHelp {

/// Adds a button for help; it and F1 show that page.
void add(QDialog &dialog, QDialogButtonBox &buttons, const QString &page);

} // namespace ExploreHelp
