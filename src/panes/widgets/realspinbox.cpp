#include "panes/widgets/realspinbox.h"

#include "panes/widgets/wheelguard.h"

namespace {

constexpr int decimalPlaces = 6;
constexpr int significantDigits = 10;

} // namespace

RealSpinBox::RealSpinBox(QWidget *parent)
    : QDoubleSpinBox(parent)
{
    setDecimals(decimalPlaces);
    guardFromWheel(*this);
}

QString RealSpinBox::textFromValue(double number) const
{
    return locale().toString(number, 'g', significantDigits);
}
