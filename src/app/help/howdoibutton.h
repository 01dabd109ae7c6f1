#pragma once

#include <QToolButton>
#include <QVector>

/// The button of the tool bar that lists what people often want to do; each entry leads to a page of the help.
class HowDoIButton : public QToolButton
{
    Q_OBJECT

public:
    struct Task
    {
        QString text;
        QString page;
    };

    explicit HowDoIButton(QWidget *parent = nullptr);
    static const QVector<Task> &tasks();
    /// With room on both sides of the text, since the arrow of the menu would else lie on it.
    QSize sizeHint() const override;

signals:
    void pageChosen(const QString &page);
};
