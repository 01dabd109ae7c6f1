#pragma once

#include <QIcon>
#include <QStatusBar>
#include <QVector>

class QLabel;
class QProgressBar;
class QToolButton;
class NodeStatusWidget;

/// Messages, a heart that beats during work, the locale, how far a run is, how much memory it takes, and, until they
/// have been used, the buttons for questions and for the first video.
class StatusBar : public QStatusBar
{
    Q_OBJECT

public:
    static constexpr int messageMs = 2000;
    /// More selected cells than these aren't looked at.
    static constexpr int mostCellsInStatistics = 100000;

    explicit StatusBar(QWidget *parent = nullptr);

    NodeStatusWidget &itemStatus() { return *m_itemStatus; }
    /// Figures of the cells that are selected in a table; empty for none.
    void showStatistics(const QString &text);
    /// Takes away the buttons that the settings say have been used.
    void hideUsedButtons();

signals:
    void feedbackClicked();
    void introVideoClicked();
    /// How far a run is, in percent; 100 at its end.
    void progressShown(int percent);

public slots:
    /// Shows a message for two seconds.
    void onShowMessage(const QString &text);
    /// Says how many items and connections are selected, if any.
    void showSelection(int items, int connections);
    void onHeartBeat();
    void onShowProgress(int percent);
    /// Reads the default locale.
    void onUpdateLocale();
    /// Reads the memory in use and its ceiling.
    void onUpdateMemory();

private:
    QToolButton *addButton(const QString &text, const QString &tip);
    void endProgress();

    QLabel *m_heart;
    QLabel *m_locale;
    QLabel *m_statistics;
    QProgressBar *m_progress;
    NodeStatusWidget *m_itemStatus;
    QLabel *m_memory;
    QToolButton *m_feedback;
    QToolButton *m_introVideo;
    QVector<QIcon> m_beats;
    int m_beat = 0;
};
