#include "panes/fixedwidth/fixedwidthautomanualwidget.h"

#include "panes/widgets/wheelguard.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>

FixedWidthAutoManualWidget::FixedWidthAutoManualWidget(QWidget *parent)
    : QWidget(parent)
    , m_mode(new QComboBox)
{
    m_mode->addItems({QStringLiteral("Automatic"), QStringLiteral("Manual")});
    m_mode->setToolTip(
        QStringLiteral("Choose whether to set fixed column widths manually or make an intelligent guess."));
    m_mode->setAccessibleName(QStringLiteral("Columns"));
    guardFromWheel(*m_mode);
    auto *edit = new QPushButton(QStringLiteral("Edit..."));
    edit->setToolTip(QStringLiteral("Change the column widths."));
    edit->setAutoDefault(false);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_mode);
    layout->addWidget(edit);
    layout->addStretch(1);
    setFocusProxy(m_mode);
    connect(m_mode, QOverload<int>::of(&QComboBox::activated), this,
        [this](int index) { emit automaticChanged(index == 0); });
    connect(edit, &QPushButton::clicked, this, &FixedWidthAutoManualWidget::manualEditClicked);
}

void FixedWidthAutoManualWidget::setAutomatic(bool automatic)
{
    m_mode->setCurrentIndex(automatic ? 0 : 1);
}
