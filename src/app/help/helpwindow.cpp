#include "app/help/helpwindow.h"

#include "app/help/helpbrowser.h"
#include "app/help/helppages.h"
#include "panes/icons.h"
#include "settings/product.h"
#include "settings/settings.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWindow>

namespace {

constexpr QSize firstSize(1000, 720);
constexpr int sideWidth = 260;
constexpr int pageRole = Qt::UserRole;

const QString home = QStringLiteral("Introduction");

} // namespace

HelpWindow::HelpWindow()
    : QWidget(nullptr, Qt::Window)
    , m_tools(new QToolBar)
    , m_search(new QLineEdit)
    , m_side(new QStackedWidget)
    , m_contents(new QTreeWidget)
    , m_hits(new QListWidget)
    , m_browser(new HelpBrowser)
{
    setObjectName(QStringLiteral("m_helpWindow"));
    // Without the main window the program ends, whatever is being read.
    setAttribute(Qt::WA_QuitOnClose, false);
    buildTools();
    buildSide();
    auto *side = new QWidget;
    auto *sideLayout = new QVBoxLayout(side);
    sideLayout->setContentsMargins(0, 0, 0, 0);
    sideLayout->addWidget(m_search);
    sideLayout->addWidget(m_side);
    auto *splitter = new QSplitter;
    splitter->addWidget(side);
    splitter->addWidget(m_browser);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    splitter->setSizes({sideWidth, firstSize.width() - sideWidth});
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tools);
    layout->addWidget(splitter, 1);
    connect(m_browser, &QTextBrowser::sourceChanged, this, &HelpWindow::onPageChanged);
    connect(m_browser, &HelpBrowser::searchRequested, m_search, &QLineEdit::setText);
    connectKeys();
}

void HelpWindow::buildTools()
{
    m_tools->setAccessibleName(QStringLiteral("Help tool bar"));
    m_tools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [this](const char *text, QStyle::StandardPixmap icon, const QKeySequence &keys, const char *tip) {
        QAction *action = m_tools->addAction(style()->standardIcon(icon), QString::fromLatin1(text));
        action->setShortcut(keys);
        action->setToolTip(QString::fromLatin1(tip).arg(keys.toString(QKeySequence::NativeText)));
        return action;
    };
    QAction *back = add("Back", QStyle::SP_ArrowBack, Qt::ALT + Qt::Key_Left, "Go back to the page before. (%1)");
    QAction *forward = add("Forward", QStyle::SP_ArrowForward, Qt::ALT + Qt::Key_Right, "Go forward again. (%1)");
    QAction *toHome = add("Home", QStyle::SP_DirHomeIcon, Qt::ALT + Qt::Key_Home, "Go to the introduction. (%1)");
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QAction::triggered, m_browser, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, m_browser, &QTextBrowser::forward);
    connect(toHome, &QAction::triggered, m_browser, [this] { m_browser->showPage(home); });
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

void HelpWindow::buildSide()
{
    m_search->setPlaceholderText(QStringLiteral("Search the help"));
    m_search->setAccessibleName(QStringLiteral("Search the help"));
    m_search->setToolTip(QStringLiteral("Type one or more words to find the pages that have all of them. (%1)")
                             .arg(QKeySequence(QKeySequence::Find).toString(QKeySequence::NativeText)));
    m_search->setClearButtonEnabled(true);
    m_contents->setAccessibleName(QStringLiteral("Contents"));
    m_contents->setHeaderHidden(true);
    m_hits->setAccessibleName(QStringLiteral("Search results"));
    m_hits->setWordWrap(true);
    m_hits->setSpacing(2);
    m_side->addWidget(m_contents);
    m_side->addWidget(m_hits);
    for (const HelpSection &section : HelpPages::contents()) {
        addSection(section, m_contents->invisibleRootItem());
    }
    connect(m_search, &QLineEdit::textChanged, this, &HelpWindow::onSearchEdited);
    connect(m_hits, &QListWidget::currentRowChanged, this, &HelpWindow::onHitChosen);
    connect(m_contents, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem *item) {
        const QString page = item ? item->data(0, pageRole).toString() : QString();
        if (!page.isEmpty() && page != m_browser->page()) {
            m_browser->showPage(page);
        }
    });
}

