#include "app/actiontable.h"
#include "app/application.h"
#include "app/boxanswers.h"
#include "app/documentcommands.h"
#include "app/mainactions.h"
#include "app/mainwindow.h"
#include "app/recoveryfile.h"
#include "app/report/runlog.h"
#include "app/testdocument.h"
#include "app/uithemes.h"
#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/runcontrol.h"
#include "settings/settings.h"

#include <QMenuBar>
#include <QTemporaryDir>
#include <QToolBar>
#include <gtest/gtest.h>

// The table of actions as a whole, in the real window.

namespace {

class ActionTableTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        settings.setWarnOnLocaleChange(false);
        settings.setOpenAutoRun(AutoRunChoice::LeaveAutoRun);
        settings.setOpenPreviousAtStart(StartChoice::Nothing);
        settings.setUiTheme(UiTheme::Light);
        RecoveryFile::remove();
        writeFile(path("in.csv"), "a\n1\n");
        TestDocument document;
        document.inputs = inputXml(1, QStringLiteral("in"), path("in.csv"));
        document.outputs = outputXml(2, QStringLiteral("out"), path("out.csv"));
        document.connections = connectionXml(1, 2);
        writeFile(path("flow.transform"), document.xml());
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
        m_window->start();
        QCoreApplication::processEvents();
    }
    void TearDown() override
    {
        stopRequested = false;
        Application::instance()->settings().setUiTheme(UiTheme::Light);
        m_window->themes().onUpdateUITheme();
        m_window.reset();
        QLocale::setDefault(m_locale); // a new document takes that of the settings
        RecoveryFile::remove();
    }
    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    QAction &action(const char *name) const
    {
        auto *found = m_window->findChild<QAction *>(QString::fromLatin1(name));
        EXPECT_TRUE(found) << name;
        return *found;
    }
    QStringList enabled() const
    {
        QStringList names;
        for (const ActionRow &row : ActionTable()) {
            if (action(row.name).isEnabled()) {
                names.append(QString::fromLatin1(row.name));
            }
        }
        return names;
    }
    /// Texts of a menu's or tool bar's entries, "-" for a separator.
    static QString textsOf(const QWidget &bar)
    {
        QStringList texts;
        for (QAction *entry : bar.actions()) {
            texts.append(entry->isSeparator() ? QStringLiteral("-") : entry->text().remove('&').remove("..."));
        }
        return texts.join(QStringLiteral(", "));
    }

    const QLocale m_locale;
    QTemporaryDir m_folder;
    RunLog m_log;
    ScriptedPrompts m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace

TEST_F(ActionTableTest, MenusAndToolBarHoldThemInOrder)
{
    const QPair<const char *, const char *> menus[] = {
        {"m_menuFile", "New, Open, Open Recent, Recent, -, New Window, -, Notes, -, Save, Save As, -, Batch Process, "
                       "Command Line, Flow Report, -, Exit"},
        {"m_menuEdit",
            "Undo, Redo, -, Cut, Copy, Paste, -, Delete, -, Snap To Grid, Tidy Up, Select All, -, Locale, -, "
            "Preferences"},
        {"m_menuRun", "Auto Run, -, Stop Run"},
        {"m_menuView", "Zoom Fit, Zoom In, Zoom Out, Zoom Selected, Magnify Cursor, Find Items, -, Compare Headers, "
                       "Compare Data, -, Item Summary, Timing Profile, -, Show Comments, Show Row/Col Changes, Show "
                       "Warnings, Show Tool Tips, -, Tool bar, Left Pane, Log Pane, Right Pane, -, Toggle UI Theme, -, "
                       "Two Screen Mode"},
        {"menuShowToolTips", "Off, Brief, Detailed"},
        {"m_menuHelp",
            "Quillmere Help, Short Introduction Video, Quick Start Guide, Expert Tips, Keyboard shortcuts, "
            "Examples, FAQ Page, Forum, Technical Support, -, Check For Updates, Subscribe to Newsletter, About"},
    };
    for (const auto &menu : menus) {
        auto *found = m_window->findChild<QMenu *>(QString::fromLatin1(menu.first));
        ASSERT_TRUE(found) << menu.first;
        EXPECT_EQ(textsOf(*found).toStdString(), menu.second);
    }
    EXPECT_EQ(textsOf(*m_window->findChild<QToolBar *>()).toStdString(),
        "New, Open, Open Recent, Save, -, Auto Run, Stop Run, Item Summary, Timing Profile, -, Undo, Redo, -, Batch "
        "Process, -, Zoom Fit, Zoom In, Zoom Out, Magnify Cursor, Find Items, Snap To Grid, -, Delete, -, ");
    action("m_runAutoAction").trigger();
    EXPECT_EQ(textsOf(*m_window->findChild<QMenu *>("m_menuRun")).toStdString(),
        "Auto Run, -, Run Unprocessed, Run Selected, Run All, Stop Run");
}

