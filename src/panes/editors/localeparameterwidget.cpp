#include "panes/editors/localeparameterwidget.h"

#include "data/values.h"
#include "panes/dialogs/localedialog.h"
#include "transforms/options/parameter.h"

#include <QHBoxLayout>
#include <QPushButton>

LocaleParameterWidget::LocaleParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : QWidget(parent)
    , ParameterWidget(parameter, node)
    , m_button(new QPushButton)
{
    describe(*this);
    m_button->setToolTip(parameter.toolTip());
    m_button->setAutoDefault(false);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_button);
    layout->addStretch(1);
    setFocusProxy(m_button);
    refresh();
    connect(m_button, &QPushButton::clicked, this, &LocaleParameterWidget::choose);
}

void LocaleParameterWidget::refresh()
{
    m_locale = parameter()->toLocale();
    m_button->setText(localeName(m_locale));
    m_button->setAccessibleName(QStringLiteral("%1 %2").arg(parameter()->label(), m_button->text()));
}

QVariant LocaleParameterWidget::value() const
{
    return m_locale == parameter()->toLocale() ? parameter()->value() : QVariant(m_locale);
}

void LocaleParameterWidget::choose()
{
    LocaleDialog dialog(m_locale, this);
    if (dialog.exec() == QDialog::Accepted) {
        m_locale = dialog.chosenLocale();
        onChanged();
    }
}

void LocaleParameterWidget::onChanged()
{
    if (commit()) {
        emit parameterValueChanged(true);
    }
    refresh();
}
