#include "app/application.h"
#include "app/boxanswers.h"
#include "app/documentcommands.h"
#include "app/documentsession.h"
#include "app/mainwindow.h"
#include "app/openingquestions.h"
#include "app/recoveryfile.h"
#include "app/report/runlog.h"
#include "app/startdocument.h"
#include "app/testdocument.h"
#include "data/dataset.h"
#include "graph/colors.h"
#include "graph/graphscene.h"
#include "graph/ionode.h"
#include "graph/runcontrol.h"
#include "outputnode/outputnode.h"
#include "panes/canvas/graphpane.h"
#include "panes/status/logpane.h"
#include "panes/status/statusbar.h"
#include "platform/filehold.h"
#include "settings/settings.h"
#include "support/printers.h"
#include "support/waitfor.h"
#include "transforms/frame/documentcontext.h"

#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QToolBar>
#include <QUrl>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

class MainWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        settings.setWarnOnLocaleChange(false);
        settings.setOpenAutoRun(AutoRunChoice::LeaveAutoRun);
        settings.setOpenPreviousAtStart(StartChoice::Nothing);
        settings.setRecentDocs({});
        RecoveryFile::remove();
        writeFile(path("in.csv"), "a\n1\n");
        writeFile(path("flow.transform"), plain().xml());
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
        m_window->start();
        QCoreApplication::processEvents();
    }
    void TearDown() override
    {
        stopRequested = false;
        m_window.reset();
        RecoveryFile::remove();
    }

    TestDocument plain() const
    {
        TestDocument document;
        document.inputs = inputXml(1, QStringLiteral("in"), path("in.csv"));
        document.outputs = outputXml(2, QStringLiteral("out"), path("out.csv"));
        document.connections = connectionXml(1, 2);
        return document;
    }
    QString path(const char *name) const
    {
        return QDir(m_folder.path()).canonicalPath() + QLatin1Char('/') + QString::fromLatin1(name);
    }
    bool open(const char *name) { return m_window->documents().openDocument(path(name)); }
    QAction &action(const char *name) const
    {
        auto *found = m_window->findChild<QAction *>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    /// A change such as a user makes.
    void change() { m_window->scene().addNote(QPointF(500, 500), NoteArrow::NoArrow); }

    QTemporaryDir m_folder;
    RunLog m_log;
    ScriptedPrompts m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

TEST_F(MainWindowTest, OpeningRunsAndNames)
{
    const QString empty = m_window->windowTitle();
    EXPECT_TRUE(empty.startsWith(QStringLiteral("Quillmere 1.")) && empty.endsWith(QStringLiteral("[*]")))
        << empty.toStdString();
    ASSERT_TRUE(open("flow.transform"));
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("flow.transform - ") + empty);
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_EQ(readFile(path("out.csv")), "a\n1\n") << "auto run is on in the document";
    const QString log = m_window->findChild<LogPane *>()->toPlainText();
    EXPECT_TRUE(log.startsWith(QStringLiteral("Started: "))) << log.toStdString();
    EXPECT_TRUE(log.contains(QStringLiteral("2 item(s) processed in ")));
    EXPECT_TRUE(log.contains(QStringLiteral("Up to date: 2, Needs updating: 0, Error: 0")));
}

TEST_F(MainWindowTest, BatchRowsAreSavedWithTheDocument)
{
    ASSERT_TRUE(open("flow.transform"));
    QFile::remove(path("out.csv"));
    {
        BoxAnswers answers({QStringLiteral("Process"), QStringLiteral("Add")});
        action("m_fileBatchProcessAction").trigger();
        EXPECT_EQ(answers.texts(), QStringList("Batch Process[*]"));
        EXPECT_TRUE(QFile::exists(path("out.csv")));
        EXPECT_FALSE(m_window->isWindowModified()) << "the grid hasn't changed";
        action("m_fileBatchProcessAction").trigger();
        EXPECT_TRUE(m_window->isWindowModified());
    }
    action("m_fileSaveAction").trigger();
    DocumentSession other;
    LoadedDocument loaded;
    QString error;
    ASSERT_TRUE(other.load(path("flow.transform"), loaded, error));
    EXPECT_EQ(other.batch().rowCount(), 2);
    EXPECT_EQ(other.batch().values.value({1, QStringLiteral("in")}), path("in.csv"));
    EXPECT_TRUE(other.batch() == loaded.batch);
}

