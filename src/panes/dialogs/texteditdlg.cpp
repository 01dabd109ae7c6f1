#include "panes/dialogs/texteditdlg.h"

#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(700, 450);

} // namespace

TextEditDlg::TextEditDlg(const QString &title, const QString &text, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(title);
    auto *edit = new QPlainTextEdit(text);
    edit->setReadOnly(true);
    // Paths in lists are read one a line.
    edit->setLineWrapMode(QPlainTextEdit::NoWrap);
    edit->setAccessibleName(title);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(edit);
    layout->addWidget(buttons);
    resize(firstSize);
}
