#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <QVector>

/// What the server says of the newest version: an XML document whose root has a child "windows" with a child "latest",
/// with the attributes "version", three numbers joined by points, and "url", percent-encoded.
struct UpdateReply
{
    QVector<int> version; ///< three parts; empty for a reply that can't be used
    QUrl url;             ///< of the download; invalid for anything but a page of the web
    QString message;      ///< why it can't be used, for people
    QString details;      ///< the same of the parser, for the log; often empty

    /// The version with points between its parts.
    QString versionText() const;
    static UpdateReply parse(const QByteArray &reply);
};
