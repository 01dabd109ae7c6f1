#include "panes/dialogs/openrecentdialog.h"

#include "settings/settings.h"

#include <QComboBox>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

enum Column { Name, Location, LastModified, ColumnCount };

constexpr QSize firstSize(760, 420);
constexpr int firstWidths[ColumnCount] = {200, 340, 160};

/// A time that sorts by itself and not by its text.
class TimeItem : public QTableWidgetItem
{
public:
    explicit TimeItem(const QDateTime &time)
        : QTableWidgetItem(QLocale().toString(time, QLocale::ShortFormat))
        , m_time(time)
    {
    }
    bool operator<(const QTableWidgetItem &other) const override
    {
        return m_time < static_cast<const TimeItem &>(other).m_time;
    }

private:
    const QDateTime m_time;
};

int daysOf(RecentFilter filter)
{
    return filter == RecentFilter::LastWeek ? 7 : filter == RecentFilter::LastMonth ? 30 : INT_MAX;
}

} // namespace

OpenRecentDialog::OpenRecentDialog(const QStringList &paths, QWidget *parent)
    : QDialog(parent)
    , m_paths(paths)
    , m_table(new QTableWidget(0, ColumnCount))
    , m_filter(makeFilter())
{
    setWindowTitle(QStringLiteral("Open Recent"));
    m_table->setHorizontalHeaderLabels(
        {QStringLiteral("Name"), QStringLiteral("Location"), QStringLiteral("Last Modified")});
    m_table->setAccessibleName(QStringLiteral("Recent documents"));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTextElideMode(Qt::ElideMiddle);
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    auto *hint = new QLabel(QStringLiteral(
        "Double click on a file to open. Or select and click 'OK'.\n\nClick on a column heading to sort."));
    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("&Show:"), m_filter);
    form->addRow(QStringLiteral("&At start-up:"), makeStartChoice());
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QPushButton *ok = buttons->button(QDialogButtonBox::Ok);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addWidget(m_table);
    layout->addLayout(form);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_table, &QTableWidget::itemDoubleClicked, this, &QDialog::accept);
    connect(m_table, &QTableWidget::itemSelectionChanged, this, [this, ok] { ok->setEnabled(!path().isEmpty()); });
    ok->setEnabled(false);
    fillTable();
    const Settings &settings = Settings::current();
    const int widths[] = {
        settings.openRecentColWidth0(), settings.openRecentColWidth1(), settings.openRecentColWidth2()};
    for (int column = 0; column < ColumnCount; ++column) {
        m_table->setColumnWidth(column, widths[column] > 0 ? widths[column] : firstWidths[column]);
    }
    if (!restoreGeometry(settings.openRecentWindowGeometry())) {
        resize(firstSize);
    }
    m_table->setFocus();
}

OpenRecentDialog::~OpenRecentDialog()
{
    Settings &settings = Settings::current();
    settings.setOpenRecentColWidth0(m_table->columnWidth(Name));
    settings.setOpenRecentColWidth1(m_table->columnWidth(Location));
    settings.setOpenRecentColWidth2(m_table->columnWidth(LastModified));
    settings.setOpenRecentWindowGeometry(saveGeometry());
}

QComboBox *OpenRecentDialog::makeFilter()
{
    auto *combo = new QComboBox;
    combo->setToolTip(QStringLiteral("Filter files by how long ago they were last modified"));
    combo->addItem(QStringLiteral("Modified in last 7days"), static_cast<int>(RecentFilter::LastWeek));
    combo->addItem(QStringLiteral("Modified in last 30 days"), static_cast<int>(RecentFilter::LastMonth));
    combo->addItem(QStringLiteral("All"), static_cast<int>(RecentFilter::All));
    combo->setCurrentIndex(combo->findData(static_cast<int>(Settings::current().openRecentFilter())));
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, combo] {
        Settings::current().setOpenRecentFilter(static_cast<RecentFilter>(combo->currentData().toInt()));
        fillTable();
    });
    return combo;
}

QComboBox *OpenRecentDialog::makeStartChoice()
{
    auto *combo = new QComboBox;
    combo->setToolTip(QStringLiteral("File opening behavior at start-up."));
    combo->addItems({QStringLiteral("Don't open anything"), QStringLiteral("Open previous"),
        QStringLiteral("Show 'Open Recent' window"), QStringLiteral("Show this window")});
    combo->setCurrentIndex(static_cast<int>(Settings::current().openPreviousAtStart()));
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        [](int index) { Settings::current().setOpenPreviousAtStart(static_cast<StartChoice>(index)); });
    return combo;
}

void OpenRecentDialog::fillTable()
{
    m_table->setSortingEnabled(false);
    m_table->setRowCount(0);
    const QDateTime now = QDateTime::currentDateTime();
    const int days = daysOf(Settings::current().openRecentFilter());
    for (const QString &path : m_paths) {
        const QFileInfo info(path);
        if (!info.isFile() || info.lastModified().daysTo(now) > days) {
            continue;
        }
        const int row = m_table->rowCount();
        m_table->insertRow(row);
        auto *name = new QTableWidgetItem(info.fileName());
        name->setData(Qt::UserRole, path);
        name->setToolTip(QDir::toNativeSeparators(path));
        m_table->setItem(row, Name, name);
        m_table->setItem(row, Location, new QTableWidgetItem(QDir::toNativeSeparators(info.absolutePath())));
        m_table->setItem(row, LastModified, new TimeItem(info.lastModified()));
    }
    // In the order of the list, newest first, until a heading is clicked.
    m_table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    m_table->setSortingEnabled(true);
    if (m_table->rowCount() > 0) {
        m_table->selectRow(0);
    }
}

QString OpenRecentDialog::path() const
{
    const QList<QTableWidgetItem *> selected = m_table->selectedItems();
    return selected.isEmpty() ? QString() : m_table->item(selected.first()->row(), Name)->data(Qt::UserRole).toString();
}
