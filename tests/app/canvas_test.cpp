#include "app/application.h"
#include "app/boxanswers.h"
#include "app/documentcommands.h"
#include "app/mainwindow.h"
#include "app/recoveryfile.h"
#include "app/report/runlog.h"
#include "app/testdocument.h"
#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/nodelook.h"
#include "graph/notenode.h"
#include "graph/runcontrol.h"
#include "graph/transformnode.h"
#include "panes/canvas/graphpane.h"
#include "panes/canvas/transformchoice.h"
#include "panes/canvas/typeablemenu.h"
#include "panes/items/itempane.h"
#include "panes/items/itemwidget.h"
#include "panes/status/nodestatuswidget.h"
#include "panes/table/datatableview.h"
#include "settings/settings.h"
#include "support/printers.h"
#include "support/waitfor.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"

#include <QAccessible>
#include <QClipboard>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <gtest/gtest.h>

// The canvas of the real window, driven by keys and the mouse: two inputs, a Sort and an output.

namespace {

constexpr int topId = 1;
constexpr int lowId = 2;
constexpr int sortId = 3;
constexpr int outputId = 4;

class CanvasTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        settings.setWarnOnLocaleChange(false);
        settings.setOpenAutoRun(AutoRunChoice::LeaveAutoRun);
        settings.setOpenPreviousAtStart(StartChoice::Nothing);
        settings.setShowCenterPaneTips(CanvasTips::Detailed);
        settings.setMouseWheelBehaviour(WheelBehaviour::Scroll);
        RecoveryFile::remove();
        writeFile(path("in.csv"), "a,b\n1,z\n2,x\n");
        TestDocument document;
        document.inputs = inputXml(topId, QStringLiteral("top"), path("in.csv"),
                              "pos_v12=\"0\x1f"
                              "0\"")
                          + inputXml(lowId, QStringLiteral("low"), path("in.csv"),
                              "pos_v12=\"0\x1f"
                              "240\"");
        document.transforms = "<transform id=\"3\" name=\"Sort\" pos_v12=\"240\x1f"
                              "0\"><parameters>"
                              "<parameter name=\"Columns\" value=\"2\x1f"
                              "0\"/></parameters></transform>";
        document.outputs = outputXml(outputId, QStringLiteral("out"), path("out.csv"));
        document.connections = connectionXml(topId, sortId) + connectionXml(sortId, outputId);
        writeFile(path("flow.transform"), document.xml());
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
        m_window->start();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
        ASSERT_TRUE(m_window->documents().openDocument(path("flow.transform")));
        pane().setFocus();
    }
    void TearDown() override
    {
        stopRequested = false;
        QToolTip::hideText();
        m_window.reset();
        RecoveryFile::remove();
    }

    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    GraphPane &pane() const { return *m_window->findChild<GraphPane *>(); }
    GraphScene &scene() const { return m_window->scene(); }
    Node &node(int id) const { return *scene().nodeById(id); }
    void select(int id) const
    {
        scene().clearSelection();
        node(id).setSelected(true);
    }
    /// Id of the one selected item, -1 for none or several.
    int selected() const
    {
        const QList<Node *> nodes = scene().nodes(true);
        return nodes.size() == 1 ? nodes.first()->id() : -1;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(&pane(), key, modifiers);
    }
    void trigger(const char *name) const { m_window->findChild<QAction *>(QString::fromLatin1(name))->trigger(); }
    TypeableMenu *openMenu() const
    {
        for (TypeableMenu *menu : pane().findChildren<TypeableMenu *>()) {
            if (menu->isVisible()) {
                return menu;
            }
        }
        return nullptr;
    }
    /// Opens the context menu at an item, calls `look` with it and closes it.
    void withContextMenu(const QPoint &place, const std::function<void(QMenu &)> &look) const
    {
        bool wasOpen = false;
        QTimer::singleShot(0, &pane(), [&] {
            if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
                wasOpen = true;
                look(*menu);
                menu->close();
            }
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, pane().viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(pane().viewport(), &event);
        EXPECT_TRUE(wasOpen);
    }
    QPoint placeOf(int id) const { return pane().mapFromScene(node(id).centre()); }
    static QStringList textsOf(const QMenu &menu)
    {
        QStringList texts;
        for (const QAction *action : menu.actions()) {
            if (!action->isSeparator()) {
                texts.append(action->text());
            }
        }
        return texts;
    }

    QTemporaryDir m_folder;
    RunLog m_log;
    ScriptedPrompts m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace

TEST_F(CanvasTest, ArrowKeysWalkThroughTheGraph)
{
    const struct
    {
        int from; ///< -1 for nothing selected
        Qt::Key key;
        int to;
    } steps[] = {
        {-1, Qt::Key_Down, topId},
        {topId, Qt::Key_Right, sortId},
        {sortId, Qt::Key_Right, outputId},
        {outputId, Qt::Key_Left, sortId},
        {sortId, Qt::Key_Left, topId},
        {topId, Qt::Key_Down, lowId},
        {lowId, Qt::Key_Up, topId},
        {lowId, Qt::Key_Right, lowId},
        {topId, Qt::Key_Left, topId},
        {sortId, Qt::Key_Up, sortId},
    };
    for (const auto &step : steps) {
        SCOPED_TRACE(QStringLiteral("from %1 by %2").arg(step.from).arg(step.key).toStdString());
        scene().clearSelection();
        if (step.from >= 0) {
            select(step.from);
        }
        press(step.key);
        EXPECT_EQ(selected(), step.to);
    }
}

TEST_F(CanvasTest, TypingAddsATransform)
{
    select(sortId);
    press(Qt::Key_F);
    TypeableMenu *menu = openMenu();
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->typedText(), QStringLiteral("f"));
    QTest::keyClick(menu, Qt::Key_I);
    QTest::keyClick(menu, Qt::Key_L);
    EXPECT_EQ(menu->typedText(), QStringLiteral("fil"));
    ASSERT_TRUE(menu->activeAction());
    EXPECT_EQ(menu->activeAction()->text(), QStringLiteral("Fill"));
    QTest::keyClick(menu, Qt::Key_T);
    EXPECT_EQ(menu->activeAction()->text(), QStringLiteral("Filter"));
    QTest::keyClick(menu, Qt::Key_Enter);
    EXPECT_TRUE(waitFor([this] { return scene().transformNodes().size() == 2; }));
    EXPECT_EQ(scene().transformNodes(true).first()->typeName(), QStringLiteral("Filter"));
    EXPECT_TRUE(scene().transformNodes(true).first()->isDirectlyConnectedTo(&node(sortId)));
}

