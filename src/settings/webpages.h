#pragma once

#include <QUrl>

/// Pages of the site that belongs to the program.
namespace WebPages {

enum class Page { Download, Faq, Forum, IntroVideo, Newsletter, Support };

/// Whether the program was built with the address of a site (QUILLMERE_WEB_ADDRESS).
bool exist();
/// Without a slash at its end; empty when there is none.
QString siteAddress();
/// Below the address of the site.
QString path(Page page);
/// Empty when there is no site.
QUrl address(Page page);

} // namespace WebPages
