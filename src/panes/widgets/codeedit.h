#pragma once

#include <QPlainTextEdit>
#include <functional>

/// A text of several lines with their numbers, in the fixed font of the system. A line may be marked as faulty.
class CodeEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit CodeEdit(QWidget *parent = nullptr);

    /// Lines count from 1; 0 takes the mark away. `reason` is the mark's tip.
    void setErrorLine(int line, const QString &reason = QString());
    /// What is painted over the text, such as the mark of an option that isn't set.
    void setOverlay(std::function<void(QWidget &viewport)> paint) { m_paintOverlay = std::move(paint); }
    int marginWidth() const;
    void paintMargin(QPaintEvent *event);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool event(QEvent *event) override;

private:
    void updateMargin();
    void markLines();

    QWidget *m_margin;
    int m_errorLine = 0;
    QString m_reason;
    std::function<void(QWidget &)> m_paintOverlay;
};
