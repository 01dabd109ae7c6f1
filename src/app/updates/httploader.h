#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>

class QNetworkAccessManager;
class QNetworkReply;
class QUrl;

/// Gets one small page of the web, through the proxy of the system, without blocking.
class HttpLoader : public QObject
{
    Q_OBJECT

public:
    static constexpr int mostBytes = 64 * 1024;

    using QObject::QObject;

    /// finished() comes in any case, but for one that another get() or abort() ends.
    void get(const QUrl &address);
    void abort();
    /// Of the last download: whether it failed, by the network or by being too long, and what came.
    bool hasFailed() const { return m_hasFailed; }
    const QByteArray &received() const { return m_received; }

signals:
    void finished();

private:
    void onSlotFinished(QNetworkReply *reply);
    void onReadyRead();

    QNetworkAccessManager *m_manager = nullptr; // made when it is first needed, which it mostly isn't
    QPointer<QNetworkReply> m_reply;
    QByteArray m_received;
    bool m_hasFailed = false;
};
