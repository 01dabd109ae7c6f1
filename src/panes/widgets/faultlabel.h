#pragma once

#include <QLabel>

/// Says what makes no sense in the editors above; it is hidden while all is well.
class FaultLabel : public QLabel
{
public:
    explicit FaultLabel(QWidget *parent = nullptr);

    /// One a line.
    void setFaults(const QStringList &faults);
};
