#pragma once

#include "panes/dialogs/prompts.h"

#include <QAbstractButton>
#include <gtest/gtest.h>

/// Answers boxes and dialogs while it lives, each by the next of the given buttons (their texts without "&"), and
/// remembers what they said. One without an answer is closed.
class BoxAnswers
{
public:
    explicit BoxAnswers(const QStringList &buttons = {})
        : m_buttons(buttons)
        , m_outer(s_current)
    {
        s_current = this;
    }
    ~BoxAnswers() { s_current = m_outer; }
    BoxAnswers(const BoxAnswers &) = delete;
    BoxAnswers &operator=(const BoxAnswers &) = delete;

    /// Texts of the boxes so far, titles of other dialogs.
    const QStringList &texts() const { return m_texts; }
    static BoxAnswers *current() { return s_current; }

    void answer(QDialog &dialog)
    {
        const auto *box = qobject_cast<QMessageBox *>(&dialog);
        m_texts.append(box ? box->text() : dialog.windowTitle());
        const QString wanted = m_buttons.isEmpty() ? QString() : m_buttons.takeFirst();
        for (QAbstractButton *button : dialog.findChildren<QAbstractButton *>()) {
            if (!wanted.isEmpty() && button->text().remove(QLatin1Char('&')) == wanted) {
                button->click();
                return;
            }
        }
        dialog.reject();
    }

private:
    QStringList m_buttons;
    QStringList m_texts;
    BoxAnswers *m_outer;
    static inline BoxAnswers *s_current = nullptr;
};

/// A person who answers as the BoxAnswers in force say, and who chooses the given paths one by one.
class ScriptedPrompts : public Prompts
{
public:
    ScriptedPrompts()
        : Prompts(nullptr)
    {
    }

    /// What the next file and folder dialogs give; none left means cancelled.
    QStringList paths;
    /// What these dialogs began with.
    QList<FileRequest> requests;

    int exec(QDialog &dialog) override
    {
        if (BoxAnswers *answers = BoxAnswers::current()) {
            answers->answer(dialog);
        } else {
            ADD_FAILURE() << "nobody expects '" << dialog.windowTitle().toStdString() << "'";
            dialog.reject();
        }
        return dialog.result();
    }
    QStringList openFiles(const FileRequest &request) override
    {
        const QString path = next(request);
        return path.isEmpty() ? QStringList() : QStringList(path);
    }
    QString openFile(const FileRequest &request) override { return next(request); }
    QString saveFile(const FileRequest &request) override { return next(request); }
    QString openFolder(const FileRequest &request) override { return next(request); }

private:
    QString next(const FileRequest &request)
    {
        requests.append(request);
        return paths.isEmpty() ? QString() : paths.takeFirst();
    }
};
