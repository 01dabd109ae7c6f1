#include "panes/dialogs/prompts.h"

#include "settings/product.h"
#include "settings/settings.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QPushButton>

namespace {

QString productName()
{
    return QString::fromLatin1(Product::name);
}

QFileDialog::Options dialogOptions(const FileRequest &request)
{
    QFileDialog::Options options;
    options.setFlag(QFileDialog::DontUseNativeDialog, !Settings::current().useNativeFileDialogs());
    options.setFlag(QFileDialog::DontConfirmOverwrite, !request.confirmsOverwriting);
    return options;
}

} // namespace

QWidget *Prompts::parentWidget() const
{
    QWidget *dialog = QApplication::activeModalWidget();
    return dialog ? dialog : m_window;
}

void Prompts::information(const QString &text)
{
    ask(QMessageBox::Information, text, QMessageBox::Ok);
}

void Prompts::warning(const QString &text)
{
    ask(QMessageBox::Warning, text, QMessageBox::Ok);
}

void Prompts::critical(const QString &text)
{
    ask(QMessageBox::Critical, text, QMessageBox::Ok);
}

void Prompts::about(const QString &text)
{
    QMessageBox box(QMessageBox::NoIcon, productName(), text, QMessageBox::Ok, parentWidget());
    constexpr int iconSide = 64;
    box.setIconPixmap(QApplication::windowIcon().pixmap(iconSide));
    exec(box);
}

bool Prompts::confirm(const QString &text)
{
    return ask(QMessageBox::Question, text, QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Ok;
}

QMessageBox::StandardButton Prompts::ask(QMessageBox::Icon icon, const QString &text,
    QMessageBox::StandardButtons buttons, QMessageBox::StandardButton defaultButton)
{
    QMessageBox box(icon, productName(), text, buttons, parentWidget());
    box.setDefaultButton(defaultButton);
    exec(box);
    return box.clickedButton() ? box.standardButton(box.clickedButton()) : QMessageBox::Cancel;
}

bool Prompts::choose(const QString &text, const QString &yes, const QString &no)
{
    QMessageBox box(QMessageBox::Question, productName(), text, QMessageBox::NoButton, parentWidget());
    const QPushButton *accept = box.addButton(yes, QMessageBox::AcceptRole);
    box.setEscapeButton(box.addButton(no, QMessageBox::RejectRole));
    exec(box);
    return box.clickedButton() == accept;
}

int Prompts::chooseItem(const QString &text, const QStringList &items, int current)
{
    QInputDialog dialog(parentWidget());
    dialog.setWindowTitle(productName());
    dialog.setLabelText(text);
    dialog.setComboBoxItems(items);
    dialog.setTextValue(items.value(current));
    return exec(dialog) == QDialog::Accepted ? items.indexOf(dialog.textValue()) : -1;
}

int Prompts::exec(QDialog &dialog)
{
    return dialog.exec();
}

QStringList Prompts::openFiles(const FileRequest &request)
{
    return QFileDialog::getOpenFileNames(
        parentWidget(), request.title, request.start, request.filter, nullptr, dialogOptions(request));
}

QString Prompts::openFile(const FileRequest &request)
{
    return QFileDialog::getOpenFileName(
        parentWidget(), request.title, request.start, request.filter, nullptr, dialogOptions(request));
}

QString Prompts::saveFile(const FileRequest &request)
{
    return QFileDialog::getSaveFileName(
        parentWidget(), request.title, request.start, request.filter, nullptr, dialogOptions(request));
}

QString Prompts::openFolder(const FileRequest &request)
{
    return QFileDialog::getExistingDirectory(
        parentWidget(), request.title, request.start, dialogOptions(request) | QFileDialog::ShowDirsOnly);
}
