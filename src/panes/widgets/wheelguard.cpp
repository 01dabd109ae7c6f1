#include "panes/widgets/wheelguard.h"

#include <QEvent>
#include <QWidget>

namespace {

class WheelGuard : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Wheel && !static_cast<QWidget *>(watched)->hasFocus()) {
            event->ignore();
            return true;
        }
        return false;
    }
};

} // namespace

void guardFromWheel(QWidget &widget)
{
    widget.setFocusPolicy(Qt::StrongFocus);
    widget.installEventFilter(new WheelGuard(&widget));
}
