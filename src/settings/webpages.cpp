#include "settings/webpages.h"

#include <QString>

namespace {

QString siteAddress()
{
    return QString::fromUtf8(QUILLMERE_WEB_ADDRESS);
}

QString pathOf(WebPages::Page page)
{
    switch (page) {
    case WebPages::Page::Faq:
        return QStringLiteral("/faq");
    case WebPages::Page::Forum:
        return QStringLiteral("/forum");
    case WebPages::Page::IntroVideo:
        return QStringLiteral("/video");
    case WebPages::Page::Newsletter:
        return QStringLiteral("/newsletter");
    case WebPages::Page::Support:
        return QStringLiteral("/support");
    }
    return QString();
}

} // namespace

bool WebPages::exist()
{
    return !siteAddress().isEmpty();
}

QUrl WebPages::address(Page page)
{
    return exist() ? QUrl(siteAddress() + pathOf(page)) : QUrl();
}
