#pragma once

#include <QColor>
#include <QLabel>
#include <QVector>

/// A strip beside two compared tables that shows in which of all rows they differ and which of them can be seen. A
/// click or a drag goes to the rows there.
class DiffsOverview : public QLabel
{
    Q_OBJECT

public:
    explicit DiffsOverview(QWidget *parent = nullptr);

    /// `differentRows` are ascending, from 0 to below `rowCount`.
    void setRows(int rowCount, const QVector<int> &differentRows, const QColor &color);
    /// The row at a height of the strip; -1 without rows.
    int rowAt(int y) const;
    /// Where that row is shown.
    int yOf(int row) const;

    QSize sizeHint() const override;

public slots:
    /// The rows that can be seen now; none when `last` is below `first`.
    void onViewScrolled(int first, int last);

signals:
    /// A person wants to see that row.
    void rowChosen(int row);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void findMarks();

    int m_rowCount = 0;
    QVector<int> m_differentRows;
    QVector<bool> m_marks; ///< by height, so that painting doesn't depend on the number of rows
    QColor m_color;
    int m_first = 0;
    int m_last = -1;
};
