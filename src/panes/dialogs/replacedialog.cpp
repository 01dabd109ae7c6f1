#include "panes/dialogs/replacedialog.h"

#include "panes/dialogs/helphook.h"
#include "panes/widgets/keptgeometry.h"
#include "settings/settings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>

namespace {

constexpr int regexType = 2;

} // namespace

ReplaceDialog::ReplaceDialog(QWidget *parent)
    : QDialog(parent)
    , m_type(new QComboBox)
    , m_find(new QLineEdit)
    , m_with(new QLineEdit)
    , m_caseSensitive(new QCheckBox(QStringLiteral("&case sensitive")))
    , m_error(new QLabel)
{
    setWindowTitle(QStringLiteral("Replace column names[*]"));
    HelpHook::setHelpPage(*this, QStringLiteral("Rename_Cols"));
    m_type->addItems({QStringLiteral("Text"), QStringLiteral("Exact text"), QStringLiteral("Regex")});
    m_type->setToolTip(QStringLiteral("The match type."));
    m_caseSensitive->setChecked(true);
    m_error->setWordWrap(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *form = new QFormLayout(this);
    form->addRow(QStringLiteral("&Match type:"), m_type);
    form->addRow(QStringLiteral("&Replace:"), m_find);
    form->addRow(QStringLiteral("&With:"), m_with);
    form->addRow(m_caseSensitive);
    form->addRow(m_error);
    form->addRow(buttons);
    connect(m_find, &QLineEdit::textChanged, this, &ReplaceDialog::check);
    connect(m_type, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ReplaceDialog::check);
    check();
    m_find->setFocus();
    keepGeometry(*this, &Settings::replaceColNamesWindowGeometry, &Settings::setReplaceColNamesWindowGeometry);
}

int ReplaceDialog::matchType() const
{
    return m_type->currentIndex();
}

QString ReplaceDialog::find() const
{
    return m_find->text();
}

QString ReplaceDialog::with() const
{
    return m_with->text();
}

bool ReplaceDialog::isCaseSensitive() const
{
    return m_caseSensitive->isChecked();
}

void ReplaceDialog::check()
{
    const QRegularExpression pattern(m_find->text());
    const bool wrong = matchType() == regexType && !pattern.isValid();
    m_error->setText(wrong ? QStringLiteral("Not a regular expression: %1").arg(pattern.errorString()) : QString());
    m_ok->setEnabled(!wrong && !m_find->text().isEmpty());
}
