#include "panes/explore/finditemsdialog.h"

#include "data/values.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "panes/dialogs/helphook.h"
#include "panes/widgets/keptgeometry.h"
#include "settings/settings.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int checksAcross = 3;

} // namespace

FindItemsDialog::FindItemsDialog(
    SceneGetter scene, std::function<void(Node &)> showItem, std::function<void()> zoom, QWidget *parent)
    : QDialog(parent)
    , m_scene(std::move(scene))
    , m_showItem(std::move(showItem))
    , m_zoom(std::move(zoom))
    , m_text(new QLineEdit(Settings::current().findText()))
    , m_join(new QComboBox)
    , m_case(new QCheckBox(QStringLiteral("case sensitive")))
    , m_zoomSelected(new QCheckBox(QStringLiteral("zoom selected")))
    , m_result(new QLabel)
{
    setWindowTitle(QStringLiteral("Find Items"));
    HelpHook::setHelpPage(*this, QStringLiteral("Find_items"));
    m_text->setClearButtonEnabled(true);
    m_text->setPlaceholderText(QStringLiteral("Search terms"));
    m_text->setToolTip(QStringLiteral("One or more search terms, parted by blanks. Put a term in double quotes to have "
                                      "blanks in it."));
    m_text->setAccessibleName(QStringLiteral("Find:"));
    m_join->addItems({QStringLiteral("Matching all"), QStringLiteral("Matching any")});
    m_join->setCurrentIndex(static_cast<int>(Settings::current().findAllAny()));
    m_join->setToolTip(QStringLiteral("Whether an item must match all of the search terms or any of them."));
    m_join->setAccessibleName(QStringLiteral("Matching"));
    m_case->setChecked(Settings::current().findCaseSenstive());
    m_case->setToolTip(QStringLiteral("Check to tell capital letters from small ones."));
    m_zoomSelected->setChecked(Settings::current().findZoomSelected());
    m_zoomSelected->setToolTip(QStringLiteral("Check to zoom to the items that are selected."));
    m_result->setTextFormat(Qt::PlainText);
    m_result->setWordWrap(true);
    m_result->setAccessibleName(QStringLiteral("Result"));

    auto *top = new QHBoxLayout;
    auto *label = new QLabel(m_text->accessibleName());
    label->setBuddy(m_text);
    top->addWidget(label);
    top->addWidget(m_text, 1);
    top->addWidget(m_join);
    auto *switches = new QHBoxLayout;
    switches->addWidget(m_case);
    switches->addWidget(m_zoomSelected);
    switches->addStretch(1);
    auto *buttons = new QHBoxLayout;
    for (QPushButton *button : {addButton("Select &All", &FindItemsDialog::onSelectAll),
             addButton("Select &Next", &FindItemsDialog::onSelectNext),
             addButton("Select &Previous", &FindItemsDialog::onSelectPrev)}) {
        buttons->addWidget(button);
    }
    m_buttons.at(1)->setDefault(true);
    buttons->addStretch(1);
    auto *close = new QPushButton(QStringLiteral("&Close"));
    close->setAutoDefault(false);
    buttons->addWidget(close);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(makePlaces());
    layout->addWidget(makeKinds());
    layout->addLayout(switches);
    layout->addWidget(m_result, 1);
    layout->addLayout(buttons);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_text, &QLineEdit::textChanged, this, &FindItemsDialog::onUpdateButtons);
    connect(m_join, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &FindItemsDialog::onUpdateButtons);
    connect(m_case, &QCheckBox::toggled, this, &FindItemsDialog::onUpdateButtons);
    keepGeometry(*this, &Settings::findItemsWindowGeometry, &Settings::setFindItemsWindowGeometry);
    connect(this, &QDialog::finished, this, &FindItemsDialog::storeChoices);
    onUpdateButtons();
}

void FindItemsDialog::open()
{
    show();
    raise();
    activateWindow();
    m_text->setFocus();
    m_text->selectAll();
    onUpdateButtons();
}

void FindItemsDialog::addCheck(QGridLayout &grid, QVector<Check> &checks, const char *text, int flag,
    bool (Settings::*read)() const, void (Settings::*store)(const bool &), const QString &tip)
{
    auto *box = new QCheckBox(QString::fromLatin1(text));
    box->setChecked((Settings::current().*read)());
    box->setToolTip(tip);
    grid.addWidget(box, checks.size() / checksAcross, checks.size() % checksAcross);
    checks.append({box, flag, store});
    connect(box, &QCheckBox::toggled, this, &FindItemsDialog::onUpdateButtons);
}

QWidget *FindItemsDialog::makePlaces()
{
    using S = Settings;
    auto *group = new QGroupBox(QStringLiteral("In"));
    auto *grid = new QGridLayout(group);
    addCheck(*grid, m_places, "names", ItemSearch::Names, &S::findInNames, &S::setFindInNames);
    addCheck(*grid, m_places, "ids", ItemSearch::Ids, &S::findInIds, &S::setFindInIds,
        QStringLiteral("E.g. '7' matches '7', '17' and '71'."));
    addCheck(*grid, m_places, "comments", ItemSearch::Comments, &S::findInComments, &S::setFindInComments);
    addCheck(*grid, m_places, "option values", ItemSearch::OptionValues, &S::findInOptions, &S::setFindInOptions,
        QStringLiteral("The values shown in the 'Details' tab."));
    addCheck(*grid, m_places, "column names", ItemSearch::ColumnNames, &S::findInColNames, &S::setFindInColNames);
    addCheck(*grid, m_places, "data values (slow)", ItemSearch::DataValues, &S::findInData, &S::setFindInData);
    return group;
}