TEST_F(ActionTableTest, ShortcutsAreTheirsAlone)
{
    QHash<QString, QString> owners;
    for (const ActionRow &row : ActionTable()) {
        for (const QKeySequence &key : action(row.name).shortcuts()) {
            EXPECT_FALSE(owners.contains(key.toString()))
                << row.name << " and " << owners[key.toString()].toStdString();
            owners.insert(key.toString(), QString::fromLatin1(row.name));
        }
    }
    EXPECT_EQ(owners.value("Ctrl+Shift+Z"), QStringLiteral("m_editRedoAction"));
    EXPECT_EQ(owners.value("Ctrl+Q"), QStringLiteral("m_fileExitAction"));
    EXPECT_EQ(owners.value("Ctrl+Shift+S"), QStringLiteral("m_fileSaveAsAction"));
}

TEST_F(ActionTableTest, NothingButStopIsEnabledDuringARun)
{
    ASSERT_TRUE(m_window->documents().openDocument(path("flow.transform")));
    const QStringList before = enabled();
    EXPECT_FALSE(before.contains("m_runStopAction"));
    QStringList during;
    const QMetaObject::Connection connection = QObject::connect(
        &m_window->scene(), &GraphScene::nodeProcessed, [&](Node *) { during = enabled(); });
    m_window->scene().runTransforms(RunMode::Everything, true);
    QObject::disconnect(connection);
    EXPECT_EQ(during, QStringList{"m_runStopAction"});
    EXPECT_EQ(enabled(), before);
}

TEST_F(ActionTableTest, EachActsInEachStateWithoutHarm)
{
    enum State { Empty, NothingSelected, ItemSelected, AllSelected, ConnectionSelected, StateCount };
    for (int state = Empty; state < StateCount; ++state) {
        for (const ActionRow &row : ActionTable()) {
            const QString name = QString::fromLatin1(row.name);
            if (name == "m_fileExitAction" || name == "m_fileNewWindowAction") {
                continue; // they end this process or start another
            }
            SCOPED_TRACE(row.name + std::string(" in state ") + std::to_string(state));
            // Saving, opening and choosing are declined or accepted at once.
            const BoxAnswers answers({"Discard", "OK", "OK"});
            if (state == Empty) {
                m_window->documents().onNew();
            } else {
                ASSERT_TRUE(m_window->documents().openDocument(path("flow.transform")));
            }
            GraphScene &scene = m_window->scene();
            if (state == ItemSelected) {
                scene.nodeById(1)->setSelected(true);
            } else if (state == AllSelected) {
                action("m_editSelectAllAction").trigger();
            } else if (state == ConnectionSelected) {
                scene.connections().first()->setSelected(true);
            }
            if (!action(row.name).isEnabled()) {
                continue;
            }
            EXPECT_TRUE(row.handler) << "nothing is offered that does nothing";
            action(row.name).trigger();
            QCoreApplication::processEvents();
            if (row.checkable && action(row.name).isEnabled()) {
                action(row.name).trigger();
            }
            m_window->session().setModified(false);
        }
    }
}
