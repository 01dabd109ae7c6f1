#pragma once

#include <QMessageBox>
#include <QStringList>

/// What a dialog for files or folders begins with.
struct FileRequest
{
    QString title;
    /// The folder that is shown first, or the path that is proposed.
    QString start;
    /// Patterns as QFileDialog takes them; empty shows every file.
    QString filter;
    /// Asks before a file is chosen to be written that exists.
    bool confirmsOverwriting = true;
};

/// The one way to ask a person: boxes, the program's own dialogs, files and folders. Commands are given one; tests hand
/// in their own, which answers at once. Dialogs of files are the system's or Qt's, as the settings say.
class Prompts
{
public:
    /// Everything opens over `window`, which may be null and must outlive this.
    explicit Prompts(QWidget *window)
        : m_window(window)
    {
    }
    virtual ~Prompts() = default;
    Prompts(const Prompts &) = delete;
    Prompts &operator=(const Prompts &) = delete;

    QWidget *window() const { return m_window; }

    void information(const QString &text);
    void warning(const QString &text);
    void critical(const QString &text);
    /// Says what the program is, in rich text, beside its icon.
    void about(const QString &text);
    /// A question with OK and Cancel; true for OK.
    bool confirm(const QString &text);
    /// The button that was chosen; closing the box is Cancel, or else what leaves things as they are.
    QMessageBox::StandardButton ask(QMessageBox::Icon icon, const QString &text, QMessageBox::StandardButtons buttons,
        QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);
    /// A question with two buttons of its own; true for the first. Closing the box is the second.
    bool choose(const QString &text, const QString &yes, const QString &no);
    /// The place of the item that was chosen from a list, or -1.
    int chooseItem(const QString &text, const QStringList &items, int current);

    /// Runs a dialog until it is answered; its result.
    virtual int exec(QDialog &dialog);

    // Paths that were chosen; empty when none was.
    virtual QStringList openFiles(const FileRequest &request);
    virtual QString openFile(const FileRequest &request);
    virtual QString saveFile(const FileRequest &request);
    virtual QString openFolder(const FileRequest &request);

private:
    /// A dialog that is open asks over itself.
    QWidget *parentWidget() const;

    QWidget *m_window;
};