TEST_F(MainWindowTest, ADocumentThatBatchesCantRunIsRefused)
{
    TestDocument document = plain();
    document.outputs = outputXml(2, QStringLiteral("out"), path("out.csv"), 0);
    writeFile(path("off.transform"), document.xml());
    ASSERT_TRUE(open("off.transform"));
    const BoxAnswers answers;
    action("m_fileBatchProcessAction").trigger();
    EXPECT_EQ(answers.texts(), QStringList("There must be at least 1 Output/Chart item that is writing to a file."));
}

TEST_F(MainWindowTest, AutoRunOffLeavesItToTheUser)
{
    TestDocument document = plain();
    document.meta = "<auto_run_on value=\"0\"/>";
    writeFile(path("off.transform"), document.xml());
    ASSERT_TRUE(open("off.transform"));
    EXPECT_FALSE(QFile::exists(path("out.csv")));
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_FALSE(action("m_runAutoAction").isChecked());
    EXPECT_TRUE(action("m_runChangedAction").isEnabled());
    EXPECT_FALSE(action("m_runSelectedAction").isEnabled());
    action("m_runChangedAction").trigger();
    EXPECT_EQ(readFile(path("out.csv")), "a\n1\n");
    EXPECT_FALSE(action("m_runChangedAction").isEnabled()) << "nothing is left to run";
    EXPECT_FALSE(m_window->isWindowModified()) << "a run isn't a change";
    QFile::remove(path("out.csv"));
    action("m_runEverythingAction").trigger();
    EXPECT_TRUE(QFile::exists(path("out.csv")));
    action("m_runAutoAction").setChecked(true);
    EXPECT_TRUE(m_window->isWindowModified());
}

TEST_F(MainWindowTest, SavingKeepsTheFileHeld)
{
    ASSERT_TRUE(open("flow.transform"));
    EXPECT_FALSE(platform::FileHold().acquire(path("flow.transform")));
    change();
    EXPECT_TRUE(m_window->isWindowModified());
    action("m_fileSaveAction").trigger();
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_TRUE(readFile(path("flow.transform")).contains("<note "));
    EXPECT_FALSE(platform::FileHold().acquire(path("flow.transform")));
    {
        BoxAnswers none;
        action("m_fileNewAction").trigger();
        EXPECT_EQ(none.texts(), QStringList()) << "nothing to save, nothing to ask";
    }
    EXPECT_TRUE(platform::FileHold().acquire(path("flow.transform")));
    EXPECT_TRUE(m_window->scene().nodes().isEmpty());
}

TEST_F(MainWindowTest, SavingAsAsksForAName)
{
    ASSERT_TRUE(open("flow.transform"));
    m_prompts.paths = QStringList{path("other"), QString(), path("flow"), path("none/x.transform")};
    action("m_fileSaveAsAction").trigger();
    EXPECT_TRUE(readFile(path("other.transform")).contains("<input ")) << "the suffix is added";
    EXPECT_TRUE(m_window->windowTitle().startsWith(QStringLiteral("other.transform - ")));
    EXPECT_EQ(m_prompts.requests.first().start, path("flow.transform"));
    action("m_fileSaveAsAction").trigger();
    BoxAnswers answers({QStringLiteral("No"), QStringLiteral("OK")});
    action("m_fileSaveAsAction").trigger();
    action("m_fileSaveAsAction").trigger();
    EXPECT_EQ(answers.texts(),
        (QStringList{QStringLiteral("%1 already exists.\nDo you want to replace it?").arg(path("flow.transform")),
            QStringLiteral("Folder '%1' does not exist.").arg(path("none"))}));
    EXPECT_TRUE(m_window->windowTitle().startsWith(QStringLiteral("other.transform - ")));
}

TEST_F(MainWindowTest, MissingInputsAreReplaced)
{
    TestDocument missing = plain();
    missing.inputs = inputXml(1, QStringLiteral("in"), path("gone.csv"))
                     + inputXml(3, QStringLiteral("two"), path("gone.csv"));
    writeFile(path("missing.transform"), missing.xml());
    m_prompts.paths = QStringList{path("in.csv")};
    const BoxAnswers answers({QStringLiteral("OK")});
    ASSERT_TRUE(open("missing.transform"));
    ASSERT_EQ(m_prompts.requests.size(), 1) << "the same file is asked for once";
    EXPECT_EQ(m_prompts.requests.first().title, QStringLiteral("Input alias=in"));
    EXPECT_EQ(m_prompts.requests.first().start, path("").chopped(1));
    EXPECT_EQ(readFile(path("out.csv")), "a\n1\n");
    EXPECT_TRUE(m_window->isWindowModified());
}

