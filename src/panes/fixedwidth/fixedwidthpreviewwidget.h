#pragma once

#include <QAbstractScrollArea>
#include <QSet>
#include <QStringList>

/// Draws lines of text with the boundaries of their fixed-width columns. A click on a column tells which.
class FixedWidthPreviewWidget : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit FixedWidthPreviewWidget(QWidget *parent = nullptr);

    void setLines(const QStringList &lines);
    void setWidths(const QList<int> &widths);
    void setSelected(const QList<int> &columns);
    /// Scrolls until the start of the column is seen.
    void showColumn(int column);

signals:
    /// `shift` tells whether the key was held down, to select all columns up to this one.
    void colClicked(int column, bool shift);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void updateScrollBars();
    double left(int position) const;
    void drawColumn(QPainter &painter, const QList<int> &starts, int column, const QRect &dirty) const;

    QStringList m_lines;
    QList<int> m_widths;
    QSet<int> m_selected;
    int m_longest = 0; ///< of the lines, in characters
    double m_characterWidth = 0;
};
