#pragma once

#include <QDoubleSpinBox>

/// A box for real numbers that shows no more digits than there are, and isn't changed by the wheel in passing.
class RealSpinBox : public QDoubleSpinBox
{
public:
    explicit RealSpinBox(QWidget *parent = nullptr);

    QString textFromValue(double number) const override;
};
