#include "panes/dialogs/insufficientmemorydialog.h"

#include "panes/dialogs/helphook.h"
#include "settings/product.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

constexpr double step = 0.5;
constexpr double largestGiB = 4096.0;

} // namespace

InsufficientMemoryDialog::InsufficientMemoryDialog(double used, double limit, bool modified, QWidget *parent)
    : QDialog(parent)
    , m_increase(new QRadioButton(
          QStringLiteral("Increase the maximum memory to this amount in 'Preferences' and try to continue.")))
    , m_limit(new QDoubleSpinBox)
    , m_exit(new QRadioButton(
          QStringLiteral("Exit %1 immediately. Any unsaved changes will be lost.").arg(QLatin1String(Product::name))))
    , m_exitText(QStringLiteral("%1 (%2)").arg(QStringLiteral("Exit now"),
          modified ? QStringLiteral("changes not saved") : QStringLiteral("no changes to save")))
{
    setWindowTitle(QString::fromLatin1(Product::name));
    HelpHook::setHelpPage(*this, QStringLiteral("Preferences_window#general"));
    m_limit->setDecimals(1);
    m_limit->setSingleStep(step);
    m_limit->setRange(limit + step, qMax(largestGiB, limit + step));
    m_limit->setValue(limit + step);
    m_limit->setSuffix(QStringLiteral(" GB"));
    m_increase->setChecked(true);

    auto *amount = new QFormLayout;
    amount->addRow(QStringLiteral("Increase maximum memory usage to:"), m_limit);
    auto *buttons = new QDialogButtonBox;
    m_button = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(explanation(used, limit) + QStringLiteral("\n\nWould you like to?:")));
    layout->addWidget(m_increase);
    layout->addLayout(amount);
    layout->addWidget(m_exit);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_exit, &QRadioButton::toggled, this, &InsufficientMemoryDialog::onChoiceChanged);
    onChoiceChanged();
}

void InsufficientMemoryDialog::onChoiceChanged()
{
    m_limit->setEnabled(m_increase->isChecked());
    m_button->setText(m_exit->isChecked() ? m_exitText : QStringLiteral("Continue"));
}

bool InsufficientMemoryDialog::isExitChosen() const
{
    return result() == QDialog::Accepted && m_exit->isChecked();
}

double InsufficientMemoryDialog::newLimit() const
{
    return m_limit->value();
}

QString InsufficientMemoryDialog::explanation(double used, double limit)
{
    return QStringLiteral("You have exceed the maximum process memory set in 'Preferences'.\n\n"
                          "Maximum memory usage=%1 GB. Current memory usage=%2 GB.")
        .arg(QString::number(limit, 'f', 1), QString::number(used, 'f', 1));
}