TEST_F(CanvasTest, TypingOnAConnectionPutsATransformIntoIt)
{
    scene().clearSelection();
    node(outputId).connections(Direction::Incoming).first()->setSelected(true);
    press(Qt::Key_U);
    ASSERT_TRUE(openMenu());
    QTest::keyClicks(openMenu(), QStringLiteral("nique"));
    QTest::keyClick(openMenu(), Qt::Key_Return);
    EXPECT_TRUE(waitFor([this] { return scene().transformNodes().size() == 2; }));
    const Node *added = node(outputId).upstreamNodes(false).value(0);
    ASSERT_TRUE(added);
    EXPECT_EQ(added->typeName(), QStringLiteral("Unique"));
    EXPECT_TRUE(added->isDirectlyConnectedTo(&node(sortId)));
}

TEST_F(CanvasTest, BackspaceAndEscapeInTheTypedMenu)
{
    select(sortId);
    press(Qt::Key_X);
    ASSERT_TRUE(openMenu());
    QTest::keyClick(openMenu(), Qt::Key_Backspace);
    EXPECT_EQ(openMenu()->typedText(), QString());
    QTest::keyClick(openMenu(), Qt::Key_Escape);
    EXPECT_FALSE(openMenu());
    EXPECT_EQ(scene().transformNodes().size(), 1);
    scene().clearSelection();
    press(Qt::Key_F);
    EXPECT_FALSE(openMenu()) << "with nothing selected";
}

TEST_F(CanvasTest, TypedNamesAreFoundByTheirWords)
{
    const auto names = [](const char *typed) {
        QStringList found;
        for (const TransformChoice &choice : TransformChoice::matching(QString::fromLatin1(typed))) {
            found.append(choice.displayName);
        }
        return found;
    };
    EXPECT_EQ(names("jo"), QStringList{QStringLiteral("Join")});
    EXPECT_EQ(names("col split"), QStringList{QStringLiteral("Split Col")});
    EXPECT_EQ(names("sp").first(), QStringLiteral("Split Col"));
    EXPECT_TRUE(names("zzz").isEmpty());
    EXPECT_EQ(names("").size(), TransformChoice::all().size());
}

