#pragma once

#include <QStringList>
#include <functional>

/// What the scenes of a document ask of the window around them. Every hook may be empty: then nothing is shown,
/// questions are answered with OK, and nothing can be undone.
struct GraphHooks
{
    /// A question with OK and Cancel; true for OK.
    std::function<bool(const QString &text)> ask;
    /// A long text under a title with OK and Cancel, before many files are written; true for OK.
    std::function<bool(const QString &title, const QString &text)> askAboutFiles;
    /// Files become inputs: asks for the types that their extensions don't tell.
    std::function<void(const QStringList &paths)> learnInputTypes;
    /// A hint that shows once in the program's life, at the canvas, for `milliseconds`.
    std::function<void(const QString &key, const QString &title, const QString &text, int milliseconds)> showTip;
    /// Before a change of the document, which `hint` names, and after it. What is typed without a pause is one step.
    std::function<void(const QString &hint, bool isTyping)> beginUndoStep;
    std::function<void()> endUndoStep;

    bool confirm(const QString &text) const { return !ask || ask(text); }
    bool confirmFiles(const QString &title, const QString &text) const
    {
        return !askAboutFiles || askAboutFiles(title, text);
    }
    void askInputTypes(const QStringList &paths) const
    {
        if (learnInputTypes) {
            learnInputTypes(paths);
        }
    }
    void tip(const QString &key, const QString &title, const QString &text, int milliseconds) const
    {
        if (showTip) {
            showTip(key, title, text, milliseconds);
        }
    }
};
