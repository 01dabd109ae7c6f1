#pragma once

#include <QFont>
#include <QWidget>

class QLabel;

/// Shows a font by its name and lets another, or the usual one, be chosen.
class FontRow : public QWidget
{
    Q_OBJECT

public:
    FontRow(const QFont &font, const QFont &usual, QWidget *parent = nullptr);

    const QFont &chosenFont() const { return m_font; }

private:
    void choose();
    void show(const QFont &font);

    QFont m_font;
    const QFont m_usual;
    QLabel *m_name;
};