TEST_F(MainWindowTest, SavingFindsANewFileInThePlaceOfTheHeldOne)
{
    ASSERT_TRUE(open("flow.transform"));
    QFile::remove(path("flow.transform"));
    writeFile(path("flow.transform"), "by another program");
    change();
    action("m_fileSaveAction").trigger();
    EXPECT_TRUE(readFile(path("flow.transform")).contains("<note "));
}

TEST_F(MainWindowTest, AHeldDocumentOpensToBeRead)
{
    platform::FileHold other;
    ASSERT_TRUE(other.acquire(path("flow.transform")));
    const QByteArray before = readFile(path("flow.transform"));
    {
        BoxAnswers answers({QStringLiteral("Cancel")});
        EXPECT_FALSE(open("flow.transform"));
        EXPECT_EQ(answers.texts(),
            QStringList{QStringLiteral(
                "Cannot open '%1' to write.\nYou may have insufficient access, it may be read-only or it may "
                "be open in another application.\nOpen it read-only and select 'File'>Save as...' to save it "
                "to a different filename/folder.")
                            .arg(path("flow.transform"))});
    }
    BoxAnswers answers({QStringLiteral("OK"), QStringLiteral("OK")});
    EXPECT_TRUE(open("flow.transform"));
    change();
    action("m_fileSaveAction").trigger();
    ASSERT_EQ(answers.texts().size(), 2);
    EXPECT_TRUE(answers.texts().last().startsWith(QStringLiteral("Unable to save '%1'. ").arg(path("flow.transform"))));
    EXPECT_EQ(readFile(path("flow.transform")), before) << "the other instance's file is left alone";
    EXPECT_TRUE(m_window->isWindowModified());
}

TEST_F(MainWindowTest, WhatCantBeOpenedLeavesThePresentDocument)
{
    ASSERT_TRUE(open("flow.transform"));
    writeFile(path("broken.transform"), "<root>");
    BoxAnswers answers({QStringLiteral("OK"), QStringLiteral("OK")});
    EXPECT_FALSE(open("broken.transform"));
    m_window->documents().onOpenPath(path("gone.transform"));
    ASSERT_EQ(answers.texts().size(), 2);
    EXPECT_TRUE(
        answers.texts().first().startsWith(QStringLiteral("Unable to open '%1': ").arg(path("broken.transform"))));
    EXPECT_EQ(answers.texts().last(), QStringLiteral("'%1' not found.").arg(path("gone.transform")));
    EXPECT_EQ(m_window->scene().nodes().size(), 2);
    EXPECT_FALSE(platform::FileHold().acquire(path("flow.transform"))) << "and its file stays held";
    EXPECT_TRUE(platform::FileHold().acquire(path("broken.transform")));
}

struct MessageCase
{
    const char *what;
    TestDocument document;
    QStringList buttons;
    QString said;
    bool modified;
};

TEST_F(MainWindowTest, QuestionsOfOpening)
{
    TestDocument unknown = plain();
    unknown.transforms = "<transform id=\"7\" name=\"Wobble\"/><transform id=\"8\" name=\"Trim\"/>";
    TestDocument later = plain();
    later.version = 87;
    TestDocument missing = plain();
    missing.inputs = inputXml(1, QStringLiteral("in"), path("gone.csv"))
                     + inputXml(3, QStringLiteral("two"), path("gone.csv"));
    TestDocument manyMissing;
    for (int i = 0; i < 7; ++i) {
        manyMissing.inputs += inputXml(i, QString::number(i), QStringLiteral("/no/%1.csv").arg(i));
    }
    TestDocument unset;
    unset.inputs = inputXml(1, QStringLiteral("in"), QString());
    TestDocument repeated = plain();
    repeated.connections += connectionXml(1, 2);
    const MessageCase cases[] = {
        {"faults that were repaired", repeated, {"OK"},
            "This document had faults and was opened with these changes:\n1 repeated connection was removed: 1 to 2",
            false},
        {"transforms that aren't known any more, or not yet", unknown, {"OK"},
            "The following deprecated transforms were not added:\n'Trim' (1 occurrence) - use the newer 'Whitespace' "
            "transform.\n\n"
            "The following unknown transforms were not added:\n'Wobble' (1 occurrence)",
            false},
        {"a document from the future", later, {"Cancel"},
            "This document was created with a later version of the software.\nSome information may not be readable and "
            "information "
            "may be lost if you overwrite the existing document.\nIt is recommended that you click 'Save' and save to "
            "a new document "
            "before continuing.",
            false},
        {"one file that is gone, named by two inputs", missing, {"Cancel"},
            QStringLiteral("The following input file cannot be found:\n\n%1\n\nDo you wish to choose a new input file?")
                .arg(path("gone.csv")),
            false},
        {"seven that are gone", manyMissing, {"Cancel"},
            "The following 7 input files cannot be found:\n\n/no/0.csv\n/no/1.csv\n/no/2.csv\n/no/3.csv\n/no/4.csv\n+ "
            "2 more\n\n"
            "Do you wish to choose new input files?",
            false},
        {"an input without a file", unset, {"Cancel"},
            "The following input file cannot be found:\n\n<unset>\n\nDo you wish to choose a new input file?", false},
    };
    for (const MessageCase &c : cases) {
        SCOPED_TRACE(c.what);
        writeFile(path("case.transform"), c.document.xml());
        BoxAnswers answers(c.buttons);
        EXPECT_TRUE(open("case.transform"));
        EXPECT_EQ(answers.texts(), QStringList{c.said});
        EXPECT_EQ(m_window->isWindowModified(), c.modified);
    }
}

