#pragma once

#include <QColor>
#include <QToolButton>

/// Shows a color and lets another be chosen.
class ColorButton : public QToolButton
{
    Q_OBJECT

public:
    explicit ColorButton(QWidget *parent = nullptr);

    const QColor &color() const { return m_color; }
    /// Emits nothing.
    void setColor(const QColor &color);

signals:
    /// A person has chosen another.
    void colorChosen(const QColor &color);

private:
    void choose();

    QColor m_color;
};
