#include "app/examples.h"

#include "app/application.h"
#include "app/boxanswers.h"
#include "app/documentsession.h"
#include "app/mainwindow.h"
#include "app/recoveryfile.h"
#include "app/report/runlog.h"
#include "app/testdocument.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "panes/canvas/graphpane.h"
#include "panes/status/logpane.h"
#include "platform/installedfiles.h"
#include "settings/settings.h"
#include "support/waitfor.h"

#include <QAccessible>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

QString source()
{
    return platform::installedFolder(QStringLiteral("examples"));
}

/// A window of a person whose documents lie in a folder of the test.
class ExamplesTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_home = qgetenv("HOME");
        qputenv("HOME", m_folder.path().toLocal8Bit());
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        // Examples ask and tell nothing, though others would.
        settings.setWarnOnLocaleChange(true);
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        settings.setOpenAutoRun(AutoRunChoice::AskToDisableAutoRun);
        settings.setOpenPreviousAtStart(StartChoice::Nothing);
        RecoveryFile::remove();
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
        m_window->start();
        QCoreApplication::processEvents();
    }
    void TearDown() override
    {
        m_window.reset();
        RecoveryFile::remove();
        Application::instance()->settings().setOpenAutoRun(m_openAutoRun);
        Application::instance()->settings().setWarnOnLocaleChange(m_warnsOfLocale);
        qputenv("HOME", m_home);
        QLocale::setDefault(m_locale);
    }

    QMenu &menu() const { return *m_window->findChild<QMenu *>(QStringLiteral("m_helpExamplesMenu")); }
    QPushButton &button() const { return *m_window->findChild<QPushButton *>(QStringLiteral("m_openExampleButton")); }
    void open(int example)
    {
        menu().actions().at(example)->trigger();
        const QString title = Examples::all().at(example).document;
        EXPECT_TRUE(
            waitFor([&] { return m_window->windowTitle().startsWith(title) && !m_window->scene().isProcessing(); }));
    }
    QString copied(const QString &name) const { return QDir(Examples::folder()).filePath(name); }

    QTemporaryDir m_folder;
    QByteArray m_home;
    const QLocale m_locale;
    const AutoRunChoice m_openAutoRun = Application::instance()->settings().openAutoRun();
    const bool m_warnsOfLocale = Application::instance()->settings().warnOnLocaleChange();
    RunLog m_log;
    ScriptedPrompts m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

TEST_F(ExamplesTest, EachIsOpenedRunAndLeftUnchangedWithoutAQuestion)
{
    ASSERT_EQ(menu().actions().size(), Examples::all().size());
    for (int i = 0; i < Examples::all().size(); ++i) {
        const Examples::Example &example = Examples::all().at(i);
        SCOPED_TRACE(example.document.toStdString());
        EXPECT_TRUE(QFileInfo::exists(source() + QLatin1Char('/') + example.document));
        EXPECT_EQ(menu().actions().at(i)->text(), example.title);
        open(i);
        EXPECT_FALSE(m_window->isWindowModified());
        EXPECT_EQ(QDir(m_window->session().path()), QDir(copied(example.document)));
        for (Node *node : m_window->scene().nodes()) {
            EXPECT_FALSE(node->boundingRect().isEmpty());
            for (const Node *other : m_window->scene().nodes()) {
                EXPECT_TRUE(
                    node == other || !node->sceneBoundingRect().intersects(other->boxRect().translated(other->pos())))
                    << node->name().toStdString() << " lies over " << other->name().toStdString();
            }
        }
    }
    EXPECT_TRUE(m_window->findChild<LogPane *>()->toPlainText().contains(QDir::toNativeSeparators(Examples::folder())));
    EXPECT_TRUE(readFile(copied(QStringLiteral("results/members-Unknown.csv"))).contains("Pia Reed"));
    EXPECT_TRUE(readFile(copied(QStringLiteral("results/monthly-sums.csv"))).contains("2024-01,1660,830.5"))
        << "in the example's own locale";
}

TEST_F(ExamplesTest, WhatTheUserChangedStaysAndWhatIsGoneComesBack)
{
    open(3);
    writeFile(copied(QStringLiteral("stock.csv")), "sku\nmine\n");
    QFile::remove(copied(QStringLiteral("sales.csv")));
    open(7);
    EXPECT_EQ(readFile(copied(QStringLiteral("stock.csv"))), "sku\nmine\n");
    EXPECT_EQ(readFile(copied(QStringLiteral("sales.csv"))), readFile(source() + QStringLiteral("/sales.csv")));
}

TEST_F(ExamplesTest, AFolderThatCannotBeMadeIsTold)
{
    writeFile(QDir(m_folder.path()).filePath(QStringLiteral("Documents")), "a file");
    BoxAnswers answers({QStringLiteral("OK")});
    menu().actions().first()->trigger();
    ASSERT_TRUE(waitFor([&] { return !answers.texts().isEmpty(); }));
    EXPECT_TRUE(answers.texts().first().startsWith(QStringLiteral("The examples can't be copied to '")));
    EXPECT_TRUE(m_window->session().path().isEmpty());
}

TEST_F(ExamplesTest, TheEmptyCanvasOffersThemToTheKeyboard)
{
    EXPECT_TRUE(button().isVisible());
    EXPECT_EQ(button().text(), QStringLiteral("Open an example"));
    EXPECT_EQ(button().menu(), &menu());
    auto *pane = m_window->findChild<GraphPane *>();
    ASSERT_TRUE(waitFor([&] { return m_window->isActiveWindow(); }));
    pane->setFocus();
    QTest::keyClick(pane, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &button()) << "Tab leads from the canvas to it";
    bool isShown = false;
    QTimer::singleShot(0, &menu(), [&] {
        isShown = menu().isVisible();
        menu().close();
    });
    QTest::keyClick(&button(), Qt::Key_Space);
    EXPECT_TRUE(waitFor([&] { return isShown; }));
    EXPECT_TRUE(pane->viewport()->geometry().contains(button().geometry()));
    QAccessibleInterface *canvas = QAccessible::queryAccessibleInterface(pane);
    ASSERT_EQ(canvas->childCount(), 1);
    EXPECT_EQ(canvas->child(0)->text(QAccessible::Name), button().text());
    m_window->scene().addNote(QPointF(0, 0), NoteArrow::NoArrow);
    EXPECT_FALSE(button().isVisible());
    ASSERT_EQ(canvas->childCount(), 1);
    EXPECT_EQ(canvas->child(0)->object(), m_window->scene().nodes().first());
    m_window->scene().nodes().first()->setSelected(true);
    m_window->scene().deleteSelected();
    EXPECT_TRUE(button().isVisible());
}

} // namespace
