#pragma once

#include <QObject>
#include <QStringList>

class Application;
class DocumentSession;
class Prompts;
class RecentDocuments;
struct LoadedDocument;

/// New, Open, Save and what goes with them: asks, opens and saves, and tells the user what went wrong. Each command is
/// ignored while a run is on.
class DocumentCommands : public QObject
{
    Q_OBJECT

public:
    /// `overrides` are applied to the first document opened.
    DocumentCommands(Application &application, DocumentSession &session, RecentDocuments &recent, Prompts &prompts,
        const QStringList &overrides, QObject *parent);

    /// True when the document may be closed: it is saved, or the user lets it go.
    bool maybeSave();
    /// Opens a document over the present one, with all questions. False when that came to nothing.
    bool openDocument(const QString &path) { return openDocument(path, Origin::Anywhere); }
    /// Opens a copy of one of the examples over the present document, after asking to save that. Its files are taken to
    /// be those beside it, and its folder to be one for it to write to; nothing is said of its locale.
    bool openExample(const QString &path);
    bool save();
    bool saveAs();
    /// Keeps a copy for the case that the program ends unexpectedly, at most once a minute.
    void refreshRecoveryFile();
    void saveRecoveryNow();
    /// Reads and writes values by this locale from now on; with `warn`, tells so if the settings want that.
    void setDocumentLocale(const QLocale &locale, bool warn);

public slots:
    void onNew();
    void onOpen();
    /// After asking to save, for recent and for dropped documents.
    void onOpenPath(const QString &path);
    void onSave();
    void onSaveAs();

signals:
    void statusMessage(const QString &text);
    /// A document has come into the scene; its auto run flag is what it asks for.
    void documentOpened(bool autoRun);
    void documentCleared();
    /// Entries have come or gone, or files behind them.
    void recentChanged();
    void localeChanged();
    /// The files that the process was given can't take the place of the document's.
    void overridesUnusable(const QString &error);

private:
    /// Where a document comes from: of one of ours the user needn't be asked or warned.
    enum class Origin { Anywhere, OurExamples };

    bool openDocument(const QString &path, Origin origin);
    bool takeFile(const QString &path);
    /// Goes back to holding the file of the document that stays open.
    void holdAgain();
    bool confirmReplacing(const QString &path);
    bool saveToPath(const QString &path);
    void setCurrentPath(const QString &path);
    void tellOfLoss(const LoadedDocument &loaded);
    bool isBusy() const;

    Application &m_application;
    DocumentSession &m_session;
    RecentDocuments &m_recent;
    Prompts &m_prompts;
    QStringList m_overrides;
};
