#include "panes/dialogs/notesdialog.h"

#include "panes/dialogs/helphook.h"

#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(560, 380);

} // namespace

NotesDialog::NotesDialog(const QString &notes, QWidget *parent)
    : QDialog(parent)
    , m_edit(new QPlainTextEdit(notes))
{
    setWindowTitle(QStringLiteral("Notes"));
    HelpHook::setHelpPage(*this, QStringLiteral("Comments#notes-on-a-document"));
    m_edit->setAccessibleName(windowTitle());
    m_edit->setPlaceholderText(QStringLiteral("What this document is for, where its data comes from, who to ask"));
    m_edit->setTabChangesFocus(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_edit);
    layout->addWidget(buttons);
    resize(firstSize);
    m_edit->setFocus();
    m_edit->moveCursor(QTextCursor::End);
}

QString NotesDialog::notes() const
{
    return m_edit->toPlainText();
}
