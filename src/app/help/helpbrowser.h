#pragma once

#include <QTextBrowser>

/// Shows one page of the help. Links lead to other pages, to the web or to a search.
class HelpBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit HelpBrowser(QWidget *parent = nullptr);

    /// A page by its name, which may end in "#" and the name of a heading. One that there isn't says so and offers to
    /// search.
    void showPage(const QString &name);
    /// The name of the page that is shown.
    QString page() const;
    /// Marks these words wherever they stand in this page and the next ones; none takes the marks away.
    void setMarked(const QStringList &words);
    /// Scrolls to the first of these.
    void showFirstMark();
    QVariant loadResource(int type, const QUrl &name) override;
    /// Larger or smaller text, by steps of one point.
    void zoomBy(int steps);
    void zoomToNormal();

signals:
    void searchRequested(const QString &words);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void followLink(const QUrl &link);
    void onSourceChanged(const QUrl &address);
    void mark();
    void fitPictures();

    QStringList m_marked;
    QUrl m_page;
    QUrl m_styled; ///< the page whose document has its style
    int m_zoom = 0;
};
