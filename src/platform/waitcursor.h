#pragma once

#include <QCursor>
#include <QGuiApplication>

/// Shows the wait cursor while it lives; nests.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY(WaitCursor)
};

/// Shows the usual cursor while it lives: for a question in the middle of a run.
class WaitCursorPause
{
public:
    WaitCursorPause() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~WaitCursorPause() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY(WaitCursorPause)
};
