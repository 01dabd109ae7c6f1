#include "app/updates/httploader.h"

#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

namespace {

constexpr int timeoutMs = 20000;
constexpr int mostRedirects = 5;

} // namespace

void HttpLoader::get(const QUrl &address)
{
    if (!m_manager) {
        QNetworkProxyFactory::setUseSystemConfiguration(true);
        m_manager = new QNetworkAccessManager(this);
        connect(m_manager, &QNetworkAccessManager::finished, this, &HttpLoader::onSlotFinished);
    }
    abort();
    m_received.clear();
    m_hasFailed = false;
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirects);
    request.setTransferTimeout(timeoutMs);
    m_reply = m_manager->get(request);
    connect(m_reply, &QNetworkReply::readyRead, this, &HttpLoader::onReadyRead);
}

void HttpLoader::abort()
{
    if (QNetworkReply *reply = m_reply) {
        m_reply.clear(); // its end is nobody's business any more
        reply->abort();
    }
}

void HttpLoader::onReadyRead()
{
    if (!m_reply) {
        return;
    }
    m_received += m_reply->read(mostBytes + 1);
    if (m_received.size() > mostBytes) {
        m_reply->abort();
    }
}

void HttpLoader::onSlotFinished(QNetworkReply *reply)
{
    reply->deleteLater();
    if (reply != m_reply) {
        return;
    }
    m_reply.clear();
    m_hasFailed = reply->error() != QNetworkReply::NoError;
    if (!m_hasFailed) {
        m_received += reply->readAll();
        m_hasFailed = m_received.size() > mostBytes;
    }
    emit finished();
}
