#pragma once

#include <QIcon>
#include <QObject>

class QWidget;

/// Shows on a window's icon how far a run is, so that it can be seen in a task bar: a bar over the program's icon while
/// the run is between 1 and 99 percent.
class IconProgress : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the window.
    explicit IconProgress(QWidget &window);

    /// The program's icon with a bar, `percent` wide of it.
    static QIcon withBar(const QIcon &icon, int percent);

public slots:
    void onProgress(int percent);

private:
    QWidget &m_window;
    int m_shown = 0;
};
