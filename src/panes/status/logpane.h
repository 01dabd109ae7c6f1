#pragma once

#include <QPlainTextEdit>

/// The lines that runs leave, the newest at the bottom.
class LogPane : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit LogPane(QWidget *parent = nullptr);

    QSize sizeHint() const override { return QSize(400, 120); }

public slots:
    void onShowLogMessage(const QString &text);
};
