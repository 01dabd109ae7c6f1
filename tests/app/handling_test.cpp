#include "app/application.h"
#include "app/boxanswers.h"
#include "app/documentcommands.h"
#include "app/mainwindow.h"
#include "app/recoveryfile.h"
#include "app/report/runlog.h"
#include "app/testdocument.h"
#include "graph/graphscene.h"
#include "graph/ionode.h"
#include "graph/nodeplacement.h"
#include "graph/runcontrol.h"
#include "graph/transformnode.h"
#include "panes/actions/actionpane.h"
#include "panes/canvas/graphpane.h"
#include "panes/canvas/typeablemenu.h"
#include "settings/settings.h"
#include "support/printers.h"
#include "support/waitfor.h"

#include <QAction>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>

// The real window as a person handles it: a flow is built by clicks alone and by keys alone, and things are dropped.

namespace {

class HandlingTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        settings.setWarnOnLocaleChange(false);
        settings.setOpenAutoRun(AutoRunChoice::LeaveAutoRun);
        settings.setOpenPreviousAtStart(StartChoice::Nothing);
        settings.setShowAdvancedTransforms(true);
        settings.setProcessingDelay(0);
        RecoveryFile::remove();
        writeFile(path("in.csv"), "k,v\n2,b\n1,a\n");
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
        m_window->start();
        m_window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }
    void TearDown() override
    {
        stopRequested = false;
        m_window.reset();
        RecoveryFile::remove();
        Application::instance()->settings().setProcessingDelay(2);
    }

    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    GraphScene &scene() const { return m_window->scene(); }
    GraphPane &pane() const { return *m_window->findChild<GraphPane *>(); }
    bool allUpToDate() const
    {
        return !scene().nodes().isEmpty()
               && scene().nodesInState(NodeState::Processed).size() == scene().nodes().size();
    }
    /// "in>Sort" for each connection, in the order of the alphabet.
    QStringList edges() const
    {
        QStringList texts;
        for (const Node *node : scene().nodes()) {
            for (const Node *upstream : node->upstreamNodes(false)) {
                texts.append(labelOf(*upstream) + QLatin1Char('>') + labelOf(*node));
            }
        }
        texts.sort();
        return texts;
    }
    static QString labelOf(const Node &node) { return node.alias().isEmpty() ? node.typeName() : node.alias(); }

    // The mouse
    void clickButton(const char *text) const
    {
        for (QToolButton *button : m_window->findChild<ActionPane *>()->findChildren<QToolButton *>()) {
            if (button->text() == QLatin1String(text)) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        ADD_FAILURE() << text;
    }
    void clickBox(const Node *node, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        ASSERT_NE(node, nullptr);
        QTest::mouseClick(pane().viewport(), Qt::LeftButton, modifiers, pane().mapFromScene(node->centre()));
    }

    // The keyboard, as the window gets it
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(m_window->windowHandle(), static_cast<Qt::Key>(key), modifiers);
    }
    /// Types a name on the canvas and takes it from the menu that opens.
    void typeTransform(const QString &name) const
    {
        const int before = scene().transformNodes().size();
        QTest::keyClick(m_window->windowHandle(), name.at(0).toLatin1());
        for (const QChar c : name.mid(1)) {
            QWidget *menu = QApplication::activePopupWidget();
            ASSERT_NE(qobject_cast<TypeableMenu *>(menu), nullptr) << c.toLatin1();
            QTest::keyClick(menu, c.toLatin1());
        }
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
        EXPECT_TRUE(waitFor([&] { return scene().transformNodes().size() == before + 1; })) << name.toStdString();
    }

    /// Checks the flow that the window holds, that it opens as it was saved, and that it is the one written here.
    void expectFlowThatSavesAndOpens() const
    {
        EXPECT_EQ(edges(), QStringList({"Join>Transpose", "Sort>Join", "Transpose>out", "in>Join", "in>Sort"}));
        EXPECT_TRUE(waitFor([this] { return allUpToDate(); }));
        const QStringList built = described();
        ASSERT_TRUE(m_window->documents().openDocument(path("flow.transform")));
        EXPECT_TRUE(waitFor([this] { return allUpToDate(); }));
        EXPECT_EQ(described(), built) << "what was saved opens as it was";

        TestDocument byHand;
        byHand.inputs =
            "<input id=\"0\" medium=\"0\" file_type=\"0\" header=\"1\" delimiter=\"0\" trim=\"1\" simplify=\"1\" "
            "alias=\"in\" path=\""
            + encoded(path("in.csv")) + "\" " + place(0, 0) + "/>";
        byHand.transforms = transformXml(1, "Sort", place(239.4, 0)) + transformXml(2, "Join", place(478.8, 0))
                            + transformXml(3, "Transpose", place(718.2, 0));
        byHand.outputs =
            "<output id=\"4\" file_type=\"0\" delimiter=\"1\" line_endings=\"0\" bom=\"1\" encoding=\"UTF-8\" "
            "write_header=\"1\" enable_output=\"1\" alias=\"out\" path=\""
            + encoded(path("out.csv")) + "\" " + place(957.6, 0) + "/>";
        byHand.connections = connectionXml(0, 1) + connectionXml(0, 2) + connectionXml(1, 2) + connectionXml(2, 3)
                             + connectionXml(3, 4);
        writeFile(path("byhand.transform"), byHand.xml());
        ASSERT_TRUE(m_window->documents().openDocument(path("byhand.transform")));
        EXPECT_TRUE(waitFor([this] { return allUpToDate(); }));
        EXPECT_EQ(described(), built) << "and is what was written by hand";
    }
    /// A line for each item and one for each of its options.
    QStringList described() const
    {
        QList<Node *> nodes = scene().nodes();
        std::sort(nodes.begin(), nodes.end(), [](const Node *a, const Node *b) { return a->id() < b->id(); });
        QStringList lines;
        for (const Node *node : nodes) {
            lines.append(QStringLiteral("%1 %2 %3 at %4 %5")
                             .arg(node->id())
                             .arg(node->typeName(), node->alias())
                             .arg(node->x())
                             .arg(node->y()));
            for (const auto &row : node->optionRows()) {
                lines.append(row.first + QStringLiteral(": ") + row.second);
            }
        }
        return lines;
    }
    static QByteArray place(double x, double y)
    {
        return "pos_v12=\"" + QByteArray::number(x) + '\x1f' + QByteArray::number(y) + '"';
    }
    static QByteArray transformXml(int id, const char *name, const QByteArray &more)
    {
        return "<transform id=\"" + QByteArray::number(id) + "\" name=\"" + name + "\" " + more + "/>";
    }

    // Drops
    /// Drags what `data` holds over the middle of the canvas and lets it go there; false if the canvas wants none of
    /// it.
    bool drop(QMimeData &data) const
    {
        QWidget *canvas = pane().viewport();
        const QPoint at = canvas->rect().center();
        QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(canvas, &enter);
        QDragMoveEvent move(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        move.ignore();
        QCoreApplication::sendEvent(canvas, &move);
        QDropEvent dropped(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        dropped.ignore();
        QCoreApplication::sendEvent(canvas, &dropped);
        EXPECT_EQ(enter.isAccepted(), dropped.isAccepted());
        EXPECT_EQ(move.isAccepted(), dropped.isAccepted());
        return dropped.isAccepted();
    }
    bool dropPaths(const QStringList &paths) const
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString &one : paths) {
            urls.append(QUrl::fromLocalFile(one));
        }
        data.setUrls(urls);
        return drop(data);
    }

    QTemporaryDir m_folder;
    RunLog m_log;
    ScriptedPrompts m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace

TEST_F(HandlingTest, ClicksAloneBuildAFlow)
{
    m_prompts.paths = QStringList{path("in.csv"), path("out.csv"), path("flow.transform")};
    clickButton("From File");
    clickButton("Sort");
    ASSERT_EQ(scene().transformNodes().size(), 1);
    clickBox(scene().inputNodes().value(0));
    clickBox(scene().transformNodes().value(0), Qt::ControlModifier);
    ASSERT_EQ(scene().nodes(true).size(), 2);
    clickButton("Join");
    clickButton("Transpose");
    clickButton("To File");
    auto &toolBar = *m_window->findChild<QToolBar *>();
    auto *save = toolBar.widgetForAction(m_window->findChild<QAction *>(QStringLiteral("m_fileSaveAction")));
    ASSERT_NE(save, nullptr);
    QTest::mouseClick(save, Qt::LeftButton);
    expectFlowThatSavesAndOpens();
}

TEST_F(HandlingTest, KeysAloneBuildAFlow)
{
    m_prompts.paths = QStringList{path("in.csv"), path("out.csv"), path("flow.transform")};
    press(Qt::Key_I, Qt::AltModifier);
    ASSERT_EQ(scene().inputNodes().size(), 1);
    typeTransform(QStringLiteral("sort"));
    press(Qt::Key_A, Qt::ControlModifier);
    typeTransform(QStringLiteral("join"));
    typeTransform(QStringLiteral("transpose"));
    press(Qt::Key_O, Qt::AltModifier);
    press(Qt::Key_S, Qt::ControlModifier);
    expectFlowThatSavesAndOpens();
}

TEST_F(HandlingTest, TheKeywordBoxBuildsAFlow)
{
    m_prompts.paths = QStringList{path("in.csv"), path("out.csv"), path("flow.transform")};
    press(Qt::Key_I, Qt::AltModifier);
    for (const char *name : {"sort", "join", "transpose"}) {
        if (qstrcmp(name, "join") == 0) {
            press(Qt::Key_A, Qt::ControlModifier);
        }
        press(Qt::Key_K, Qt::ControlModifier);
        QTest::keyClicks(m_window->focusWidget(), QString::fromLatin1(name));
        press(Qt::Key_Return);
        EXPECT_EQ(m_window->focusWidget(), &pane()) << "the canvas goes on after " << name;
    }
    press(Qt::Key_O, Qt::AltModifier);
    press(Qt::Key_S, Qt::ControlModifier);
    expectFlowThatSavesAndOpens();
}