struct GuardCase
{
    const char *what;
    AutoRunChoice setting;
    QStringList buttons;
    bool asks;
    bool autoRun;
    bool writes;
};

TEST_F(MainWindowTest, GuardsFilesThatOpeningWouldWrite)
{
    const GuardCase cases[] = {
        {"left alone", AutoRunChoice::LeaveAutoRun, {}, false, true, true},
        {"asked and kept", AutoRunChoice::AskToDisableAutoRun, {"Keep auto run enabled"}, true, true, true},
        {"asked and off", AutoRunChoice::AskToDisableAutoRun, {"Disable auto run"}, true, false, false},
        {"the box closed without an answer", AutoRunChoice::AskToDisableAutoRun, {}, true, true, true},
        {"outputs asked and off", AutoRunChoice::AskToDisableOutputs, {"Disable output(s)"}, true, true, false},
        {"outputs asked and kept", AutoRunChoice::AskToDisableOutputs, {"Write to output(s)"}, true, true, true},
        {"off without a question", AutoRunChoice::DisableAutoRun, {}, false, false, false},
        {"outputs off without a question", AutoRunChoice::DisableOutputs, {}, false, true, false},
    };
    for (const GuardCase &c : cases) {
        SCOPED_TRACE(c.what);
        QFile::remove(path("out.csv"));
        Settings::current().setOpenAutoRun(c.setting);
        BoxAnswers answers(c.buttons);
        ASSERT_TRUE(open("flow.transform"));
        EXPECT_EQ(answers.texts().size(), c.asks ? 1 : 0);
        EXPECT_EQ(m_window->isAutoRunOn(), c.autoRun);
        EXPECT_EQ(action("m_runAutoAction").isChecked(), c.autoRun);
        EXPECT_EQ(QFile::exists(path("out.csv")), c.writes);
        EXPECT_EQ(m_window->isWindowModified(), !c.writes) << "an answer that changes the document";
    }
    TestDocument reading;
    reading.inputs = inputXml(1, QStringLiteral("in"), path("in.csv"));
    writeFile(path("reading.transform"), reading.xml());
    Settings::current().setOpenAutoRun(AutoRunChoice::AskToDisableAutoRun);
    BoxAnswers answers;
    EXPECT_TRUE(open("reading.transform"));
    EXPECT_EQ(answers.texts(), QStringList()) << "nothing would be written";
}

TEST_F(MainWindowTest, ListOfWrittenFilesIsCut)
{
    for (int i = 0; i < 22; ++i) {
        m_window->scene().insertNode(new OutputNode(QStringLiteral("/o/%1.csv").arg(i)), QPointF(0, i * 150));
    }
    const QStringList lines = OpeningQuestions::writtenFilesList(m_window->scene()).split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 21);
    EXPECT_EQ(lines.first(), QStringLiteral("/o/0.csv (Overwrite)"));
    EXPECT_EQ(lines.last(), QStringLiteral("...+2 more"));
}

TEST_F(MainWindowTest, ClosingAsksForChanges)
{
    ASSERT_TRUE(open("flow.transform"));
    change();
    {
        BoxAnswers answers({QStringLiteral("Cancel")});
        EXPECT_FALSE(m_window->close());
        EXPECT_EQ(answers.texts(), QStringList{QStringLiteral("Save changes?")});
    }
    {
        BoxAnswers answers({QStringLiteral("Save")});
        EXPECT_TRUE(m_window->close());
    }
    EXPECT_TRUE(readFile(path("flow.transform")).contains("<note "));
    EXPECT_EQ(Settings::current().previousPath(), path("flow.transform"));
    const int sessions = Settings::current().sessions();
    m_window.reset();
    EXPECT_EQ(Settings::current().sessions(), sessions + 1);
}

