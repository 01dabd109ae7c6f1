#pragma once

#include "app/commands/commandcontext.h"

#include <QObject>
#include <memory>

class HelpWindow;

/// Shows the help: for commands, for buttons of dialogs and panels through HelpHook, and for F1 in any window.
class HelpDesk : public QObject
{
    Q_OBJECT

public:
    explicit HelpDesk(const CommandContext &context);
    ~HelpDesk() override;

    void showPage(const QString &page, QWidget *from = nullptr);
    /// The page about what has the focus: a panel's item, a dialog, on the canvas the one selected item; else the
    /// introduction.
    void showContextPage(QWidget *focus);
    /// Made when it is first needed.
    HelpWindow &window();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString contextPage(const QWidget *focus) const;

    const CommandContext m_context;
    std::unique_ptr<HelpWindow> m_window;
};
