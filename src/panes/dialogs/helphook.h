#pragma once

#include <QString>
#include <functional>

class QWidget;

/// The way from any dialog or panel to the window with the help, which belongs to the main window.
namespace HelpHook {

/// `from` is the widget that asks, or null.
using Show = std::function<void(QWidget *from, const QString &page)>;

/// Whoever has the window puts itself here, and an empty function when it goes.
void install(const Show &show);
/// Shows a page by its name, such as "Input_data" or "Preferences_window#colors". Where there is no window of help, as
/// in tests of one dialog, nothing happens.
void showHelp(QWidget *from, const QString &page);
/// F1 in this widget, and in all that it holds, shows that page.
void setHelpPage(QWidget &widget, const QString &page);
/// The page of the widget or of the nearest one round it; empty when none of them has one.
QString helpPageOf(const QWidget *widget);

} // namespace HelpHook
