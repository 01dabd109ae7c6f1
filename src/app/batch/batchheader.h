#pragma once

#include <QHeaderView>

/// The header of the batch grid, in the colours that the canvas gives to inputs and outputs.
class BatchHeader : public QHeaderView
{
    Q_OBJECT

public:
    explicit BatchHeader(QWidget *parent);

protected:
    void paintSection(QPainter *painter, const QRect &rect, int section) const override;
};
