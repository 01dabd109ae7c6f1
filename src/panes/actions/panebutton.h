#pragma once

#include <QToolButton>

/// A button of the left pane: picture and text, which is cut where the pane is narrow. Enter presses it as Space does,
/// and a double click counts once.
class PaneButton : public QToolButton
{
    Q_OBJECT

public:
    /// `helpPage` names the page of the help that tells of what the button does.
    PaneButton(const QString &text, const QString &helpPage, QWidget *parent = nullptr);

    const QString &helpPage() const { return m_helpPage; }
    /// Room for the picture.
    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    /// Pixels that its text takes in full.
    int textWidth() const;

    const QString m_helpPage;
};
