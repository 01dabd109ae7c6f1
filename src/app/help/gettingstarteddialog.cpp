#include "app/help/gettingstarteddialog.h"

#include "graph/pictures.h"
#include "settings/product.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int textWidth = 420;
constexpr int iconSide = 64;

QLabel *wrappedLabel(const QString &text)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    label->setMinimumWidth(textWidth);
    return label;
}

} // namespace

GettingStartedDialog::GettingStartedDialog(bool hasExamples, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Getting Started"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 16);
    layout->setSpacing(12);
    addWelcome(*layout);
    addSteps(*layout);
    layout->addSpacing(12);
    addButtons(*layout, hasExamples);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void GettingStartedDialog::addWelcome(QVBoxLayout &layout)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(16);
    auto *icon = new QLabel;
    icon->setPixmap(Pictures::programIcon().pixmap(iconSide));
    row->addWidget(icon);
    auto *title = new QLabel(QStringLiteral("Welcome to %1").arg(QLatin1String(Product::name)));
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    font.setBold(true);
    title->setFont(font);
    auto *texts = new QVBoxLayout;
    texts->addStretch(1);
    texts->addWidget(title);
    texts->addWidget(new QLabel(QStringLiteral("Clean, reshape, merge, check and convert tables.")));
    texts->addStretch(1);
    row->addLayout(texts, 1);
    layout.addLayout(row);
}

void GettingStartedDialog::addSteps(QVBoxLayout &layout)
{
    for (const QString &step :
        {QStringLiteral("<b>1. Add your data.</b> Drag files onto the center pane or click \"From File\"."),
            QStringLiteral("<b>2. Transform it.</b> Select an item and click a transform, or type a few letters of its "
                           "name. You see the result at once; your files are never changed."),
            QStringLiteral("<b>3. Write the result.</b> Click \"To File\". Save the flow to run it again on new "
                           "files.")}) {
        layout.addWidget(wrappedLabel(step));
    }
}

void GettingStartedDialog::addButtons(QVBoxLayout &layout, bool hasExamples)
{
    auto *row = new QHBoxLayout;
    const auto add = [&](const QString &text, const QString &toolTip, Choice choice) {
        auto *button = new QPushButton(text);
        button->setToolTip(toolTip);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, choice] { choose(choice); });
        row->addWidget(button);
        return button;
    };
    add(QStringLiteral("Open an &example"), QStringLiteral("Open a flow that cleans a list of contacts."),
        Choice::Example)
        ->setVisible(hasExamples);
    add(QStringLiteral("&Quick start guide"), QStringLiteral("Build a flow in ten steps."), Choice::QuickStart);
    row->addStretch(1);
    QPushButton *start = add(QStringLiteral("&Start"), QStringLiteral("Begin with an empty window."), Choice::Nothing);
    start->setDefault(true);
    start->setFocus();
    layout.addLayout(row);
}

void GettingStartedDialog::choose(Choice choice)
{
    m_choice = choice;
    accept();
}
