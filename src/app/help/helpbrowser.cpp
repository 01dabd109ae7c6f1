#include "app/help/helpbrowser.h"

#include "app/help/helppages.h"
#include "app/help/helpstyle.h"

#include <QDesktopServices>
#include <QEvent>
#include <QFile>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QUrlQuery>
#include <QWheelEvent>

namespace {

constexpr int mostMarks = 500;
constexpr int margin = 16;
constexpr int mostZoom = 12;
constexpr int leastZoom = -4;

QString missingPage(const QString &name)
{
    const QString words = QString(name).replace(QLatin1Char('_'), QLatin1Char(' '));
    return QStringLiteral("# No page about this yet\n\nThe help has no page called **%1**.\n\n"
                          "- [Search the help for \"%2\"](search:%3)\n- [Go to the introduction](Introduction.md)\n")
        .arg(QString(name).replace(QLatin1Char('_'), QLatin1String("\\_")), words,
            QString::fromLatin1(QUrl::toPercentEncoding(words)));
}

} // namespace

HelpBrowser::HelpBrowser(QWidget *parent)
    : QTextBrowser(parent)
{
    setOpenLinks(false);
    setAccessibleName(QStringLiteral("Help page"));
    document()->setDocumentMargin(margin);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::followLink);
    connect(this, &QTextBrowser::sourceChanged, this, &HelpBrowser::onSourceChanged);
}

void HelpBrowser::showPage(const QString &name)
{
    setSource(HelpPages::address(name));
}

QString HelpBrowser::page() const
{
    return HelpPages::nameOf(m_page);
}

QVariant HelpBrowser::loadResource(int type, const QUrl &name)
{
    if (type == QTextDocument::ImageResource) {
        return QImage(QLatin1Char(':') + m_page.resolved(name).path());
    }
    // The base class says what its source is only when the page has been read.
    m_page = name;
    m_styled.clear();
    const QString page = HelpPages::nameOf(name);
    return HelpPages::exists(page) ? HelpPages::text(page) : missingPage(page);
}

void HelpBrowser::followLink(const QUrl &link)
{
    if (link.scheme() == QLatin1String("search")) {
        emit searchRequested(link.path());
    } else if (link.scheme() == QLatin1String("qrc") || link.isRelative()) {
        setSource(m_page.resolved(link));
    } else {
        QDesktopServices::openUrl(link);
    }
}

void HelpBrowser::onSourceChanged(const QUrl &address)
{
    const QUrl page = address.adjusted(QUrl::RemoveFragment);
    m_page = page;
    if (page != m_styled) {
        m_styled = page;
        HelpStyle::apply(*document(), palette());
        fitPictures();
        mark();
    }
    if (address.hasFragment()) {
        scrollToAnchor(address.fragment());
    }
}

void HelpBrowser::fitPictures()
{
    HelpStyle::fitPictures(*document(), viewport()->width() - 2 * margin, devicePixelRatioF(),
        [this](const QString &name) { return QImage(QLatin1Char(':') + m_page.resolved(QUrl(name)).path()); });
}

void HelpBrowser::setMarked(const QStringList &words)
{
    m_marked = words;
    mark();
}

void HelpBrowser::mark()
{
    QTextCharFormat format;
    const bool isDark = palette().color(QPalette::Base).lightness() < 128;
    format.setBackground(isDark ? QColor(0x7a, 0x63, 0x10) : QColor(0xff, 0xe2, 0x80));
    QList<QTextEdit::ExtraSelection> marks;
    for (const QString &word : m_marked) {
        QTextCursor found = document()->find(word);
        while (!found.isNull() && marks.size() < mostMarks) {
            marks.append({found, format});
            found = document()->find(word, found);
        }
    }
    setExtraSelections(marks);
}

void HelpBrowser::showFirstMark()
{
    if (!extraSelections().isEmpty()) {
        QTextCursor cursor = extraSelections().first().cursor;
        cursor.setPosition(cursor.selectionStart());
        setTextCursor(cursor);
        ensureCursorVisible();
    }
}

void HelpBrowser::changeEvent(QEvent *event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_styled.isEmpty()) {
        const int place = verticalScrollBar()->value();
        m_styled.clear();
        reload();
        verticalScrollBar()->setValue(place);
    }
}

void HelpBrowser::resizeEvent(QResizeEvent *event)
{
    QTextBrowser::resizeEvent(event);
    fitPictures();
}

void HelpBrowser::wheelEvent(QWheelEvent *event)
{
    if (event->modifiers() & Qt::ControlModifier) {
        zoomBy(event->angleDelta().y() > 0 ? 1 : -1);
        event->accept();
        return;
    }
    QTextBrowser::wheelEvent(event);
}

void HelpBrowser::zoomBy(int steps)
{
    const int zoom = qBound(leastZoom, m_zoom + steps, mostZoom);
    zoomIn(zoom - m_zoom);
    m_zoom = zoom;
}

void HelpBrowser::zoomToNormal()
{
    zoomBy(-m_zoom);
}
