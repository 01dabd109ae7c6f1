#pragma once

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QStringList>
#include <memory>

class Colors;
class MainWindow;
class Prompts;
class Settings;
class TextLabelDialog;
class Transform;
struct ExceptionReport;

/// The process: what exists before any window and outlives all of them, and the place where exceptions end.
class Application : public QApplication
{
    Q_OBJECT

public:
    /// How the process was started: for a run without a window, nothing that only a window needs is built.
    enum class Mode { Window, CommandLine };

    Application(int &argc, char **argv, Mode mode);
    ~Application() override;
    Q_DISABLE_COPY(Application)

    static Application *instance() { return qobject_cast<Application *>(QCoreApplication::instance()); }
    Settings &settings() { return *m_settings; }
    Colors &colors();
    const QFont &defaultFont() const { return m_defaultFont; }
    /// A fixed-pitch font of the size of the default one.
    QFont monospaceFont() const;
    const QDir &applicationDir() const { return m_applicationDir; }

    /// One prototype of each kind of transform, by display name.
    const QList<Transform *> &transforms();
    /// Null for a name that no kind has.
    Transform *transformByName(const QString &typeName);
    /// One name for each text codec, in order.
    const QStringList &codecNames();

    const QString &lastDocDir() const { return m_lastDocDir; }
    const QString &lastDataDir() const { return m_lastDataDir; }
    const QString &lastOutputDataDir() const { return m_lastOutputDataDir; }
    void setLastDocDir(const QString &folder) { m_lastDocDir = folder; }
    void setLastDataDir(const QString &folder) { m_lastDataDir = folder; }
    void setLastOutputDataDir(const QString &folder) { m_lastOutputDataDir = folder; }

    /// Moves the settings into a file beside the program; false leaves them where they are.
    bool reopenSettingsAsIni();
    /// Moves the settings to the store of the system; false leaves them where they are.
    bool reopenSettingsAsSystem();

    /// The window that is told when the program has to close; null when it goes.
    void setMainWindow(MainWindow *window) { m_mainWindow = window; }
    /// How a person is told why the program has to close.
    void setPrompts(std::unique_ptr<Prompts> prompts);
    /// Lets queued events in; long work calls it now and then.
    static void keepAlive();
    bool notify(QObject *receiver, QEvent *event) override;
    /// Called by operator new when there is no memory left. Doesn't return.
    [[noreturn]] static void outOfMemoryHandler();
    /// Gives back the memory kept for reporting that there is none.
    void releaseMemoryReserve();

signals:
    /// The program is at work and alive.
    void heartBeat();

private:
    void setUpWindowDefaults();
    void setUpNodeFactory();
    void closeAfter(const ExceptionReport &report);

    std::unique_ptr<Settings> m_settings;
    std::unique_ptr<Prompts> m_prompts;
    QFont m_defaultFont;
    QList<Transform *> m_transforms;
    QString m_lastDocDir;
    QString m_lastDataDir;
    QString m_lastOutputDataDir;
    void *m_memoryReserve = nullptr;
    std::unique_ptr<TextLabelDialog> m_outOfMemoryDialog;
    QDir m_applicationDir;
    MainWindow *m_mainWindow = nullptr;
};
