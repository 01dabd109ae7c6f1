#include "app/documentcommands.h"

#include "app/aliasoverrides.h"
#include "app/application.h"
#include "app/documentsession.h"
#include "app/openingquestions.h"
#include "app/recentdocuments.h"
#include "app/recoveryfile.h"
#include "data/values.h"
#include "graph/graphscene.h"
#include "panes/dialogs/prompts.h"
#include "platform/waitcursor.h"
#include "settings/product.h"
#include "settings/settings.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace {

const char *const fileFilter = "Quillmere (*.transform)";

} // namespace

DocumentCommands::DocumentCommands(Application &application, DocumentSession &session, RecentDocuments &recent,
    Prompts &prompts, const QStringList &overrides, QObject *parent)
    : QObject(parent)
    , m_application(application)
    , m_session(session)
    , m_recent(recent)
    , m_prompts(prompts)
    , m_overrides(overrides)
{
}

bool DocumentCommands::isBusy() const
{
    return m_session.scene().isProcessing();
}

bool DocumentCommands::maybeSave()
{
    if (!m_session.isModified()) {
        return true;
    }
    const auto answer = m_prompts.ask(QMessageBox::Question, QStringLiteral("Save changes?"),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Cancel);
    if (answer == QMessageBox::Save) {
        return save();
    }
    return answer == QMessageBox::Discard;
}

void DocumentCommands::onNew()
{
    if (isBusy() || !maybeSave()) {
        return;
    }
    const WaitCursor cursor;
    m_session.releaseHold();
    setCurrentPath(QString());
    m_session.clear();
    const QLocale locale = Settings::current().locale();
    if (locale != QLocale()) {
        QLocale::setDefault(locale);
        emit localeChanged();
    }
    emit documentCleared();
    m_session.setModified(false);
    RecoveryFile::remove();
}

void DocumentCommands::onOpen()
{
    if (isBusy() || !maybeSave()) {
        return;
    }
    const QString path = m_prompts.openFile({QString(), m_application.lastDocDir(), QString::fromLatin1(fileFilter)});
    QCoreApplication::processEvents();
    if (!path.isEmpty() && openDocument(path)) {
        RecoveryFile::remove();
    }
}

void DocumentCommands::onOpenPath(const QString &path)
{
    if (isBusy()) {
        return;
    }
    if (!QFileInfo::exists(path)) {
        m_prompts.critical(QStringLiteral("'%1' not found.").arg(QDir::toNativeSeparators(path)));
        emit recentChanged();
        return;
    }
    if (!maybeSave()) {
        return;
    }
    if (openDocument(path)) {
        RecoveryFile::remove();
    } else {
        emit recentChanged();
    }
}

bool DocumentCommands::takeFile(const QString &path)
{
    m_session.releaseHold();
    if (RecoveryFile::isRecoveryFile(path) || m_session.hold(path)) {
        return true;
    }
    const auto answer = m_prompts.ask(QMessageBox::Warning,
        QStringLiteral(
            "Cannot open '%1' to write.\nYou may have insufficient access, it may be read-only or it may be open "
            "in another application.\nOpen it read-only and select 'File'>Save as...' to save it to a different "
            "filename/folder.")
            .arg(QDir::toNativeSeparators(path)),
        QMessageBox::Ok | QMessageBox::Cancel);
    return answer == QMessageBox::Ok;
}

void DocumentCommands::holdAgain()
{
    m_session.releaseHold();
    if (!m_session.path().isEmpty()) {
        m_session.hold(m_session.path());
    }
}

bool DocumentCommands::openExample(const QString &path)
{
    if (isBusy() || !maybeSave() || !openDocument(path, Origin::OurExamples)) {
        return false;
    }
    // From now on it names the files beside it.
    if (m_session.isModified()) {
        save();
    }
    RecoveryFile::remove();
    return true;
}

bool DocumentCommands::openDocument(const QString &givenPath, Origin origin)
{
    const QString path = m_application.applicationDir().absoluteFilePath(givenPath);
    emit statusMessage(QStringLiteral("Loading %1").arg(QDir::toNativeSeparators(path)));
    if (!takeFile(path)) {
        holdAgain();
        return false;
    }
    LoadedDocument loaded;
    QString error;
    bool isLoaded = false;
    {
        const WaitCursor cursor;
        isLoaded = m_session.load(path, loaded, error);
    }
    if (!isLoaded) {
        holdAgain();
        m_prompts.critical(QStringLiteral("Unable to open '%1': %2").arg(QDir::toNativeSeparators(path), error));
        return false;
    }
    if (!loaded.locale.isEmpty()) {
        setDocumentLocale(QLocale(loaded.locale), origin == Origin::Anywhere);
    }
    if (!loaded.notAdded.isEmpty()) {
        m_prompts.warning(loaded.notAdded);
    }
    if (!loaded.repairs.isEmpty()) {
        m_prompts.warning(QStringLiteral("This document had faults and was opened with these changes:\n%1")
                              .arg(loaded.repairs.join(QLatin1Char('\n'))));
    }
    bool changed = loaded.relocated;
    changed |= OpeningQuestions::replaceMissingInputs(m_session.scene(), path, m_prompts);
    bool autoRun = loaded.autoRunOn;
    if (origin == Origin::Anywhere) {
        changed |= OpeningQuestions::guardOutputs(m_session.scene(), path, autoRun, m_prompts);
    }
    setCurrentPath(path);
    m_session.scene().clearSelection();
    const OverrideResult overridden = applyOverrides(m_overrides, m_session.scene());
    m_overrides.clear();
    if (!overridden.error.isEmpty()) {
        emit overridesUnusable(overridden.error);
        return false;
    }
    changed |= overridden.changed;
    emit documentOpened(autoRun);
    m_session.setModified(changed || RecoveryFile::isRecoveryFile(path));
    tellOfLoss(loaded);
    return true;
}

