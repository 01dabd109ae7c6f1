#pragma once

#include <QLabel>

/// One line of plain text that ends in an ellipsis where it doesn't fit. The whole of it is its tool tip and what
/// screen readers read.
class ElidedLabel : public QLabel
{
public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    void setWholeText(const QString &text);
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