void HelpWindow::addSection(const HelpSection &section, QTreeWidgetItem *parent)
{
    auto *item = new QTreeWidgetItem(parent, {section.title});
    for (const QString &page : section.pages) {
        auto *leaf = new QTreeWidgetItem(item, {HelpPages::title(page)});
        leaf->setData(0, pageRole, page);
    }
    for (const HelpSection &inner : section.sections) {
        addSection(inner, item);
    }
    item->setExpanded(parent == m_contents->invisibleRootItem() && section.sections.isEmpty());
}

void HelpWindow::connectKeys()
{
    auto *find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, &HelpWindow::focusSearch);
    auto *larger = new QShortcut(QKeySequence::ZoomIn, this);
    connect(larger, &QShortcut::activated, m_browser, [this] { m_browser->zoomBy(1); });
    auto *smaller = new QShortcut(QKeySequence::ZoomOut, this);
    connect(smaller, &QShortcut::activated, m_browser, [this] { m_browser->zoomBy(-1); });
    auto *normal = new QShortcut(Qt::CTRL + Qt::Key_0, this);
    connect(normal, &QShortcut::activated, m_browser, &HelpBrowser::zoomToNormal);
    connect(m_search, &QLineEdit::returnPressed, this, [this] {
        if (m_hits->count() > 0) {
            m_hits->setCurrentRow(qMax(0, m_hits->currentRow()));
            m_hits->setFocus();
        }
    });
}

void HelpWindow::showPage(const QString &page, QWidget *over)
{
    m_search->clear();
    m_browser->showPage(page.isEmpty() ? home : page);
    winId();
    QWidget *modal = QApplication::activeModalWidget();
    QWindow *owner = modal ? modal->windowHandle() : nullptr;
    if (windowHandle()->transientParent() != owner) {
        hide();
        windowHandle()->setTransientParent(owner);
    }
    if (!isVisible()) {
        restorePlace(over);
    }
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    m_browser->setFocus();
}

void HelpWindow::focusSearch()
{
    m_search->setFocus();
    m_search->selectAll();
}

void HelpWindow::onSearchEdited()
{
    const QStringList words = HelpSearch::words(m_search->text());
    const QSignalBlocker blocker(m_hits);
    m_hits->clear();
    for (const HelpHit &hit : m_index.find(words)) {
        auto *item = new QListWidgetItem(
            hit.excerpt.isEmpty() ? hit.title : hit.title + QLatin1Char('\n') + hit.excerpt);
        item->setData(pageRole, hit.page);
        m_hits->addItem(item);
    }
    if (!words.isEmpty() && m_hits->count() == 0) {
        auto *item = new QListWidgetItem(QStringLiteral("No page has all of these words. Try fewer or shorter ones."));
        item->setFlags(Qt::NoItemFlags);
        m_hits->addItem(item);
    }
    m_side->setCurrentWidget(words.isEmpty() ? static_cast<QWidget *>(m_contents) : m_hits);
    m_browser->setMarked(words);
}

void HelpWindow::onHitChosen(int row)
{
    const QListWidgetItem *item = m_hits->item(row);
    const QString page = item ? item->data(pageRole).toString() : QString();
    if (!page.isEmpty()) {
        m_browser->showPage(page);
        m_browser->showFirstMark();
    }
}

void HelpWindow::onPageChanged()
{
    const QString page = m_browser->page();
    setWindowTitle(QStringLiteral("%1 - %2 Help").arg(HelpPages::title(page), QLatin1String(Product::name)));
    const QSignalBlocker blocker(m_contents);
    for (QTreeWidgetItemIterator item(m_contents); *item; ++item) {
        if ((*item)->data(0, pageRole).toString() == page) {
            m_contents->setCurrentItem(*item);
            m_contents->scrollToItem(*item);
            return;
        }
    }
    m_contents->setCurrentItem(nullptr);
}

void HelpWindow::keepPlace() const
{
    Settings::current().setHelpWindowGeometry(saveGeometry());
}

void HelpWindow::restorePlace(const QWidget *over)
{
    if (!restoreGeometry(Settings::current().helpWindowGeometry())) {
        const QScreen *screen = over && over->screen() ? over->screen() : QGuiApplication::primaryScreen();
        resize(screen ? firstSize.boundedTo(screen->availableSize() * 9 / 10) : firstSize);
    }
}

void HelpWindow::closeEvent(QCloseEvent *event)
{
    keepPlace();
    QWidget::closeEvent(event);
}

void HelpWindow::hideEvent(QHideEvent *event)
{
    keepPlace();
    QWidget::hideEvent(event);
}

void HelpWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}