TEST_F(CanvasTest, TheKeyboardConnects)
{
    select(lowId);
    QStringList messages;
    const QObject listener;
    QObject::connect(
        &pane(), &GraphPane::statusMessage, &listener, [&](const QString &text) { messages.append(text); });
    trigger("m_editConnectAction");
    EXPECT_TRUE(messages.isEmpty() || !messages.last().contains("Enter")) << "everything is connected already";
    EXPECT_FALSE(scene().isConnecting());

    const std::unique_ptr<Transform> join(Catalogue::create(QStringLiteral("Join")));
    scene().clearSelection();
    node(topId).setSelected(true);
    node(sortId).setSelected(true);
    TransformNode *joined = scene().addTransform(join.get());
    scene().clearSelection();
    joined->connections(Direction::Incoming).last()->setSelected(true);
    trigger("m_editDeleteAction");
    const std::unique_ptr<Transform> stack(Catalogue::create(QStringLiteral("Stack")));
    select(sortId);
    TransformNode *stacked = scene().addTransform(stack.get());
    ASSERT_TRUE(joined && stacked);

    select(lowId);
    trigger("m_editConnectAction");
    ASSERT_TRUE(scene().isConnecting());
    KeyboardConnection &connection = pane().keyboardConnection();
    const Node *first = connection.target();
    EXPECT_TRUE(first->look().isHighlighted());
    EXPECT_TRUE(messages.last().contains(first->name()));
    press(Qt::Key_Down);
    const Node *second = connection.target();
    EXPECT_NE(second, first);
    EXPECT_FALSE(first->look().isHighlighted());
    press(Qt::Key_Down);
    EXPECT_EQ(connection.target(), first) << "round to the first";
    press(Qt::Key_Escape);
    EXPECT_FALSE(scene().isConnecting());
    EXPECT_EQ(selected(), lowId);
    EXPECT_TRUE(node(lowId).connections(Direction::Both).isEmpty());

    trigger("m_editConnectAction");
    while (connection.target() != joined) {
        press(Qt::Key_Up);
    }
    press(Qt::Key_Return);
    EXPECT_TRUE(joined->isDirectlyConnectedTo(&node(lowId)));
    EXPECT_EQ(selected(), joined->id());
    EXPECT_FALSE(joined->look().isHighlighted());
    trigger("m_editUndoAction");
    EXPECT_TRUE(node(lowId).connections(Direction::Both).isEmpty());
}

TEST_F(CanvasTest, SpaceDragsTheViewWhereItScrolls)
{
    press(Qt::Key_Space);
    EXPECT_EQ(pane().dragMode(), QGraphicsView::RubberBandDrag) << "nothing to scroll";
    for (int i = 0; i < 12; ++i) {
        trigger("m_viewZoomInAction");
    }
    QTest::keyPress(&pane(), Qt::Key_Space);
    EXPECT_EQ(pane().dragMode(), QGraphicsView::ScrollHandDrag);
    EXPECT_FALSE(pane().isInteractive());
    QTest::keyRelease(&pane(), Qt::Key_Space);
    EXPECT_EQ(pane().dragMode(), QGraphicsView::RubberBandDrag);
    EXPECT_TRUE(pane().isInteractive());
    EXPECT_EQ(pane().scale(), GraphPane::largestScale);
}

TEST_F(CanvasTest, TypingWithANoteSelectedGoesIntoTheNote)
{
    scene().addNote(QPointF(0, 500), NoteNode::NoArrow);
    QSignalSpy typed(&pane(), &GraphPane::typedCharInNote);
    press(Qt::Key_F);
    ASSERT_EQ(typed.size(), 1);
    EXPECT_EQ(typed.first().first().toChar(), QLatin1Char('f'));
    EXPECT_FALSE(openMenu());
}

