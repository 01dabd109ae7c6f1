#include "panes/dialogs/textlabeldialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

TextLabelDialog::TextLabelDialog(const QString &title, const QString &text, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(title);
    auto *label = new QLabel(text);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(buttons);
    layout->activate();
}