TEST_F(MainWindowTest, ChangesAreKeptForRecovery)
{
    ASSERT_TRUE(open("flow.transform"));
    change();
    EXPECT_FALSE(QFile::exists(RecoveryFile::path())) << "the copy is made before a change, and there was none";
    change();
    ASSERT_TRUE(QFile::exists(RecoveryFile::path()));
    const QByteArray first = readFile(RecoveryFile::path());
    change();
    EXPECT_EQ(readFile(RecoveryFile::path()), first) << "not again within a minute";
    m_window->saveRecoveryNow();
    EXPECT_NE(readFile(RecoveryFile::path()), first);

    ASSERT_TRUE(m_window->documents().openDocument(RecoveryFile::path()));
    EXPECT_TRUE(m_window->isWindowModified());
    EXPECT_TRUE(m_window->windowTitle().startsWith(QStringLiteral("Quillmere "))) << "it has no path of its own";
    BoxAnswers answers({QStringLiteral("Discard")});
    action("m_fileNewAction").trigger();
    EXPECT_FALSE(QFile::exists(RecoveryFile::path()));
}

TEST_F(MainWindowTest, WhatAKilledProgramKeptIsOffered)
{
    const auto editAndDie = [this] {
        open("flow.transform");
        change();
        change();
        change();
        ::raise(SIGKILL);
    };
    EXPECT_EXIT(editAndDie(), testing::KilledBySignal(SIGKILL), "");
    ASSERT_TRUE(QFile::exists(RecoveryFile::path()));
    const RecentDocuments recent(QDir::tempPath());
    const auto start = [&](int instances, const char *answer) {
        const BoxAnswers answers({QString::fromLatin1(answer)});
        const QString path = startDocument(*Application::instance(), CommandLine(), recent, m_prompts, instances);
        EXPECT_EQ(answers.texts().size(), instances == 1 ? 1 : 0);
        return path;
    };
    EXPECT_EQ(start(2, "OK"), QString()) << "it may be that of the other instance";
    EXPECT_EQ(start(1, "Cancel"), QString());
    EXPECT_EQ(start(1, "OK"), RecoveryFile::path());
    ASSERT_TRUE(m_window->documents().openDocument(RecoveryFile::path()));
    EXPECT_EQ(m_window->scene().noteNodes().size(), 1) << "as it was before the second change";
    EXPECT_EQ(m_window->scene().connections().size(), 1);
    EXPECT_TRUE(m_window->isWindowModified());
    if (::getuid() == 0) {
        const uid_t somebodyElse = 65534;
        ASSERT_EQ(::chown(QFile::encodeName(RecoveryFile::path()).constData(), somebodyElse, somebodyElse), 0);
        EXPECT_FALSE(RecoveryFile::canBeOffered(1));
        ASSERT_EQ(::chown(QFile::encodeName(RecoveryFile::path()).constData(), 0, 0), 0);
    }
}

TEST_F(MainWindowTest, RecentMenuOffersOtherDocuments)
{
    writeFile(path("second.transform"), plain().xml());
    ASSERT_TRUE(open("flow.transform"));
    ASSERT_TRUE(open("second.transform"));
    QMenu *menu = nullptr;
    for (QMenu *candidate : m_window->findChildren<QMenu *>()) {
        menu = candidate->title() == QStringLiteral("&Recent") ? candidate : menu;
    }
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().first()->text(), path("flow.transform"));
    menu->actions().first()->trigger();
    EXPECT_TRUE(waitFor([this] { return m_window->windowTitle().startsWith(QStringLiteral("flow.transform")); }));
    EXPECT_EQ(menu->actions().first()->text(), path("second.transform"));
}

