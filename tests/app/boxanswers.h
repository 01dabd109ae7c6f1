#pragma once

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <QTimer>

/// Answers message boxes while it lives, each by the next of the given buttons (their texts without "&"), and remembers
/// what the boxes said. A box without an answer is closed.
class BoxAnswers
{
public:
    explicit BoxAnswers(const QStringList &buttons = {})
        : m_buttons(buttons)
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { answer(); });
        m_timer.start(1);
    }

    /// Texts of the boxes so far.
    const QStringList &texts() const { return m_texts; }

private:
    void answer()
    {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog) {
            return;
        }
        const auto *box = qobject_cast<QMessageBox *>(dialog);
        m_texts.append(box ? box->text() : dialog->windowTitle());
        const QString wanted = m_buttons.isEmpty() ? QString() : m_buttons.takeFirst();
        for (QAbstractButton *button : dialog->findChildren<QAbstractButton *>()) {
            if (!wanted.isEmpty() && button->text().remove(QLatin1Char('&')) == wanted) {
                button->click();
                return;
            }
        }
        dialog->reject();
    }

    QStringList m_buttons;
    QStringList m_texts;
    QTimer m_timer;
};
