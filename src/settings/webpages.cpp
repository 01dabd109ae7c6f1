#include "settings/webpages.h"

#include <QString>

QString WebPages::siteAddress()
{
    return QString::fromUtf8(QUILLMERE_WEB_ADDRESS);
}

QString WebPages::path(Page page)
{
    switch (page) {
    case Page::Download:
        return QStringLiteral("/download");
    case Page::Faq:
        return QStringLiteral("/faq");
    case Page::Forum:
        return QStringLiteral("/forum");
    case Page::IntroVideo:
        return QStringLiteral("/video");
    case Page::Newsletter:
        return QStringLiteral("/newsletter");
    case Page::Support:
        return QStringLiteral("/support");
    }
    return QString();
}

bool WebPages::exist()
{
    return !siteAddress().isEmpty();
}

QUrl WebPages::address(Page page)
{
    return exist() ? QUrl(siteAddress() + path(page)) : QUrl();
}
