#include "app/application.h"
#include "app/boxanswers.h"
#include "app/documentcommands.h"
#include "app/mainwindow.h"
#include "app/recoveryfile.h"
#include "app/report/runlog.h"
#include "app/testdocument.h"
#include "app/undostack.h"
#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/notenode.h"
#include "graph/runcontrol.h"
#include "graph/transformnode.h"
#include "graph/undostep.h"
#include "outputnode/outputnode.h"
#include "settings/settings.h"
#include "support/waitfor.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QClipboard>
#include <QMimeData>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

// Undo, redo and the clipboard of the window: in, a Sort on its second column, out.

namespace {

constexpr int inputId = 1;
constexpr int sortId = 2;
constexpr int outputId = 3;
constexpr int otherId = 9999;

class UndoTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        settings.setOpenAutoRun(AutoRunChoice::LeaveAutoRun);
        settings.setOpenPreviousAtStart(StartChoice::Nothing);
        settings.setProcessingDelay(0);
        RecoveryFile::remove();
        writeFile(path("in.csv"), "a,b\n1,z\n2,x\n3,y\n");
        TestDocument document;
        document.inputs = inputXml(inputId, QStringLiteral("in"), path("in.csv"));
        document.transforms = "<transform id=\"2\" name=\"Sort\" pos_v12=\"300\x1f"
                              "0\"><parameters>"
                              "<parameter name=\"Columns\" value=\"2\x1f"
                              "0\"/></parameters></transform>";
        document.outputs = outputXml(outputId, QStringLiteral("out"), path("out.csv"));
        document.connections = connectionXml(inputId, sortId) + connectionXml(sortId, outputId);
        writeFile(path("flow.transform"), document.xml());
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
        m_window->start();
        QCoreApplication::processEvents();
        ASSERT_TRUE(m_window->documents().openDocument(path("flow.transform")));
    }
    void TearDown() override
    {
        stopRequested = false;
        m_window.reset();
        RecoveryFile::remove();
        Application::instance()->settings().setProcessingDelay(2);
        QGuiApplication::clipboard()->clear();
    }

    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    GraphScene &scene() const { return m_window->scene(); }
    Node &node(int id) const { return *scene().nodeById(id); }
    void select(std::initializer_list<int> ids) const
    {
        scene().clearSelection();
        for (int id : ids) {
            node(id).setSelected(true);
        }
    }
    QAction &action(const char *name) const
    {
        auto *found = m_window->findChild<QAction *>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    void trigger(const char *name) const { action(name).trigger(); }
    void addTransform(const char *name) const
    {
        const std::unique_ptr<Transform> prototype(Catalogue::create(QString::fromLatin1(name)));
        scene().addTransform(prototype.get());
    }
    void move(int id) const
    {
        const UndoStep step(scene(), QStringLiteral("move item(s)"));
        node(id).moveBy(0, 239.4);
        scene().onPosChanged({&node(id)});
    }
    bool allUpToDate() const { return scene().nodesInState(NodeState::Processed).size() == scene().nodes().size(); }

    QTemporaryDir m_folder;
    RunLog m_log;
    ScriptedPrompts m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace

TEST_F(UndoTest, EachCommandIsTakenBackAndBroughtAgain)
{
    const struct
    {
        const char *label; ///< of the action that takes it back
        std::function<void()> command;
    } cases[] = {
        {"&Undo add 'Filter'",
            [this] {
                select({sortId});
                addTransform("Filter");
            }},
        {"&Undo add 'Filter'",
            [this] {
                scene().clearSelection();
                scene().connections().first()->setSelected(true);
                addTransform("Filter");
            }},
        {"&Undo add file(s)", [this] { scene().addInputsFromPaths({path("in.csv")}); }},
        {"&Undo add clipboard", [this] { scene().addInputFromClipboard(QStringLiteral("k\n1\n")); }},
        {"&Undo add output",
            [this] {
                select({sortId});
                scene().addOutput(path("more.csv"), 0);
            }},
        {"&Undo add chart",
            [this] {
                select({sortId});
                scene().addChart();
            }},
        {"&Undo add note", [this] { scene().addNote(QPointF(0, 500), NoteArrow::NoArrow); }},
        {"&Undo add connection",
            [this] {
                scene().startConnection(&node(inputId));
                scene().connectNodes(&node(otherId));
            }},
        {"&Undo disconnect",
            [this] {
                select({outputId});
                scene().disconnectSelected(Direction::Incoming);
            }},
        {"&Undo delete",
            [this] {
                select({sortId});
                trigger("m_editDeleteAction");
            }},
        {"&Undo cut",
            [this] {
                select({inputId, sortId});
                trigger("m_editCutAction");
            }},
        {"&Undo paste",
            [this] {
                select({inputId, sortId});
                trigger("m_editCopyAction");
                trigger("m_editPasteAction");
            }},
        {"&Undo duplicate branch",
            [this] {
                select({sortId});
                trigger("m_editDuplicateBranchAction");
            }},
        {"&Undo move item(s)", [this] { move(sortId); }},
        {"&Undo tidy up", [this] { trigger("m_editTidyUpAction"); }},
        {"&Undo comment changed",
            [this] {
                const UndoStep step(scene(), QStringLiteral("comment changed"));
                node(sortId).setComment(QStringLiteral("why"));
            }},
    };
    // Something to connect to.
    scene().insertNode(new OutputNode(path("other.csv"), 0, otherId), QPointF(600, 600));
    for (const auto &c : cases) {
        SCOPED_TRACE(c.label);
        const std::unique_ptr<GraphScene> before = scene().copy();
        c.command();
        EXPECT_EQ(action("m_editUndoAction").text(), QString::fromLatin1(c.label));
        EXPECT_FALSE(scene().sameAs(*before));
        const std::unique_ptr<GraphScene> after = scene().copy();
        trigger("m_editUndoAction");
        EXPECT_TRUE(scene().sameAs(*before));
        EXPECT_EQ(action("m_editRedoAction").text(), QString::fromLatin1(c.label).replace("&Undo", "&Redo"));
        trigger("m_editRedoAction");
        EXPECT_TRUE(scene().sameAs(*after));
        trigger("m_editUndoAction");
        EXPECT_TRUE(scene().sameAs(*before));
        EXPECT_TRUE(waitFor([this] { return allUpToDate(); })) << "what is restored runs again";
        EXPECT_EQ(readFile(path("out.csv")), "a,b\n2,x\n3,y\n1,z\n");
    }
}

TEST_F(UndoTest, TenStepsAreKept)
{
    for (int note = 0; note < 11; ++note) {
        scene().addNote(QPointF(0, 500.0 + 200 * note), NoteArrow::NoArrow);
    }
    int steps = 0;
    while (action("m_editUndoAction").isEnabled()) {
        trigger("m_editUndoAction");
        ++steps;
    }
    EXPECT_EQ(steps, UndoStack::mostSteps);
    EXPECT_EQ(scene().noteNodes().size(), 1);
    EXPECT_EQ(action("m_editUndoAction").text(), QStringLiteral("&Undo"));
    while (action("m_editRedoAction").isEnabled()) {
        trigger("m_editRedoAction");
    }
    EXPECT_EQ(scene().noteNodes().size(), 11);
    EXPECT_EQ(action("m_editRedoAction").text(), QStringLiteral("&Redo"));
}

TEST_F(UndoTest, WhatChangesNothingLeavesNoStep)
{
    scene().addNote(QPointF(0, 500), NoteArrow::NoArrow);
    {
        const UndoStep step(scene(), QStringLiteral("nothing"));
    }
    EXPECT_EQ(action("m_editUndoAction").text(), QStringLiteral("&Undo add note"));
    trigger("m_editPasteAction");
    EXPECT_EQ(action("m_editUndoAction").text(), QStringLiteral("&Undo add note")) << "an empty clipboard";
}

TEST_F(UndoTest, ANewChangeGivesUpWhatWasTakenBack)
{
    scene().addNote(QPointF(0, 500), NoteArrow::NoArrow);
    select({sortId});
    addTransform("Filter");
    trigger("m_editUndoAction");
    EXPECT_TRUE(action("m_editRedoAction").isEnabled());
    move(outputId);
    EXPECT_FALSE(action("m_editRedoAction").isEnabled());
    trigger("m_editUndoAction");
    EXPECT_EQ(action("m_editUndoAction").text(), QStringLiteral("&Undo add note"));
    EXPECT_EQ(scene().transformNodes().size(), 1);
}

TEST_F(UndoTest, SeveralStepsEndInOneRun)
{
    Application::instance()->settings().setProcessingDelay(0.05);
    scene().addNote(QPointF(0, 500), NoteArrow::NoArrow);
    scene().addNote(QPointF(0, 900), NoteArrow::NoArrow);
    trigger("m_editUndoAction");
    trigger("m_editUndoAction");
    EXPECT_EQ(node(sortId).state(), NodeState::NeedsProcessing);
    EXPECT_TRUE(m_window->isWindowModified());
    int runs = 0;
    QObject::connect(&scene(), &GraphScene::completedTransforms, m_window.get(), [&runs] { ++runs; });
    EXPECT_TRUE(waitFor([this] { return allUpToDate(); }));
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(scene().nodes(true).isEmpty());
}

TEST_F(UndoTest, AnotherDocumentForgetsTheSteps)
{
    scene().addNote(QPointF(0, 500), NoteArrow::NoArrow);
    trigger("m_editUndoAction");
    m_window->documents().openDocument(path("flow.transform"));
    EXPECT_FALSE(action("m_editUndoAction").isEnabled());
    EXPECT_FALSE(action("m_editRedoAction").isEnabled());
}

TEST_F(UndoTest, ARunInProgressRefusesAll)
{
    const std::unique_ptr<GraphScene> before = scene().copy();
    select({inputId});
    trigger("m_editCopyAction");
    const QMetaObject::Connection atNode = QObject::connect(&scene(), &GraphScene::nodeProcessed, [this](Node *) {
        for (const char *name : {"m_editUndoAction", "m_editRedoAction", "m_editCutAction", "m_editPasteAction",
                 "m_editDeleteAction", "m_editDuplicateBranchAction"}) {
            EXPECT_FALSE(action(name).isEnabled()) << name;
        }
        m_window->undoStack().undo();
        scene().duplicateBranch();
    });
    scene().runTransforms(RunMode::Everything, true);
    QObject::disconnect(atNode);
    EXPECT_TRUE(scene().sameAs(*before));
}

TEST_F(UndoTest, PastedItemsReadTheirOwnInputs)
{
    trigger("m_editSelectAllAction");
    trigger("m_editCopyAction");
    for (int copy = 1; copy <= 2; ++copy) {
        trigger("m_editPasteAction");
        EXPECT_EQ(scene().nodes().size(), 3 + 3 * copy);
        EXPECT_EQ(scene().connections().size(), 2 + 2 * copy);
        EXPECT_EQ(scene().nodes(true).size(), 3);
        const TransformNode *sort = scene().transformNodes(true).first();
        EXPECT_EQ(sort->datasetConst().toText(TextForm::CommaSeparated),
            node(sortId).datasetConst().toText(TextForm::CommaSeparated));
        EXPECT_EQ(scene().inputNodes(true).first()->alias(), QStringLiteral("in%1").arg(copy));
        for (Node *pasted : scene().nodes(true)) {
            EXPECT_FALSE(scene().overlapsAny(pasted)) << pasted->labelWithId().toStdString();
        }
    }
}

TEST_F(UndoTest, FragmentsLeaveOutWhatLeadsAway)
{
    select({sortId});
    trigger("m_editCopyAction");
    trigger("m_editPasteAction");
    ASSERT_EQ(scene().transformNodes(true).size(), 1);
    EXPECT_TRUE(scene().transformNodes(true).first()->connections(Direction::Both).isEmpty());
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(data->data("application/xml"), data->data("application/quillmere-transformfile"));
    EXPECT_TRUE(data->data("application/xml").startsWith("<!DOCTYPE Quillmere>"));
}

TEST_F(UndoTest, ForeignBytesAreNotPasted)
{
    for (const char *bytes :
        {"", "no markup", "<root/>", "<!DOCTYPE Other>\n<root/>", "<!DOCTYPE Quillmere>\n<root>"}) {
        SCOPED_TRACE(bytes);
        auto *data = new QMimeData;
        data->setData("application/quillmere-transformfile", bytes);
        QGuiApplication::clipboard()->setMimeData(data);
        trigger("m_editPasteAction");
        EXPECT_EQ(scene().nodes().size(), 3);
        EXPECT_FALSE(action("m_editUndoAction").isEnabled());
    }
}

TEST_F(UndoTest, ADuplicatedBranchReadsWhatItsRootReads)
{
    select({sortId});
    trigger("m_editDuplicateBranchAction");
    ASSERT_EQ(scene().nodes(true).size(), 2) << "the Sort and what is downstream";
    const TransformNode *sort = scene().transformNodes(true).first();
    EXPECT_EQ(sort->upstreamNodes(false), QList<Node *>{&node(inputId)});
    EXPECT_EQ(sort->datasetConst().toText(TextForm::CommaSeparated),
        node(sortId).datasetConst().toText(TextForm::CommaSeparated));
    EXPECT_EQ(sort->x(), node(sortId).x());
    EXPECT_GT(sort->y(), node(sortId).y());
    EXPECT_EQ(scene().outputNodes(true).first()->alias(), QStringLiteral("out1"));
}
