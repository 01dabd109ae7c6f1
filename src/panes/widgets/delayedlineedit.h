#pragma once

#include <QLineEdit>
#include <QTimer>

/// A line of text that tells of its changes once typing pauses.
class DelayedLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit DelayedLineEdit(QWidget *parent = nullptr);

    /// Tells of a change that waits, at once.
    void flush();

signals:
    void delayedEditTextChanged(const QString &text);

private:
    QTimer m_pause;
};
