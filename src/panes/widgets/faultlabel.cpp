#include "panes/widgets/faultlabel.h"

#include "panes/widgets/faultmark.h"

FaultLabel::FaultLabel(QWidget *parent)
    : QLabel(parent)
{
    QPalette marked = palette();
    marked.setColor(QPalette::WindowText, QColor(FaultMark::color));
    setPalette(marked);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    hide();
}

void FaultLabel::setFaults(const QStringList &faults)
{
    setText(faults.join(QLatin1Char('\n')));
    setVisible(!faults.isEmpty());
}