TEST_F(CanvasTest, TheContextMenuFitsWhatIsUnderIt)
{
    withContextMenu(placeOf(sortId), [this](QMenu &menu) {
        EXPECT_EQ(selected(), sortId);
        const QStringList texts = textsOf(menu);
        for (const char *text :
            {"From File", "From Clipboard", "&Note", "Cu&t", "&Copy", "&Paste", "Duplicate &Branch", "&Delete"}) {
            EXPECT_TRUE(texts.contains(QString::fromLatin1(text))) << text;
        }
        QMenu *notes = nullptr;
        for (QAction *action : menu.actions()) {
            if (action->text() == QStringLiteral("&Note")) {
                notes = action->menu();
            }
        }
        ASSERT_TRUE(notes);
        EXPECT_EQ(textsOf(*notes), QStringList({"Aut&o", "&Above", "&Right", "&Below", "&Left"}));
        notes->actions().last()->trigger();
    });
    ASSERT_EQ(scene().noteNodes().size(), 1);
    EXPECT_EQ(scene().noteNodes().first()->arrow(), NoteNode::Right);
    EXPECT_LT(scene().noteNodes().first()->x(), node(sortId).x());
}

TEST_F(CanvasTest, TheContextMenuCopiesTheDataAndShowsTheItemFullscreen)
{
    const auto trigger = [this](const char *text) {
        withContextMenu(placeOf(topId), [text](QMenu &menu) {
            for (QAction *action : menu.actions()) {
                if (action->text() == QString::fromLatin1(text)) {
                    EXPECT_TRUE(action->isEnabled()) << text;
                    action->trigger();
                    return;
                }
            }
            ADD_FAILURE() << text << " is missing";
        });
    };
    QGuiApplication::clipboard()->clear();
    trigger("Cop&y Data");
    EXPECT_EQ(QGuiApplication::clipboard()->text().remove('\r').trimmed(), QStringLiteral("a,b\n1,z\n2,x"));
    trigger("Show fullscreen");
    ItemWidget *panel = m_window->findChild<ItemPane *>()->itemWidget();
    EXPECT_TRUE(panel->isFullScreen());
    QTest::keyClick(panel, Qt::Key_Escape);
    EXPECT_FALSE(panel->isFullScreen());
}

TEST_F(CanvasTest, LinesAreThereAfterUndo)
{
    select(lowId);
    trigger("m_editDeleteAction");
    trigger("m_editUndoAction");
    ASSERT_EQ(scene().connections().size(), 2);
    for (const Connection *connection : scene().connections()) {
        EXPECT_GT(connection->path().length(), 10);
    }
}

TEST_F(CanvasTest, ADoubleClickShowsTheItemFullscreen)
{
    QTest::mouseDClick(pane().viewport(), Qt::LeftButton, Qt::NoModifier, placeOf(topId));
    QTest::mouseRelease(pane().viewport(), Qt::LeftButton, Qt::NoModifier, placeOf(topId));
    ItemWidget *panel = m_window->findChild<ItemPane *>()->itemWidget();
    ASSERT_TRUE(panel);
    EXPECT_TRUE(panel->isFullScreen());
    QTest::keyClick(panel, Qt::Key_Escape);
}

TEST_F(CanvasTest, TheContextMenuPastesWhereItWasOpened)
{
    select(sortId);
    trigger("m_editCopyAction");
    scene().setSnapToGrid(false);
    QPointF place;
    const QPoint corner = pane().viewport()->rect().bottomLeft() + QPoint(20, -20);
    withContextMenu(corner, [&](QMenu &) {
        place = pane().mapToScene(corner);
        trigger("m_editPasteAction");
    });
    ASSERT_EQ(scene().transformNodes(true).size(), 1);
    EXPECT_EQ(scene().transformNodes(true).first()->pos(), place);
    trigger("m_editPasteAction");
    EXPECT_NE(scene().transformNodes(true).first()->pos(), place) << "the place counts for the menu only";
}

