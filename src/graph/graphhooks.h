#pragma once

#include <QString>
#include <functional>

/// What the canvas asks of the window around it. Every hook may be empty: then nothing is shown and questions are
/// answered with OK.
struct GraphHooks
{
    /// A question with OK and Cancel; true for OK.
    std::function<bool(const QString &text)> ask;
    /// A hint that shows once in the program's life, at the canvas, for `milliseconds`.
    std::function<void(const QString &key, const QString &title, const QString &text, int milliseconds)> showTip;

    /// The one of the process.
    static GraphHooks &instance();
    bool confirm(const QString &text) const { return !ask || ask(text); }
    void tip(const QString &key, const QString &title, const QString &text, int milliseconds) const
    {
        if (showTip) {
            showTip(key, title, text, milliseconds);
        }
    }
};