TEST_F(MainWindowTest, NothingButStopDuringARun)
{
    ASSERT_TRUE(open("flow.transform"));
    bool stopEnabled = false;
    bool newEnabled = true;
    bool runAgain = true;
    QObject::connect(&m_window->scene(), &GraphScene::nodeProcessed, m_window.get(), [&] {
        stopEnabled = action("m_runStopAction").isEnabled();
        newEnabled = action("m_fileNewAction").isEnabled();
        runAgain = action("m_runEverythingAction").isEnabled();
        action("m_runStopAction").trigger();
    });
    QFile::remove(path("out.csv"));
    m_window->scene().runTransforms(RunMode::Everything, true);
    EXPECT_TRUE(stopEnabled);
    EXPECT_FALSE(newEnabled);
    EXPECT_FALSE(runAgain);
    EXPECT_FALSE(QFile::exists(path("out.csv"))) << "stopped after the input";
    EXPECT_FALSE(action("m_runStopAction").isEnabled());
    EXPECT_TRUE(action("m_fileNewAction").isEnabled());
    EXPECT_FALSE(m_window->isAutoRunOn()) << "or the next change would start it again";
    EXPECT_TRUE(m_window->findChild<LogPane *>()->toPlainText().contains(QStringLiteral("Run stopped by user")));
}

TEST_F(MainWindowTest, WindowFollowsTheSettings)
{
    ASSERT_TRUE(open("flow.transform"));
    Settings &settings = Settings::current();
    const QFont font = QApplication::font();
    settings.setColorScheme(ColorScheme::Vivid);
    EXPECT_EQ(m_window->scene().colors().color(Colors::Background), QColor(44, 44, 44));
    EXPECT_EQ(m_window->scene().backgroundBrush().color(), QColor(44, 44, 44));
    settings.setColorScheme(ColorScheme::Custom);
    settings.setCustomColor(Colors::Background, QColor(1, 2, 3));
    EXPECT_EQ(m_window->scene().backgroundBrush().color(), QColor(1, 2, 3));
    auto *toolBar = m_window->findChild<QToolBar *>();
    settings.setToolbarIconSize(ToolBarIcons::Large);
    EXPECT_EQ(toolBar->iconSize(), QSize(32, 32));
    settings.setUiFont(QFont(font.family(), font.pointSize() + 3));
    EXPECT_EQ(QApplication::font().pointSize(), font.pointSize() + 3);
    settings.setOptimizeFor(RunOptimum::Speed);
    EXPECT_TRUE(Dataset::maximumSpeed());
    const auto *memory = m_window->findChild<StatusBar *>()->findChild<QLabel *>(QStringLiteral("memory"));
    settings.setMaxMemoryUsage(12.5);
    EXPECT_TRUE(memory->text().endsWith(QStringLiteral("of 12.5GB"))) << memory->text().toStdString();

    settings.setMaxMemoryUsage(4);
    settings.setOptimizeFor(RunOptimum::Memory);
    settings.setUiFont(font);
    settings.setToolbarIconSize(ToolBarIcons::Medium);
    settings.setColorScheme(ColorScheme::Modern);
    EXPECT_FALSE(Dataset::maximumSpeed());
}

TEST_F(MainWindowTest, MemoryCeilingCanBeRaised)
{
    ASSERT_TRUE(open("flow.transform"));
    RunControl::setMemoryReader([] { return 4.2; });
    Settings::current().setMaxMemoryUsage(4.0);
    {
        BoxAnswers answers({QStringLiteral("Continue")});
        m_window->scene().runTransforms(RunMode::Everything, true);
        EXPECT_EQ(answers.texts(), QStringList{QStringLiteral("Quillmere")});
    }
    EXPECT_EQ(Settings::current().maxMemoryUsage(), 4.5);
    EXPECT_EQ(m_window->scene().nodesInState(NodeState::Processed).size(), 2);
    RunControl::setMemoryReader({});
    Settings::current().setMaxMemoryUsage(4.0);
}

TEST_F(MainWindowTest, ManyFilesAreConfirmed)
{
    writeFile(path("in.csv"), "a,file\n1,x.csv\n");
    TestDocument document = plain();
    document.outputs.replace("<output ", "<output single_or_multi=\"1\" multi_file_column=\"2\" ");
    writeFile(path("many.transform"), document.xml());
    {
        const BoxAnswers answers({QStringLiteral("Cancel")});
        ASSERT_TRUE(open("many.transform"));
        EXPECT_EQ(answers.texts(), QStringList{QStringLiteral("Multi file output")});
    }
    EXPECT_EQ(readFile(path("x.csv")), "no file");
    const BoxAnswers answers({QStringLiteral("OK")});
    action("m_runEverythingAction").trigger();
    EXPECT_EQ(answers.texts(), QStringList{QStringLiteral("Multi file output")});
    EXPECT_EQ(readFile(path("x.csv")), "a\n1\n");
}

