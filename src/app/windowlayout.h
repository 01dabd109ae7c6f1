#pragma once

class Application;
class QMainWindow;
class Settings;

/// Gives a window the place, size and tool bars that it had last; a first one gets a good size in the middle of its
/// screen, or all of a small screen.
void restoreLayout(QMainWindow &window, const Settings &settings);
void storeLayout(const QMainWindow &window, Settings &settings);

/// The folders in which files were chosen last.
void restoreFolders(Application &application, const Settings &settings);
void storeFolders(const Application &application, Settings &settings);
