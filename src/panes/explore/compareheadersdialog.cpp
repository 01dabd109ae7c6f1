#include "panes/explore/compareheadersdialog.h"

#include "data/dataset.h"
#include "data/values.h"
#include "graph/node.h"
#include "panes/explore/exploreditems.h"
#include "panes/explore/explorehelp.h"
#include "panes/explore/namescomparison.h"
#include "panes/widgets/colorbutton.h"
#include "panes/widgets/keptgeometry.h"
#include "panes/widgets/textcolor.h"
#include "panes/widgets/tips.h"
#include "settings/settingkey.h"
#include "settings/settings.h"
#include "settings/settingsnotifier.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(800, 550);
constexpr int longestText = 1000;
constexpr int leastColumnChars = 18;
constexpr int mostColumnChars = 60;

} // namespace

CompareHeadersDialog::CompareHeadersDialog(ExploredItems &items, const QList<int> &itemIds, QWidget *parent)
    : QDialog(parent)
    , m_items(items)
    , m_itemIds(itemIds)
    , m_by(new QComboBox)
    , m_show(new QComboBox)
    , m_color(new ColorButton)
    , m_differences(new QLabel)
    , m_note(new QLabel)
    , m_table(new QTableWidget)
{
    setWindowTitle(QStringLiteral("Compare Headers"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto *layout = new QVBoxLayout(this);
    addChoices();
    m_table->setAccessibleName(QStringLiteral("Headers"));
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    layout->addWidget(m_table, 1);
    m_note->setTextFormat(Qt::PlainText);
    m_note->setWordWrap(true);
    layout->addWidget(m_note);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    ExploreHelp::add(*this, *buttons, QStringLiteral("Compare_headers"));
    auto *bottom = new QHBoxLayout;
    auto *label = new QLabel(QStringLiteral("Column differences:"));
    m_differences->setAccessibleName(label->text());
    bottom->addWidget(label);
    bottom->addWidget(m_differences);
    bottom->addWidget(buttons, 1);
    layout->addLayout(bottom);
    connectChoices();
    keepGeometry(*this, &Settings::compareHeadersWindowGeometry, &Settings::setCompareHeadersWindowGeometry, firstSize);
    rebuild();
    m_table->resizeColumnsToContents();
    for (int column = 0; column < m_table->columnCount(); ++column) {
        const int width = fontMetrics().averageCharWidth();
        m_table->setColumnWidth(
            column, qBound(leastColumnChars * width, m_table->columnWidth(column), mostColumnChars * width));
    }
    m_table->setFocus();
}

void CompareHeadersDialog::addChoices()
{
    const Settings &settings = Settings::current();
    m_by->addItems({QStringLiteral("Column name"), QStringLiteral("Column index")});
    m_by->setCurrentIndex(static_cast<int>(settings.compareHeadersByIndex()));
    m_by->setToolTip(QStringLiteral("Whether to compare headers by column name or column index (position)."));
    m_show->addItems({QStringLiteral("All"), QStringLiteral("Only matches"), QStringLiteral("Only differences")});
    m_show->setCurrentIndex(static_cast<int>(settings.compareHeadersShowIndex()));
    m_show->setToolTip(QStringLiteral("Choose which columns to show."));
    m_color->setColor(settings.changedDataColor());
    m_color->setToolTip(QStringLiteral("The color to show differences in."));
    auto *row = new QHBoxLayout;
    const auto addLabelled = [row](const QString &text, QWidget *widget) {
        auto *label = new QLabel(text);
        label->setBuddy(widget);
        widget->setAccessibleName(QString(text).remove(QLatin1Char('&')));
        row->addWidget(label);
        row->addWidget(widget);
    };
    addLabelled(QStringLiteral("Compare headers &by:"), m_by);
    row->addSpacing(fontMetrics().averageCharWidth() * 2);
    addLabelled(QStringLiteral("&Show:"), m_show);
    row->addStretch(1);
    addLabelled(QStringLiteral("&Color:"), m_color);
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
}

void CompareHeadersDialog::connectChoices()
{
    connect(m_by, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &CompareHeadersDialog::onChangeCompareBy);
    connect(m_show, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &CompareHeadersDialog::onChangeShow);
    connect(m_color, &ColorButton::colorChosen, this, &CompareHeadersDialog::onChangeColor);
    connect(&m_items, &ExploredItems::changed, this, &CompareHeadersDialog::rebuild);
    connect(&Settings::current().notifier(), &SettingsNotifier::changed, this, [this](const QString &key) {
        if (key == SettingKey::changedDataColor) {
            m_color->setColor(Settings::current().changedDataColor());
            rebuild();
        }
    });
}

QVector<QStringList> CompareHeadersDialog::readItems()
{
    QVector<QStringList> names;
    QStringList notes;
    for (const int id : qAsConst(m_itemIds)) {
        const Node *node = m_items.node(id);
        names.append(node ? node->datasetConst().columnNames() : QStringList());
        if (!node) {
            notes.append(QStringLiteral("The item with Id=%1 has been deleted.").arg(id));
        } else if (names.constLast().isEmpty()) {
            notes.append(
                node->hasRun()
                    ? QStringLiteral("%1 has no columns.").arg(ExploredItems::label(*node))
                    : QStringLiteral("%1 has no data yet. Run it to compare it.").arg(ExploredItems::label(*node)));
        }
    }
    m_note->setText(notes.join(QLatin1Char('\n')));
    m_note->setVisible(!notes.isEmpty());
    return names;
}

void CompareHeadersDialog::rebuild()
{
    if (m_items.isRunning()) {
        return;
    }
    const auto pairing = static_cast<HeaderPairing>(m_by->currentIndex());
    const NamesComparison comparison(readItems(), pairing);
    const QVector<NamesComparison::Row> rows = comparison.rows(static_cast<ComparedPairs>(m_show->currentIndex()));
    m_table->setUpdatesEnabled(false);
    setHeaders(pairing == HeaderPairing::ColumnName);
    m_table->setRowCount(0);
    m_table->setRowCount(rows.size() + 1);
    for (int row = 0; row < rows.size(); ++row) {
        addRow(row, rows.at(row).title, rows.at(row).cells, rows.at(row).isDifferent);
    }
    const NamesComparison::Row &counts = comparison.columnCounts();
    addRow(rows.size(), counts.title, counts.cells, counts.isDifferent);
    m_table->setUpdatesEnabled(true);
    m_differences->setText(formatInteger(comparison.differenceCount(), true));
}

void CompareHeadersDialog::setHeaders(bool byName)
{
    m_table->setColumnCount(m_itemIds.size() + 1);
    setHeader(0, byName ? QStringLiteral("Column Name") : QStringLiteral("Column Index"),
        byName ? QStringLiteral("The column names in all items, in alphabetical order.")
               : QStringLiteral("The column index in all items."));
    for (int item = 0; item < m_itemIds.size(); ++item) {
        const Node *node = m_items.node(m_itemIds.at(item));
        const QString name = node ? ellipsized(node->name(), longestText) : QStringLiteral("deleted item");
        const QString id = QString::number(m_itemIds.at(item));
        setHeader(item + 1,
            (byName ? QStringLiteral("Index(es) in '%1', Id=%2") : QStringLiteral("Name in '%1', Id=%2")).arg(name, id),
            (byName ? QStringLiteral("Index(es) of the named column in item '%1'.")
                    : QStringLiteral("The name of the column at this index in '%1'."))
                .arg(name));
    }
}

void CompareHeadersDialog::setHeader(int column, const QString &text, const QString &tip)
{
    auto *item = new QTableWidgetItem(text);
    item->setToolTip(Tips::plain(tip));
    item->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->setHorizontalHeaderItem(column, item);
}

void CompareHeadersDialog::addRow(int row, const QString &title, const QStringList &cells, bool isDifferent)
{
    const QColor color = m_color->color();
    const QStringList texts = QStringList(title) + cells;
    for (int column = 0; column < texts.size(); ++column) {
        auto *item = new QTableWidgetItem(ellipsized(texts.at(column), longestText));
        item->setToolTip(Tips::plain(item->text()));
        if (isDifferent) {
            item->setBackground(color);
            item->setForeground(textColorOn(color));
        }
        m_table->setItem(row, column, item);
    }
}

void CompareHeadersDialog::onChangeCompareBy(int index)
{
    Settings::current().setCompareHeadersByIndex(static_cast<HeaderPairing>(index));
    rebuild();
}

void CompareHeadersDialog::onChangeShow(int index)
{
    Settings::current().setCompareHeadersShowIndex(static_cast<ComparedPairs>(index));
    rebuild();
}

void CompareHeadersDialog::onChangeColor(const QColor &color)
{
    Settings::current().setChangedDataColor(color);
}