TEST_F(MainWindowTest, AFolderIsReadAsThePersonSays)
{
    QDir(m_folder.path()).mkpath(QStringLiteral("many"));
    writeFile(path("many/a.tsv"), "x\n1\n");
    writeFile(path("many/b.tsv"), "x\n2\n");
    GraphPane &pane = *m_window->findChild<GraphPane *>();
    const QList<QUrl> urls = {QUrl::fromLocalFile(path("many"))};
    {
        const BoxAnswers answers({QStringLiteral("Cancel")});
        pane.onProcessDroppedPaths(urls, QPointF(10, 10));
        EXPECT_EQ(answers.texts(), QStringList{QStringLiteral("Folder To Input")});
        EXPECT_TRUE(m_window->scene().nodes().isEmpty());
        EXPECT_FALSE(action("m_editUndoAction").isEnabled());
    }
    const BoxAnswers answers({QStringLiteral("OK")});
    pane.onProcessDroppedPaths(urls, QPointF(10, 10));
    ASSERT_EQ(m_window->scene().nodes().size(), 1);
    EXPECT_EQ(m_window->scene().nodes().first()->dataset().rowCount(), 2) << "with the wildcard that was proposed";
}

TEST_F(MainWindowTest, TheClipboardBecomesAnInput)
{
    const auto paste = [this](QMimeData *data) {
        QGuiApplication::clipboard()->setMimeData(data);
        action("m_inputFromClipboardAction").trigger();
    };
    const auto names = [this] {
        QStringList found;
        for (const Node *node : m_window->scene().nodes()) {
            found.append(node->name());
        }
        found.sort();
        return found;
    };
    auto *text = new QMimeData;
    text->setText("a,b");
    paste(text);
    EXPECT_EQ(names(), QStringList("Clipboard"));
    auto *files = new QMimeData;
    files->setUrls({QUrl::fromLocalFile(path("in.csv"))});
    paste(files);
    EXPECT_EQ(names(), (QStringList{"Clipboard", "in.csv"}));
    const BoxAnswers answers;
    auto *picture = new QMimeData;
    picture->setData("image/png", "no text");
    paste(picture);
    EXPECT_EQ(answers.texts(), QStringList("Data type pasted not recognized."));
    EXPECT_EQ(names().size(), 2);
}

TEST_F(MainWindowTest, ZoomStaysWithinItsBounds)
{
    ASSERT_TRUE(open("flow.transform"));
    auto *pane = m_window->findChild<GraphPane *>();
    EXPECT_TRUE(pane->isAutoZoom());
    for (int i = 0; i < 40; ++i) {
        action("m_viewZoomInAction").trigger();
    }
    EXPECT_DOUBLE_EQ(pane->scale(), 3.0);
    EXPECT_FALSE(action("m_viewZoomInAction").isEnabled());
    EXPECT_FALSE(action("m_viewZoomFitAction").isChecked()) << "zooming by hand ends the fitting";
    for (int i = 0; i < 40; ++i) {
        action("m_viewZoomOutAction").trigger();
    }
    EXPECT_DOUBLE_EQ(pane->scale(), 0.1);
    action("m_viewZoomFitAction").setChecked(true);
    EXPECT_GT(pane->scale(), 0.1);
}

TEST_F(MainWindowTest, AnotherSceneTakesThePlaceOfTheLiveOne)
{
    ASSERT_TRUE(open("flow.transform"));
    DocumentSession &session = m_window->session();
    const GraphScene *first = &session.scene();
    auto next = session.newScene();
    EXPECT_EQ(next->documentPath(), path("flow.transform"));
    next->setSnapToGrid(false);
    next->setAutoRunOn(false);
    std::unique_ptr<GraphScene> old = session.exchangeScene(std::move(next));
    EXPECT_EQ(old.get(), first);
    EXPECT_FALSE(old->snapToGrid()) << "these belong to the document, whichever scene shows it";
    EXPECT_FALSE(m_window->isAutoRunOn());
    EXPECT_EQ(m_window->findChild<GraphPane *>()->scene(), &session.scene());
    EXPECT_FALSE(m_window->isWindowModified());
    old->addNote(QPointF(0, 0), NoteArrow::NoArrow);
    EXPECT_FALSE(m_window->isWindowModified()) << "nobody listens to a scene that isn't live";
    change();
    EXPECT_TRUE(m_window->isWindowModified());
    action("m_fileSaveAction").trigger();
    const QByteArray saved = readFile(path("flow.transform"));
    EXPECT_TRUE(saved.contains("<note ") && !saved.contains("<input ")) << "the live scene is what is saved";
    old.reset();
    action("m_editSelectAllAction").trigger();
    action("m_editDeleteAction").trigger();
    EXPECT_TRUE(session.scene().nodes().isEmpty());
}

