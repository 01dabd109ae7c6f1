#pragma once

#include <QString>

/// What the program says of an exception that nothing could handle, and the exit code that tells of it.
struct ExceptionReport
{
    enum Code { MemoryExceeded = 1, StandardException = 2, UnknownException = 3 };

    QString logLine;
    QString message;
    int code = UnknownException;

    /// Of the exception being handled; for use in a catch block. Doesn't return when memory has run out.
    static ExceptionReport ofCurrent();
};
