#pragma once

#include "document/documentbuilder.h"
#include "graph/graphscene.h"

#include <QByteArray>
#include <QString>

/// `text` with each '|' as the character that parts the entries of stored lists.
QByteArray withSeparators(QByteArray text);

/// A document of this version with `body` behind its meta element; '|' as in withSeparators().
QByteArray documentText(const QByteArray &body, int version = 86);

/// One item of each kind, joined, with options that aren't the defaults.
QByteArray fullDocument();

/// What reading the text gives in `scene`; fails the test for text that is no document.
DocumentContents readText(const QByteArray &text, GraphScene &scene, const QString &path = QString());

/// The scene as it would be saved, without the line that tells who saved it.
QByteArray savedText(const GraphScene &scene, bool selectedOnly = false);

/// `text` without the line that tells who saved it.
QByteArray withoutSaver(const QByteArray &text);
