#pragma once

class GraphPane;
class QMenu;
class QObject;
class QPainter;
class QPushButton;
class QRect;

/// What an empty canvas shows: how to begin, and under it a button that offers examples.
class EmptyCanvas
{
public:
    explicit EmptyCanvas(GraphPane &pane)
        : m_pane(pane)
    {
    }

    /// Before that there is no button.
    void setExamples(QMenu &menu);
    /// Shows or hides the button and puts it under the words. To be called when items or the room change.
    void update();
    /// The button, while it is there to be pressed; otherwise null.
    QObject *shownButton() const;
    /// Draws the words into the middle of the viewport.
    void paint(QPainter &painter) const;

private:
    QRect textPlace() const;

    GraphPane &m_pane;
    QPushButton *m_examples = nullptr;
};
