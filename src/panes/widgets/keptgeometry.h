#pragma once

#include <QByteArray>
#include <QSize>

class QDialog;
class Settings;

/// Opens a dialog where and as large as it was last closed, and keeps that when it is closed again. Without a kept
/// place it has the size `first`, or what the screen has room for.
void keepGeometry(QDialog &dialog, QByteArray (Settings::*read)() const, void (Settings::*write)(const QByteArray &),
    const QSize &first = QSize());