QWidget *FindItemsDialog::makeKinds()
{
    using S = Settings;
    auto *group = new QGroupBox(QStringLiteral("Of"));
    auto *grid = new QGridLayout(group);
    addCheck(*grid, m_kinds, "Inputs", ItemSearch::Inputs, &S::findOfInputs, &S::setFindOfInputs);
    addCheck(*grid, m_kinds, "Transforms", ItemSearch::Transforms, &S::findOfTransforms, &S::setFindOfTransforms);
    addCheck(*grid, m_kinds, "Outputs", ItemSearch::Outputs, &S::findOfOutputs, &S::setFindOfOutputs);
    addCheck(*grid, m_kinds, "Charts", ItemSearch::Charts, &S::findOfCharts, &S::setFindOfCharts);
    addCheck(*grid, m_kinds, "Notes", ItemSearch::Notes, &S::findOfNotes, &S::setFindOfNotes);
    return group;
}

QPushButton *FindItemsDialog::addButton(const char *text, void (FindItemsDialog::*action)())
{
    auto *button = new QPushButton(QString::fromLatin1(text));
    button->setAutoDefault(false);
    m_buttons.append(button);
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

ItemSearch FindItemsDialog::search() const
{
    ItemSearch search;
    search.terms = ItemSearch::termsOf(m_text->text());
    search.join = static_cast<SearchJoin>(m_join->currentIndex());
    search.sensitivity = m_case->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive;
    for (const Check &check : m_places) {
        search.places.setFlag(static_cast<ItemSearch::Place>(check.flag), check.box->isChecked());
    }
    for (const Check &check : m_kinds) {
        search.kinds.setFlag(static_cast<ItemSearch::Kind>(check.flag), check.box->isChecked());
    }
    return search;
}

QString FindItemsDialog::wordsOf(const ItemSearch &search) const
{
    QStringList terms;
    for (const QString &term : search.terms) {
        terms.append(QStringLiteral("'%1'").arg(term));
    }
    QStringList places;
    for (const Check &check : m_places) {
        if (check.box->isChecked()) {
            places.append(check.box->text().section(QStringLiteral(" ("), 0, 0));
        }
    }
    const QString joint = search.join == SearchJoin::All ? QStringLiteral(" AND ") : QStringLiteral(" OR ");
    return terms.join(joint) + QStringLiteral(" IN ") + places.join(QStringLiteral(", "));
}

void FindItemsDialog::onUpdateButtons()
{
    const ItemSearch wanted = search();
    const bool isReady = !wanted.terms.isEmpty() && wanted.places && wanted.kinds;
    m_result->setText(wanted.terms.isEmpty() ? QStringLiteral("Type one or more search terms")
                      : !wanted.places       ? QStringLiteral("Choose what to search in")
                      : !wanted.kinds        ? QStringLiteral("Choose type(s) of item to search")
                                             : QStringLiteral("Find items matching %1").arg(wordsOf(wanted)));
    for (QPushButton *button : qAsConst(m_buttons)) {
        button->setEnabled(isReady);
    }
}

QList<Node *> FindItemsDialog::find(const ItemSearch &wanted) const
{
    if (m_scene().isProcessing()) {
        m_result->setText(QStringLiteral("Wait until the run has ended"));
        return {};
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const QList<Node *> found = m_scene().nodesMatching(wanted);
    QApplication::restoreOverrideCursor();
    if (found.isEmpty()) {
        m_result->setText(QStringLiteral("No items matching %1").arg(wordsOf(wanted)));
    }
    return found;
}

void FindItemsDialog::select(const QList<Node *> &nodes, Node *shown)
{
    m_scene().clearSelection();
    for (Node *node : nodes) {
        node->setSelected(true);
    }
    if (m_zoomSelected->isChecked()) {
        m_zoom();
    } else {
        m_showItem(*shown);
    }
}

void FindItemsDialog::onSelectAll()
{
    const ItemSearch wanted = search();
    const QList<Node *> found = find(wanted);
    if (found.isEmpty()) {
        return;
    }
    select(found, found.first());
    m_result->setText(
        QStringLiteral("Selected %1 item(s) matching %2").arg(formatInteger(found.size(), true), wordsOf(wanted)));
}

void FindItemsDialog::step(int direction)
{
    const ItemSearch wanted = search();
    const QList<Node *> found = find(wanted);
    if (found.isEmpty()) {
        return;
    }
    // From the one item that is selected; from an end where that is none of them.
    const QList<Node *> selected = m_scene().nodes(true);
    const int present = selected.size() == 1 ? found.indexOf(selected.first()) : -1;
    const int first = direction > 0 ? 0 : found.size() - 1;
    const int next = present < 0 ? first : (present + direction + found.size()) % found.size();
    select({found.at(next)}, found.at(next));
    m_result->setText(QStringLiteral("Selected item %1 of %2 item(s) matching %3")
                          .arg(formatInteger(next + 1, true), formatInteger(found.size(), true), wordsOf(wanted)));
}

void FindItemsDialog::storeChoices() const
{
    Settings &settings = Settings::current();
    settings.setFindText(m_text->text());
    settings.setFindAllAny(static_cast<SearchJoin>(m_join->currentIndex()));
    settings.setFindCaseSenstive(m_case->isChecked());
    settings.setFindZoomSelected(m_zoomSelected->isChecked());
    for (const QVector<Check> &checks : {m_places, m_kinds}) {
        for (const Check &check : checks) {
            (settings.*check.store)(check.box->isChecked());
        }
    }
}