TEST_F(HandlingTest, WhatIsDroppedBecomesAnInputThere)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("many")));
    writeFile(path("many/one.csv"), "k\n1\n");
    const struct
    {
        const char *what;
        std::function<bool()> drop;
        const char *undo;
    } cases[] = {
        {"a file", [this] { return dropPaths({path("in.csv")}); }, "&Undo add file(s)"},
        {"a folder", [this] { return dropPaths({path("many")}); }, "&Undo add folder(s)"},
        {"text of another program",
            [this] {
                QMimeData data;
                data.setText(QStringLiteral("k\tv\n1\t2\n"));
                return drop(data);
            },
            "&Undo add clipboard"},
    };
    auto *undo = m_window->findChild<QAction *>(QStringLiteral("m_editUndoAction"));
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        // A folder asks which of its files are meant.
        const BoxAnswers answers({QStringLiteral("OK")});
        const QPointF place = pane().mapToScene(pane().viewport()->rect().center());
        EXPECT_TRUE(c.drop());
        ASSERT_TRUE(waitFor([this] { return scene().inputNodes().size() == 1; }));
        const QPointF off = scene().inputNodes().first()->centre() - place;
        EXPECT_LE(qAbs(off.x()), NodePlacement::gridWidth / 2);
        EXPECT_LE(qAbs(off.y()), NodePlacement::gridHeight / 2);
        EXPECT_TRUE(waitFor([this] { return allUpToDate(); }));
        EXPECT_EQ(undo->text(), QString::fromLatin1(c.undo));
        undo->trigger();
        EXPECT_TRUE(scene().nodes().isEmpty());
    }
}

TEST_F(HandlingTest, ADroppedDocumentOpens)
{
    TestDocument document;
    document.inputs = inputXml(7, QStringLiteral("seven"), path("in.csv"));
    writeFile(path("other.transform"), document.xml());
    EXPECT_TRUE(dropPaths({path("in.csv")}));
    ASSERT_TRUE(waitFor([this] { return allUpToDate(); }));
    {
        BoxAnswers keep({QStringLiteral("Cancel")});
        EXPECT_TRUE(dropPaths({path("other.transform")}));
        EXPECT_TRUE(waitFor([&] { return keep.texts().size() == 1; })) << "changes are asked about first";
        EXPECT_EQ(scene().nodeById(7), nullptr);
    }
    BoxAnswers discard({QStringLiteral("Discard")});
    EXPECT_TRUE(dropPaths({path("other.transform"), path("in.csv")}));
    EXPECT_TRUE(waitFor([this] { return scene().nodeById(7) != nullptr; }));
    EXPECT_EQ(scene().nodes().size(), 1) << "a document with files is opened alone";
}

TEST_F(HandlingTest, WhatTheCanvasCantUseIsRefused)
{
    QMimeData picture;
    picture.setData(QStringLiteral("application/x-something"), "abc");
    EXPECT_FALSE(drop(picture));
    pane().setInteractive(false);
    EXPECT_FALSE(dropPaths({path("in.csv")})) << "nor does it take anything during a run";
    pane().setInteractive(true);
    QCoreApplication::processEvents();
    EXPECT_TRUE(scene().nodes().isEmpty());
}

TEST_F(HandlingTest, AThousandFilesDropAtOnce)
{
    constexpr int fileCount = 1000;
    QStringList paths;
    for (int i = 0; i < fileCount; ++i) {
        paths.append(path(("f" + std::to_string(i) + ".csv").c_str()));
        writeFile(paths.last(), "k\n" + QByteArray::number(i) + "\n");
    }
    m_window->findChild<QAction *>(QStringLiteral("m_runAutoAction"))->setChecked(false);
    EXPECT_TRUE(dropPaths(paths));
    ASSERT_TRUE(waitFor([this] { return scene().nodes().size() == fileCount; }));
    const QList<Node *> inputs = scene().nodes();
    EXPECT_EQ(scene().nodes(true).size(), fileCount) << "all are selected, to go on with them";
    QSet<QPair<int, int>> places;
    QSet<QString> aliases;
    for (const Node *node : inputs) {
        places.insert({qRound(node->x()), qRound(node->y())});
        aliases.insert(node->alias());
    }
    EXPECT_EQ(places.size(), fileCount);
    EXPECT_EQ(aliases.size(), fileCount);
    auto *undo = m_window->findChild<QAction *>(QStringLiteral("m_editUndoAction"));
    undo->trigger();
    EXPECT_TRUE(scene().nodes().isEmpty()) << "one step takes all back";
}
