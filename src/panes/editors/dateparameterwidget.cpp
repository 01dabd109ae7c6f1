#include "panes/editors/dateparameterwidget.h"

#include "panes/widgets/wheelguard.h"
#include "transforms/options/parameter.h"

#include <QLocale>
#include <QRegularExpression>
#include <QSignalBlocker>

DateParameterWidget::DateParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : QDateEdit(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    guardFromWheel(*this);
    setCalendarPopup(true);
    setDisplayFormat(QLocale()
                         .dateFormat(QLocale::ShortFormat)
                         .replace(QRegularExpression(QStringLiteral("\\\\by+\\\\b")), QStringLiteral("yyyy")));
    refresh();
    connect(this, &QDateEdit::dateChanged, this, &DateParameterWidget::onChanged);
    connect(this, &QDateEdit::editingFinished, this, &DateParameterWidget::userInteraction);
}

void DateParameterWidget::refresh()
{
    const QSignalBlocker blocker(this);
    setDate(parameter()->toDate());
}

QVariant DateParameterWidget::value() const
{
    return date();
}

void DateParameterWidget::onChanged()
{
    if (commit()) {
        emit parameterValueChanged(true);
    }
}