TEST_F(CanvasTest, ToolTipsTellAsMuchAsWanted)
{
    const auto tipAt = [this](const QPoint &place) {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, place, pane().viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(pane().viewport(), &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_TRUE(tipAt(placeOf(sortId)).contains("Transform type"));
    trigger("m_viewToolTipsBrief");
    EXPECT_TRUE(tipAt(placeOf(sortId)).contains("Dataset rows"));
    EXPECT_FALSE(tipAt(placeOf(sortId)).contains("Transform type"));
    trigger("m_viewToolTipsOff");
    tipAt(placeOf(sortId));
    EXPECT_TRUE(waitFor([] { return !QToolTip::isVisible(); }));
    EXPECT_EQ(Application::instance()->settings().showCenterPaneTips(), CanvasTips::Off);
}

TEST_F(CanvasTest, ScreenReadersSeeTheItems)
{
    QAccessibleInterface *canvas = QAccessible::queryAccessibleInterface(&pane());
    ASSERT_TRUE(canvas);
    EXPECT_EQ(canvas->role(), QAccessible::List);
    EXPECT_EQ(canvas->text(QAccessible::Name), QStringLiteral("Center pane"));
    ASSERT_EQ(canvas->childCount(), 4);
    QAccessibleInterface *sort = canvas->child(2);
    EXPECT_EQ(sort->text(QAccessible::Name), QStringLiteral("Sort, 2 rows x 2 cols, up to date"));
    EXPECT_EQ(sort->role(), QAccessible::ListItem);
    EXPECT_EQ(sort->parent()->object(), &pane());
    EXPECT_TRUE(pane().rect().translated(pane().mapToGlobal(QPoint())).contains(sort->rect()));
    EXPECT_EQ(canvas->indexOfChild(sort), 2);

    QStringList fed;
    for (const auto &relation : sort->relations(QAccessible::AllRelations)) {
        fed.append(
            (relation.second == QAccessible::Controller ? "from " : "to ") + relation.first->text(QAccessible::Name));
    }
    EXPECT_EQ(
        fed, QStringList({"from in.csv, 2 rows x 2 cols, up to date", "to out.csv, 2 rows x 2 cols, up to date"}));

    QAccessibleActionInterface *actions = sort->actionInterface();
    ASSERT_TRUE(actions);
    EXPECT_EQ(actions->actionNames(), QStringList({"Select", "Run", "Show options"}));
    actions->doAction(QStringLiteral("Select"));
    EXPECT_EQ(selected(), sortId);
    EXPECT_TRUE(sort->state().selected);
    EXPECT_EQ(canvas->focusChild(), sort);
    QFile::remove(path("out.csv"));
    canvas->child(3)->actionInterface()->doAction(QStringLiteral("Run"));
    EXPECT_EQ(readFile(path("out.csv")), "a,b\n2,x\n1,z\n");
}

TEST_F(CanvasTest, TimingBarsShowTheShareOfTheLongest)
{
    const auto bars = [this] {
        int count = 0;
        for (const QGraphicsItem *item : scene().items()) {
            count += item->type() == ItemType::TimingBar;
        }
        return count;
    };
    trigger("m_viewTimingProfileAction");
    EXPECT_EQ(bars(), 4);
    scene().addNote(QPointF(0, 700), NoteNode::NoArrow);
    trigger("m_editUndoAction");
    EXPECT_EQ(bars(), 4) << "in another scene too";
    trigger("m_viewTimingProfileAction");
    EXPECT_EQ(bars(), 0);
}

TEST_F(CanvasTest, ZoomSelectedShowsTheSelectionAsLargeAsItMay)
{
    const double before = pane().scale();
    select(sortId);
    trigger("m_viewZoomSelectedAction");
    EXPECT_GT(pane().scale(), before);
    EXPECT_LE(pane().scale(), GraphPane::largestScale);
    EXPECT_FALSE(pane().isAutoZoom());
    const QRect box = pane().mapFromScene(node(sortId).mapRectToScene(node(sortId).boxRect())).boundingRect();
    EXPECT_TRUE(pane().viewport()->rect().contains(box));
}

TEST_F(CanvasTest, TheStatusBarCountsItemsByStatus)
{
    auto &status = *m_window->findChild<NodeStatusWidget *>();
    EXPECT_TRUE(status.toolTip().startsWith(QStringLiteral("Item status: 4 ok.\n"))) << status.toolTip().toStdString();
    trigger("m_runAutoAction");
    QFile::remove(path("in.csv"));
    select(topId);
    trigger("m_runSelectedAction");
    EXPECT_EQ(status.toolTip(), QStringLiteral("Item status: 1 ok, 2 need update, 1 error(s).\n"
                                               "Click an icon to select and zoom to items with that status."));
    for (QToolButton *button : status.findChildren<QToolButton *>()) {
        if (button->accessibleName() == QStringLiteral("2 need update")) {
            button->click();
        }
    }
    EXPECT_EQ(scene().nodes(true).size(), 2);
    EXPECT_TRUE(node(sortId).isSelected() && node(outputId).isSelected());
}

TEST_F(CanvasTest, TheRightPaneShowsTheSelectedItem)
{
    auto &right = *m_window->findChild<ItemPane *>();
    EXPECT_FALSE(right.itemWidget());
    select(sortId);
    ASSERT_TRUE(right.itemWidget());
    EXPECT_EQ(right.itemWidget()->node(), &node(sortId));
    auto &table = *right.findChild<DataTableView *>();
    EXPECT_EQ(table.model()->rowCount(), 2);
    EXPECT_EQ(table.model()->index(0, 1).data().toString(), QStringLiteral("x"));
    const auto &tabs = *right.findChild<QTabWidget *>();
    const QStringList names{"Data", "Characters", "Warnings", "Info", "Details", "Comment"};
    for (int tab = 0; tab < names.size(); ++tab) {
        EXPECT_EQ(tabs.tabText(tab), names.at(tab));
        EXPECT_EQ(tabs.tabIcon(tab).isNull(), tab != 3) << "only information has come of it";
    }
    auto *comment = qobject_cast<QPlainTextEdit *>(tabs.widget(5));
    ASSERT_TRUE(comment);
    comment->setPlainText(QStringLiteral("by name"));
    select(outputId);
    EXPECT_EQ(node(sortId).comment(), QStringLiteral("by name")) << "taken when the item is left";
    trigger("m_editUndoAction");
    EXPECT_EQ(node(sortId).comment(), QString());
    EXPECT_FALSE(right.itemWidget()) << "undo drops the panel";
    scene().clearSelection();
    select(sortId);
    node(outputId).setSelected(true);
    EXPECT_FALSE(right.itemWidget()) << "two items";
}

TEST_F(CanvasTest, WhatIsTypedOnANoteGoesIntoIt)
{
    scene().addNote(QPointF(0, 500), NoteNode::NoArrow);
    const int id = selected();
    press(Qt::Key_H);
    auto &right = *m_window->findChild<ItemPane *>();
    auto &edit = *right.findChild<QPlainTextEdit *>();
    QTest::keyClicks(&edit, QStringLiteral("ello"));
    EXPECT_TRUE(waitFor([&] { return node(id).comment() == QStringLiteral("hello"); }));
    EXPECT_EQ(m_window->findChild<QAction *>(QStringLiteral("m_editUndoAction"))->text(),
        QStringLiteral("&Undo comment changed"));
}

TEST_F(CanvasTest, TheRightPaneHidesAndComesBack)
{
    auto &right = *m_window->findChild<ItemPane *>();
    QAction &action = *m_window->findChild<QAction *>(QStringLiteral("m_viewItemPaneAction"));
    QCoreApplication::processEvents();
    ASSERT_TRUE(action.isChecked());
    const int width = right.width();
    action.trigger();
    EXPECT_EQ(right.visibleRegion().boundingRect().width(), 0);
    EXPECT_FALSE(action.isChecked());
    action.trigger();
    EXPECT_EQ(right.width(), width);
    EXPECT_FALSE(m_window->findChild<QAction *>(QStringLiteral("m_viewTwoScreensAction"))->isEnabled())
        << "there is one screen";
}

TEST_F(CanvasTest, NumbersSelectInputsAndOutputs)
{
    const struct
    {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int id;
    } cases[] = {
        {Qt::Key_1, Qt::ControlModifier, topId},
        {Qt::Key_2, Qt::ControlModifier, lowId},
        {Qt::Key_9, Qt::ControlModifier, sortId}, // there is no ninth, so what was selected stays
        {Qt::Key_1, Qt::ControlModifier | Qt::ShiftModifier, outputId},
        {Qt::Key_2, Qt::ControlModifier | Qt::ShiftModifier, sortId},
    };
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    for (const auto &c : cases) {
        SCOPED_TRACE(c.key);
        select(sortId);
        QTest::keyClick(m_window->windowHandle(), c.key, c.modifiers);
        EXPECT_EQ(selected(), c.id);
    }
}
