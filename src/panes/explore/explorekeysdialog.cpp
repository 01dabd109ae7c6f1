#include "panes/explore/explorekeysdialog.h"

#include "data/values.h"
#include "panes/explore/explorehelp.h"
#include "panes/widgets/elidedlabel.h"
#include "panes/widgets/keptgeometry.h"
#include "panes/widgets/numericsortabletablewidgetitem.h"
#include "panes/widgets/tips.h"
#include "settings/settings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(850, 550);
constexpr int longestText = 1000;
constexpr int countChars = 20; ///< wide enough for the headers
/// A table of items takes memory and time for each.
constexpr int mostShown = 100000;

} // namespace

ExploreKeysDialog::ExploreKeysDialog(const Source &top, const Source &bottom, bool caseSensitive, QWidget *parent)
    : QDialog(parent)
    , m_keys(top.table, top.column, bottom.table, bottom.column, caseSensitive)
    , m_show(new QComboBox)
    , m_duplicates(new QCheckBox(QStringLiteral("show &duplicates")))
{
    setWindowTitle(QStringLiteral("Explore Keys"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    const Settings &settings = Settings::current();
    auto *label = new QLabel(QStringLiteral("&Show:"));
    label->setBuddy(m_show);
    m_show->addItems(
        {QStringLiteral("All keys"), QStringLiteral("Only matching keys"), QStringLiteral("Only non-matching keys")});
    m_show->setAccessibleName(QStringLiteral("Show:"));
    m_show->setToolTip(QStringLiteral("Choose which keys to show: a key matches if both datasets have it."));
    m_show->setCurrentIndex(static_cast<int>(settings.exploreKeysWindowIndex()));
    m_duplicates->setToolTip(QStringLiteral("Check to show keys that are in more than one row of the dataset."));
    m_duplicates->setChecked(settings.exploreKeysShowDuplicates());
    auto *choices = new QHBoxLayout;
    choices->addWidget(label);
    choices->addWidget(m_show);
    choices->addWidget(m_duplicates);
    choices->addStretch(1);
    auto *lists = new QSplitter;
    lists->addWidget(makeList(KeyOverlap::Top, top.label));
    lists->addWidget(makeList(KeyOverlap::Bottom, bottom.label));
    lists->setChildrenCollapsible(false);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    ExploreHelp::add(*this, *buttons, QStringLiteral("Explore_keys"));
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(choices);
    layout->addWidget(lists, 1);
    layout->addWidget(buttons);
    keepGeometry(*this, &Settings::exploreKeysWindowGeometry, &Settings::setExploreKeysWindowGeometry, firstSize);
    onUpdateResults();
    connect(m_show, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ExploreKeysDialog::onUpdateResults);
    connect(m_duplicates, &QCheckBox::toggled, this, &ExploreKeysDialog::onToggleDuplicates);
    m_show->setFocus();
}

QWidget *ExploreKeysDialog::makeList(KeyOverlap::Side side, const QString &label)
{
    const bool isTop = side == KeyOverlap::Top;
    const QString name = isTop ? QStringLiteral("Top") : QStringLiteral("Bottom");
    const QString other = isTop ? QStringLiteral("bottom") : QStringLiteral("top");
    auto *title = new ElidedLabel;
    title->setWholeText(QStringLiteral("%1: %2").arg(name, label));
    title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *figures = new QLabel(figuresText(side));
    figures->setWordWrap(true);
    List &list = m_lists[side];
    list.table = new QTableWidget(0, 3);
    list.table->setAccessibleName(QStringLiteral("%1 keys").arg(name));
    list.table->setHorizontalHeaderLabels(
        {QStringLiteral("Key"), QStringLiteral("Rows"), QStringLiteral("Rows in %1").arg(other)});
    const QString tips[] = {QStringLiteral("The value in the key column."),
        QStringLiteral("The number of rows of this dataset with the key."),
        QStringLiteral("The number of rows of the %1 dataset with the key.").arg(other)};
    for (int column = 0; column < list.table->columnCount(); ++column) {
        list.table->horizontalHeaderItem(column)->setToolTip(
            tips[column] + QStringLiteral("\nClick header to sort by this column."));
        list.table->setColumnWidth(column, fontMetrics().averageCharWidth() * countChars);
    }
    list.table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list.table->setSelectionBehavior(QAbstractItemView::SelectRows);
    list.table->setTabKeyNavigation(false);
    list.table->setWordWrap(false);
    list.table->verticalHeader()->hide();
    list.table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    // Keys stand in the order of their rows until a person sorts them.
    list.table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    list.note = new QLabel;
    list.note->setWordWrap(true);
    auto *widget = new QWidget;
    auto *layout = new QVBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(title);
    layout->addWidget(figures);
    layout->addWidget(list.table, 1);
    layout->addWidget(list.note);
    return widget;
}

QString ExploreKeysDialog::figuresText(KeyOverlap::Side side) const
{
    const KeyOverlap::Figures &figures = m_keys.figures(side);
    const auto count = [](int number, const QString &one, const QString &many) {
        return QStringLiteral("%1 %2").arg(formatInteger(number, true), number == 1 ? one : many);
    };
    return QStringLiteral("%1 with %2: %3 matching, %4 non-matching, %5")
        .arg(count(figures.rows, QStringLiteral("row"), QStringLiteral("rows")),
            count(figures.keys, QStringLiteral("different key"), QStringLiteral("different keys")),
            formatInteger(figures.matching, true), formatInteger(figures.keys - figures.matching, true),
            count(figures.duplicates, QStringLiteral("duplicate"), QStringLiteral("duplicates")));
}

void ExploreKeysDialog::fill(KeyOverlap::Side side)
{
    const QVector<int> keys = m_keys.keys(
        side, static_cast<ExploredKeys>(m_show->currentIndex()), m_duplicates->isChecked());
    const KeyOverlap::Side other = side == KeyOverlap::Top ? KeyOverlap::Bottom : KeyOverlap::Top;
    const int shown = qMin(keys.size(), mostShown);
    QTableWidget &table = *m_lists[side].table;
    table.setUpdatesEnabled(false);
    table.setSortingEnabled(false);
    table.setRowCount(0);
    table.setRowCount(shown);
    for (int row = 0; row < shown; ++row) {
        const int key = keys.at(row);
        auto *text = new QTableWidgetItem(ellipsized(m_keys.text(key, side), longestText));
        text->setToolTip(Tips::plain(ellipsized(text->text(), 100)));
        table.setItem(row, 0, text);
        table.setItem(row, 1, new NumericSortableTableWidgetItem(m_keys.count(key, side)));
        table.setItem(row, 2, new NumericSortableTableWidgetItem(m_keys.count(key, other)));
    }
    table.setSortingEnabled(true);
    table.setUpdatesEnabled(true);
    const QString all = formatInteger(keys.size(), true);
    m_lists[side].note->setText(keys.isEmpty() ? QStringLiteral("No keys to show")
                                : shown == keys.size()
                                    ? (shown == 1 ? QStringLiteral("1 key") : QStringLiteral("%1 keys").arg(all))
                                    : QStringLiteral("The first %1 of %2 keys").arg(formatInteger(shown, true), all));
}

void ExploreKeysDialog::onUpdateResults()
{
    Settings::current().setExploreKeysWindowIndex(static_cast<ExploredKeys>(m_show->currentIndex()));
    fill(KeyOverlap::Top);
    fill(KeyOverlap::Bottom);
}

void ExploreKeysDialog::onToggleDuplicates(bool on)
{
    Settings::current().setExploreKeysShowDuplicates(on);
    onUpdateResults();
}