void DocumentCommands::setDocumentLocale(const QLocale &locale, bool warn)
{
    if (locale == QLocale()) {
        return;
    }
    QLocale::setDefault(locale);
    emit localeChanged();
    if (warn && Settings::current().warnOnLocaleChange()) {
        m_prompts.information(
            QStringLiteral("The locale has changed to %1.\nYou can turn off this warning in 'Preferences'.")
                .arg(localeName(locale)));
    }
}

void DocumentCommands::tellOfLoss(const LoadedDocument &loaded)
{
    if (!loaded.laterVersion) {
        return;
    }
    const auto answer = m_prompts.ask(QMessageBox::Warning,
        QStringLiteral(
            "This document was created with a later version of the software.\nSome information may not be readable "
            "and information may be lost if you overwrite the existing document.\nIt is recommended that you click "
            "'Save' and save to a new document before continuing."),
        QMessageBox::Save | QMessageBox::Cancel);
    if (answer == QMessageBox::Save) {
        saveAs();
    }
}

void DocumentCommands::setCurrentPath(const QString &path)
{
    const bool isReal = !path.isEmpty() && !RecoveryFile::isRecoveryFile(path);
    m_session.setPath(isReal ? path : QString());
    if (isReal) {
        m_application.setLastDocDir(QFileInfo(path).absolutePath());
        m_recent.add(path);
    }
    emit recentChanged();
}

void DocumentCommands::onSave()
{
    if (!isBusy() && save()) {
        RecoveryFile::remove();
    }
}

void DocumentCommands::onSaveAs()
{
    if (!isBusy() && saveAs()) {
        RecoveryFile::remove();
    }
}

bool DocumentCommands::save()
{
    return m_session.path().isEmpty() ? saveAs() : saveToPath(m_session.path());
}

bool DocumentCommands::saveAs()
{
    const QString suffix = QLatin1Char('.') + QLatin1String(Product::documentSuffix);
    const QFileInfo current(m_session.path());
    const QString proposal = m_session.path().isEmpty()
                                 ? QDir(m_application.lastDocDir()).filePath(QStringLiteral("MyTransform") + suffix)
                                 : current.dir().filePath(current.completeBaseName() + suffix);
    QString path = m_prompts.saveFile({QStringLiteral("Save"), proposal, QString::fromLatin1(fileFilter)});
    if (path.isEmpty()) {
        return false;
    }
    QCoreApplication::processEvents();
    if (!path.endsWith(suffix, Qt::CaseInsensitive)) {
        path += suffix;
        // The dialog asked about another name.
        if (QFileInfo::exists(path) && !confirmReplacing(path)) {
            return false;
        }
    }
    const QFileInfo target(path);
    if (!target.absoluteDir().exists()) {
        m_prompts.critical(
            QStringLiteral("Folder '%1' does not exist.").arg(QDir::toNativeSeparators(target.absolutePath())));
        return false;
    }
    m_session.releaseHold();
    if (!m_session.hold(path)) {
        m_prompts.critical(QStringLiteral(
            "Cannot open '%1' to write.\nYou may have insufficient access, it may be read-only or it may be "
            "open in another application.")
                               .arg(QDir::toNativeSeparators(path)));
        return false;
    }
    return saveToPath(path);
}

bool DocumentCommands::confirmReplacing(const QString &path)
{
    return m_prompts.ask(QMessageBox::Question,
               QStringLiteral("%1 already exists.\nDo you want to replace it?").arg(QDir::toNativeSeparators(path)),
               QMessageBox::Yes | QMessageBox::No)
           == QMessageBox::Yes;
}

bool DocumentCommands::saveToPath(const QString &path)
{
    const QString native = QDir::toNativeSeparators(path);
    emit statusMessage(QStringLiteral("Saving %1").arg(native));
    QString error;
    bool isSaved = false;
    {
        const WaitCursor cursor;
        isSaved = m_session.save(path, error);
    }
    if (!isSaved) {
        m_prompts.critical(QStringLiteral("Unable to save '%1'. %2").arg(native, error));
        return false;
    }
    setCurrentPath(path);
    emit statusMessage(QStringLiteral("Saved %1").arg(native));
    m_session.setModified(false);
    return true;
}

void DocumentCommands::refreshRecoveryFile()
{
    if (!m_session.scene().nodes().isEmpty() && m_session.isModified() && RecoveryFile::isOld()) {
        emit statusMessage(QStringLiteral("Saving auto recovery file"));
        saveRecoveryNow();
    }
}

void DocumentCommands::saveRecoveryNow()
{
    if (m_session.scene().nodes().isEmpty() || !m_session.isModified()) {
        return;
    }
    const WaitCursor cursor;
    QString error;
    if (!RecoveryFile::save(m_session.content(), error)) {
        qWarning() << "Error saving auto recovery file " << RecoveryFile::path() << " : " << error;
    }
}
