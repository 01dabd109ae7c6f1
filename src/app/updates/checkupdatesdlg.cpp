#include "app/updates/checkupdatesdlg.h"

#include "graph/pictures.h"
#include "settings/product.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

CheckUpdatesDlg::CheckUpdatesDlg(QWidget *parent)
    : QDialog(parent)
{
    constexpr int iconSide = 48;
    setWindowTitle(QStringLiteral("Check For Updates"));
    auto *row = new QHBoxLayout;
    row->setSpacing(16);
    auto *icon = new QLabel;
    icon->setPixmap(Pictures::programIcon().pixmap(iconSide));
    row->addWidget(icon);
    row->addWidget(new QLabel(QStringLiteral("Checking for %1 software updates").arg(QLatin1String(Product::name))), 1);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}
