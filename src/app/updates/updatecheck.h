#pragma once

#include "app/updates/httploader.h"
#include "app/updates/updatereply.h"

#include <QObject>
#include <QUrl>
#include <memory>

class CheckUpdatesDlg;
class Prompts;

/// Asks the program's site whether there is a newer version: by itself from the second session on, as often as the
/// settings say, or when told to. Does nothing where the program was built without the address of a site.
class UpdateCheck : public QObject
{
    Q_OBJECT

public:
    /// `site` is the address without a slash at its end; empty for none.
    UpdateCheck(Prompts &prompts, const QString &site);
    ~UpdateCheck() override;

    /// Checks if it is time to; silent unless there is a newer version.
    void onAutoCheckForUpdates();
    void checkForUpdates(bool automatic);

signals:
    /// For the status bar.
    void statusMessage(const QString &text);
    /// For the log.
    void logMessage(const QString &text);
    /// The check is over and whatever it had to say has been said.
    void ended();

private:
    QUrl requestAddress(bool automatic) const;
    void onLoaded();
    void showResult();
    void show(const UpdateReply &reply);
    void offer(const UpdateReply &reply);

    Prompts &m_prompts;
    const QString m_site;
    HttpLoader m_loader;
    std::unique_ptr<CheckUpdatesDlg> m_dialog;
    bool m_isAutomatic = false;
};
