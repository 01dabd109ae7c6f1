#include "panes/table/drilldowndialog.h"

#include "data/dataset.h"
#include "data/values.h"
#include "panes/dialogs/helphook.h"
#include "panes/dialogs/prompts.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "panes/table/tableclipboard.h"
#include "panes/widgets/keptgeometry.h"
#include "settings/settings.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(700, 400);

} // namespace

DrilldownDialog::DrilldownDialog(const Dataset &dataset, Prompts &prompts)
    : QDialog(prompts.window())
    , m_prompts(prompts)
    , m_view(new DataTableView)
{
    setWindowTitle(QStringLiteral("Drilldown"));
    HelpHook::setHelpPage(*this, QStringLiteral("Drilldown"));
    m_view->setPrompts(prompts);
    m_view->table().setDataset(dataset);
    const QString rows = dataset.rowCount() == 1
                             ? QStringLiteral("1 row")
                             : QStringLiteral("%1 rows").arg(formatInteger(dataset.rowCount(), true));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *copy = buttons->addButton(QStringLiteral("&Copy"), QDialogButtonBox::ActionRole);
    copy->setToolTip(QStringLiteral("Copy the drilldown dataset to the clipboard."));
    connect(copy, &QPushButton::clicked, this, &DrilldownDialog::onClickedClipboard);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(rows));
    layout->addWidget(m_view);
    layout->addWidget(buttons);
    keepGeometry(*this, &Settings::drilldownWindowGeometry, &Settings::setDrilldownWindowGeometry, firstSize);
    m_view->setFocus();
}

void DrilldownDialog::onClickedClipboard()
{
    TableClipboard::copyConfirmed(m_prompts, m_view->table().dataset());
}