TEST_F(MainWindowTest, ASceneOfAnotherDocumentLeavesThisOneAlone)
{
    ASSERT_TRUE(open("flow.transform"));
    GraphScene other;
    other.setDocumentPath(QStringLiteral("/elsewhere.transform"));
    other.setAutoRunOn(false);
    other.runTransforms(RunMode::Everything, true);
    m_window->scene().runTransforms(RunMode::Everything, true);
    EXPECT_EQ(DocumentContext::path(), path("flow.transform"));
    EXPECT_TRUE(m_window->isAutoRunOn());
}

TEST_F(MainWindowTest, SelectedItemsAreDeleted)
{
    ASSERT_TRUE(open("flow.transform"));
    EXPECT_FALSE(action("m_editDeleteAction").isEnabled());
    action("m_editSelectAllAction").trigger();
    EXPECT_TRUE(action("m_editDeleteAction").isEnabled());
    action("m_editDeleteAction").trigger();
    EXPECT_TRUE(m_window->scene().nodes().isEmpty());
    EXPECT_TRUE(m_window->isWindowModified());
}

TEST_F(MainWindowTest, EveryActionSaysWhatItIs)
{
    for (const QAction *each : m_window->findChildren<QAction *>(QRegularExpression(QStringLiteral("^m_.*Action$")))) {
        SCOPED_TRACE(each->objectName().toStdString());
        EXPECT_FALSE(each->text().isEmpty());
        EXPECT_FALSE(each->statusTip().isEmpty());
        const QString keys = each->shortcut().toString(QKeySequence::NativeText);
        EXPECT_TRUE(keys.isEmpty() || each->toolTip().endsWith(QStringLiteral(" (%1)").arg(keys)));
    }
}

} // namespace

namespace {

/// A person who changes what a dialog shows before accepting it.
class EditingPrompts : public ScriptedPrompts
{
public:
    std::function<void(QDialog &)> edit;
    int exec(QDialog &dialog) override
    {
        edit(dialog);
        dialog.accept();
        return dialog.result();
    }
};

} // namespace

TEST_F(MainWindowTest, NotesAndLocaleBelongToTheDocument)
{
    EditingPrompts prompts;
    m_window.reset();
    m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &prompts);
    m_window->start();
    QCoreApplication::processEvents();
    ASSERT_TRUE(open("flow.transform"));
    prompts.edit = [](QDialog &) {};
    action("m_fileNotesAction").trigger();
    action("m_editLocaleAction").trigger();
    EXPECT_FALSE(m_window->isWindowModified()) << "nothing was changed";

    prompts.edit = [](QDialog &dialog) { dialog.findChild<QPlainTextEdit *>()->setPlainText("why"); };
    action("m_fileNotesAction").trigger();
    EXPECT_TRUE(m_window->isWindowModified());
    EXPECT_EQ(m_window->session().notes(), QStringLiteral("why"));
    action("m_fileSaveAction").trigger();
    EXPECT_FALSE(m_window->isWindowModified());

    QFile::remove(path("out.csv"));
    const QLocale before;
    prompts.edit = [](QDialog &dialog) {
        dialog.findChildren<QComboBox *>().first()->setCurrentText(QStringLiteral("German"));
    };
    action("m_editLocaleAction").trigger();
    EXPECT_EQ(QLocale().language(), QLocale::German);
    EXPECT_TRUE(m_window->isWindowModified());
    EXPECT_EQ(readFile(path("out.csv")), "a\n1\n") << "everything has run again";
    QLocale::setDefault(before);
}

TEST_F(MainWindowTest, ADocumentOfTheRecentListOpens)
{
    ASSERT_TRUE(open("flow.transform"));
    EditingPrompts prompts;
    prompts.edit = [](QDialog &) {};
    m_window.reset();
    Application::instance()->settings().setOpenPreviousAtStart(StartChoice::RecentWindow);
    m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &prompts);
    m_window->start();
    EXPECT_TRUE(waitFor([this] { return !m_window->session().path().isEmpty(); })) << "at the start";
    action("m_fileNewAction").trigger();
    EXPECT_TRUE(m_window->session().path().isEmpty());
    action("m_fileOpenRecentAction").trigger();
    EXPECT_EQ(m_window->session().path(), path("flow.transform"));
}
