#include "panes/dialogs/prefixsuffixdialog.h"

#include "panes/dialogs/helphook.h"
#include "panes/widgets/keptgeometry.h"
#include "settings/settings.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

PrefixSuffixDialog::PrefixSuffixDialog(QWidget *parent)
    : QDialog(parent)
    , m_prefix(new QLineEdit)
    , m_suffix(new QLineEdit)
{
    setWindowTitle(QStringLiteral("Prefix/suffix column names[*]"));
    HelpHook::setHelpPage(*this, QStringLiteral("Rename_Cols"));
    m_prefix->setToolTip(QStringLiteral("Text to put before each column name."));
    m_suffix->setToolTip(QStringLiteral("Text to put behind each column name."));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *form = new QFormLayout(this);
    form->addRow(QStringLiteral("&Prefix:"), m_prefix);
    form->addRow(QStringLiteral("&Suffix:"), m_suffix);
    form->addRow(buttons);
    keepGeometry(
        *this, &Settings::prefixSuffixColNamesWindowGeometry, &Settings::setPrefixSuffixColNamesWindowGeometry);
}

QString PrefixSuffixDialog::prefix() const
{
    return m_prefix->text();
}

QString PrefixSuffixDialog::suffix() const
{
    return m_suffix->text();
}
