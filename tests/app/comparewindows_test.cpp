#include "app/application.h"
#include "app/boxanswers.h"
#include "app/documentcommands.h"
#include "app/mainwindow.h"
#include "app/recoveryfile.h"
#include "app/report/runlog.h"
#include "app/testdocument.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/runcontrol.h"
#include "panes/explore/comparedatasetsdialog.h"
#include "panes/explore/compareheadersdialog.h"
#include "panes/explore/explorekeysbutton.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "settings/settings.h"
#include "support/printers.h"
#include "support/waitfor.h"

#include <QAction>
#include <QLabel>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// Windows that compare items, opened from the real window and left open while the items change.

namespace {

constexpr int leftId = 1;
constexpr int rightId = 2;
constexpr int mergeId = 3;

class CompareWindowsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        settings.setWarnOnLocaleChange(false);
        settings.setOpenAutoRun(AutoRunChoice::LeaveAutoRun);
        settings.setOpenPreviousAtStart(StartChoice::Nothing);
        RecoveryFile::remove();
        writeFile(path("left.csv"), "id,name\n1,ann\n2,bob\n");
        writeFile(path("right.csv"), "id,name\n1,ann\n2,rob\n3,cyd\n");
        TestDocument document;
        document.inputs = inputXml(leftId, QStringLiteral("left"), path("left.csv"))
                          + inputXml(rightId, QStringLiteral("right"), path("right.csv"),
                              "pos_v12=\"0\x1f"
                              "200\"");
        document.transforms = "<transform id=\"3\" name=\"Intersect\"><parameters>"
                              "<parameter name=\"Column_1\" value=\"1\"/><parameter name=\"Column_2\" value=\"1\"/>"
                              "</parameters></transform>";
        document.connections = connectionXml(leftId, mergeId) + connectionXml(rightId, mergeId);
        writeFile(path("flow.transform"), document.xml());
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
        m_window->start();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
        ASSERT_TRUE(m_window->documents().openDocument(path("flow.transform")));
    }
    void TearDown() override
    {
        stopRequested = false;
        m_window.reset();
        QLocale::setDefault(m_locale); // a new document takes that of the settings
        RecoveryFile::remove();
    }

    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    GraphScene &scene() const { return m_window->scene(); }
    void select(const QList<int> &ids) const
    {
        scene().clearSelection();
        for (const int id : ids) {
            scene().nodeById(id)->setSelected(true);
        }
    }
    QAction &action(const char *name) const { return *m_window->findChild<QAction *>(QString::fromLatin1(name)); }
    CompareDatasetsDialog *compareData() const
    {
        select({leftId, rightId});
        action("m_viewCompareDataAction").trigger();
        return m_window->findChild<CompareDatasetsDialog *>();
    }
    static QString rowDifferences(const CompareDatasetsDialog &dialog)
    {
        for (const QLabel *label : dialog.findChildren<QLabel *>()) {
            if (label->accessibleName() == "Row differences:") {
                return label->text();
            }
        }
        return QStringLiteral("no label");
    }

    QTemporaryDir m_folder;
    RunLog m_log;
    ScriptedPrompts m_prompts;
    const QLocale m_locale;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace

TEST_F(CompareWindowsTest, ActionsAreThereForWhatCanBeCompared)
{
    struct Case
    {
        QList<int> selected;
        bool data;
        bool headers;
    };
    scene().addNote(QPointF(0, 900), NoteArrow::NoArrow);
    int noteId = 0;
    for (const Node *node : scene().nodes()) {
        noteId = qMax(noteId, node->id());
    }
    const Case cases[] = {
        {{}, false, false},
        {{leftId}, false, false},
        {{leftId, rightId}, true, true},
        {{leftId, noteId}, false, false},
        {{leftId, rightId, mergeId}, false, true},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.selected.size());
        select(c.selected);
        EXPECT_EQ(action("m_viewCompareDataAction").isEnabled(), c.data);
        EXPECT_EQ(action("m_viewCompareHeadersAction").isEnabled(), c.headers);
    }
    select({leftId, rightId, mergeId});
    action("m_viewCompareHeadersAction").trigger();
    EXPECT_TRUE(m_window->findChild<CompareHeadersDialog *>());
}

TEST_F(CompareWindowsTest, AnOpenWindowFollowsRunsDeletionAndUndo)
{
    CompareDatasetsDialog *dialog = compareData();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(rowDifferences(*dialog), "2");
    writeFile(path("right.csv"), "id,name\n1,ann\n2,bob\n");
    select({rightId});
    action("m_runAutoAction").setChecked(false);
    action("m_runSelectedAction").trigger();
    EXPECT_TRUE(waitFor([&] { return rowDifferences(*dialog) == "0"; }));
    select({rightId});
    action("m_editDeleteAction").trigger();
    EXPECT_TRUE(waitFor([&] { return rowDifferences(*dialog).isEmpty(); }));
    action("m_editUndoAction").trigger();
    ASSERT_TRUE(scene().nodeById(rightId));
    action("m_runEverythingAction").trigger();
    EXPECT_TRUE(waitFor([&] { return rowDifferences(*dialog) == "0"; }));
    action("m_runAutoAction").setChecked(true);
}

TEST_F(CompareWindowsTest, AnotherDocumentClosesIt)
{
    const QPointer<CompareDatasetsDialog> dialog = compareData();
    ASSERT_TRUE(dialog);
    m_window->session().setModified(false);
    action("m_fileNewAction").trigger();
    EXPECT_TRUE(waitFor([&] { return dialog.isNull(); }));
}

TEST_F(CompareWindowsTest, KeysAreExploredFromThePanel)
{
    select({mergeId});
    auto *button = m_window->findChild<ExploreKeysButton *>();
    ASSERT_TRUE(button);
    EXPECT_EQ(button->text(), "Explore &Keys...");
    ASSERT_TRUE(button->isEnabled());
    const BoxAnswers answers;
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(answers.texts(), QStringList{"Explore Keys"});
    select({leftId});
    // The panel before goes when its events are done.
    EXPECT_TRUE(waitFor([this] { return !m_window->findChild<ExploreKeysButton *>(); }));
}
