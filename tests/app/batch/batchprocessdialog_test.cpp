#include "app/application.h"
#include "app/batch/batchgrid.h"
#include "app/batch/batchpathcell.h"
#include "app/batch/batchprocessdialog.h"
#include "app/batch/batchresults.h"
#include "app/boxanswers.h"
#include "app/testdocument.h"
#include "document/documentfile.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/runcontrol.h"
#include "settings/settings.h"
#include "support/printers.h"
#include "support/waitfor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

class BatchProcessDialogTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        settings.setBatchShowTips(true);
        settings.setBatchClearBeforeAppend(false);
        settings.setBatchCompletionSound(false);
        settings.setBatchWindowGeometry(QByteArray());
        for (const char *name : {"a.csv", "b.csv", "c.csv"}) {
            writeFile(path(name), QByteArray("id\n") + name + "\n");
        }
        TestDocument document;
        document.inputs = inputXml(1, QStringLiteral("in"), path("a.csv"));
        document.outputs = outputXml(2, QStringLiteral("out"), path("own.txt"))
                           + outputXml(3, QStringLiteral("off"), path("off.txt"), 0);
        document.connections = connectionXml(1, 2);
        writeFile(path("flow.transform"), document.xml());
        LoadedDocument loaded;
        QString error;
        ASSERT_TRUE(loadDocument(path("flow.transform"), m_scene, {}, loaded, error));
    }
    void TearDown() override
    {
        m_dialog.reset();
        RunControl::setKeepAlive(&Application::keepAlive);
    }

    QString path(const char *name) const
    {
        return QDir(m_folder.path()).canonicalPath() + QLatin1Char('/') + QString::fromLatin1(name);
    }

    void show(const BatchSettings &settings = BatchSettings())
    {
        m_dialog = std::make_unique<BatchProcessDialog>(m_scene, settings, m_prompts);
        m_dialog->show();
        QApplication::setActiveWindow(m_dialog.get()); // there is no window manager to do it
        ASSERT_TRUE(waitFor([this] { return cell("Input alias=in, row 1") || m_dialog->settings().values.isEmpty(); }));
    }

    QPushButton *button(const char *text) const
    {
        for (QPushButton *found : m_dialog->findChildren<QPushButton *>()) {
            if (found->text().remove(QLatin1Char('&')) == QLatin1String(text)) {
                return found;
            }
        }
        ADD_FAILURE() << "no button " << text;
        return nullptr;
    }
    void click(const char *text) const { QTest::mouseClick(button(text), Qt::LeftButton); }

    QLineEdit *cell(const char *name) const
    {
        for (QLineEdit *edit : m_dialog->findChildren<QLineEdit *>()) {
            if (edit->accessibleName() == QLatin1String(name)) {
                return edit;
            }
        }
        return nullptr;
    }

    /// "Add Remove Clear Process Stop": those that are enabled.
    QString enabled() const
    {
        QStringList names;
        for (const char *name : {"Add", "Remove", "Clear", "Process", "Stop"}) {
            if (button(name)->isEnabled()) {
                names.append(QString::fromLatin1(name));
            }
        }
        return names.join(QLatin1Char(' '));
    }

    BatchGrid &grid() const { return *m_dialog->findChild<BatchGrid *>(); }
    QString results() const
    {
        return m_dialog->findChild<BatchResults *>()->findChild<QPlainTextEdit *>()->toPlainText();
    }
    static QPair<int, QString> at(int row, const char *alias) { return {row, QString::fromLatin1(alias)}; }

    QTemporaryDir m_folder;
    GraphScene m_scene;
    ScriptedPrompts m_prompts;
    std::unique_ptr<BatchProcessDialog> m_dialog;
};

TEST_F(BatchProcessDialogTest, OpensWithTheItemsOwnPaths)
{
    show();
    EXPECT_EQ(m_dialog->windowTitle(), QStringLiteral("Batch Process[*]"));
    EXPECT_FALSE(m_dialog->isWindowModified());
    const BatchSettings settings = m_dialog->settings();
    EXPECT_EQ(settings.values.size(), 2) << "what is disabled has no column";
    EXPECT_EQ(settings.values.value(at(0, "in")), path("a.csv"));
    EXPECT_EQ(settings.values.value(at(0, "out")), path("own.txt"));
    EXPECT_EQ(settings.verbosity, 2);
    QString tip;
    for (const QLabel *label : m_dialog->findChildren<QLabel *>()) {
        tip += label->isVisible() ? label->text() : QString();
    }
    EXPECT_TRUE(tip.contains(QStringLiteral("E.g. '%1*.csv' or '%1*.xlsx[*]'.").arg(path(""))));
    EXPECT_TRUE(tip.contains(QStringLiteral("E.g. '%1output_{in}_{date}.csv'.").arg(path(""))));
    EXPECT_TRUE(
        tip.contains(QStringLiteral("Output with alias 'off' has 'Write mode'='Disabled' and will be ignored.")));
}

TEST_F(BatchProcessDialogTest, RowsComeAndGo)
{
    show();
    EXPECT_EQ(enabled(), QStringLiteral("Add Clear Process"));
    QLineEdit *first = cell("Input alias=in, row 1");
    first->setFocus();
    first->selectAll();
    QTest::keyClicks(first, QStringLiteral("/x/*.csv"));
    EXPECT_TRUE(m_dialog->isWindowModified());
    EXPECT_EQ(enabled(), QStringLiteral("Add Remove Clear Process")) << "the row in which one types is selected";
    click("Add");
    ASSERT_TRUE(waitFor([this] { return cell("Output alias='out' (Overwrite), row 2") != nullptr; }));
    EXPECT_EQ(m_dialog->settings().values.value(at(1, "in")), QStringLiteral("/x/*.csv")) << "as the row above";
    QTest::keyClicks(cell("Input alias=in, row 2"), QStringLiteral("2"));
    grid().selectRow(0);
    click("Remove");
    EXPECT_EQ(m_dialog->settings().values.firstKey(), at(0, "in"));
    EXPECT_EQ(m_dialog->settings().rowCount(), 1);
    EXPECT_EQ(m_dialog->settings().values.first(), QStringLiteral("/x/*.csv2"));
    click("Clear");
    EXPECT_EQ(m_dialog->settings().values.size(), 0);
    EXPECT_EQ(enabled(), QStringLiteral("Add"));
}

TEST_F(BatchProcessDialogTest, TabGoesThroughTheCells)
{
    show();
    click("Add");
    ASSERT_TRUE(waitFor([this] { return cell("Input alias=in, row 2") != nullptr; }));
    grid().setFocus();
    QStringList names;
    for (int i = 0; i < 9; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        names.append(QApplication::focusWidget()->accessibleName());
    }
    const QString row = QStringLiteral("Input alias=in, row %1|Browse for Input alias=in, row %1|Output alias='out' "
                                       "(Overwrite), row %1|Browse for Output alias='out' (Overwrite), row %1|");
    EXPECT_EQ(names.join(QLatin1Char('|')), row.arg(1) + row.arg(2) + QStringLiteral("Results"));
    grid().setFocus();
    grid().setCurrentIndex(grid().model()->index(1, 0));
    QTest::keyClick(&grid(), Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), cell("Input alias=in, row 2"));
}

TEST_F(BatchProcessDialogTest, BrowsingFillsTheCell)
{
    show();
    m_prompts.paths = QStringList{path("b.csv"), path("new.txt")};
    for (QToolButton *browse : m_dialog->findChildren<QToolButton *>()) {
        if (browse->accessibleName().startsWith(QStringLiteral("Browse for "))) {
            browse->click();
        }
    }
    EXPECT_EQ(cell("Input alias=in, row 1")->text(), path("b.csv"));
    EXPECT_EQ(m_dialog->settings().values.value(at(0, "out")), path("new.txt"));
}

TEST_F(BatchProcessDialogTest, ProcessRunsAndPutsTheGridBack)
{
    BatchSettings settings;
    settings.values = {{at(0, "in"), path("?.csv")}, {at(0, "out"), path("{in}.txt")}, {at(1, "in"), path("gone.csv")}};
    settings.verbosity = 1;
    show(settings);
    const int width = grid().columnWidth(0);
    QStringList inRun;
    RunControl::setKeepAlive([&] {
        QCoreApplication::processEvents();
        const QProgressBar *bar = grid().findChild<QProgressBar *>();
        inRun.append(enabled() + (grid().isEnabled() ? QStringLiteral(" grid") : QString())
                     + QStringLiteral(" %1").arg(bar ? bar->value() : -1));
    });
    click("Process");
    EXPECT_TRUE(inRun.contains(QStringLiteral("Stop 66"))) << inRun.join(QLatin1Char('\n')).toStdString();
    EXPECT_FALSE(inRun.join(QLatin1Char(' ')).contains(QStringLiteral("grid")));
    EXPECT_EQ(grid().model()->columnCount(), 2);
    EXPECT_EQ(grid().columnWidth(0), width);
    EXPECT_EQ(enabled(), QStringLiteral("Add Clear Process"));
    EXPECT_EQ(readFile(path("c.txt")), "id\nc.csv\n");
    EXPECT_TRUE(results().contains(QStringLiteral("Batch row: 2\nInput file '%1' not found.\n").arg(path("gone.csv"))))
        << results().toStdString();
    EXPECT_TRUE(results().endsWith(QStringLiteral("Total results: 1 error(s)")));
    EXPECT_FALSE(m_dialog->isWindowModified()) << "a run isn't a change";
    click("Process");
    EXPECT_EQ(results().count(QStringLiteral("Batch row: 1")), 1) << "each batch begins with an empty text";
}

TEST_F(BatchProcessDialogTest, StopAndClosingEndItAfterARun)
{
    BatchSettings settings;
    settings.values = {{at(0, "in"), path("?.csv")}, {at(0, "out"), path("{in}.txt")}};
    for (const bool closes : {false, true}) {
        SCOPED_TRACE(closes);
        show(settings);
        int pumps = 0;
        RunControl::setKeepAlive([&] {
            QCoreApplication::processEvents();
            if (++pumps == 2 && closes) {
                m_dialog->reject();
                EXPECT_TRUE(m_dialog->isVisible());
            } else if (pumps == 2) {
                click("Stop");
                EXPECT_EQ(enabled(), QString());
            }
        });
        click("Process");
        EXPECT_TRUE(results().contains(QStringLiteral("\nStopped by user\n"))) << results().toStdString();
        EXPECT_FALSE(QFile::exists(path("b.txt")));
        EXPECT_EQ(m_dialog->isVisible(), !closes);
    }
}

TEST_F(BatchProcessDialogTest, ErrorsAreRedAndMarkedInTheLog)
{
    BatchSettings settings;
    settings.values = {{at(0, "in"), path("a & <b>.csv")}};
    settings.verbosity = 1;
    settings.loggingEnabled = true;
    settings.logPath = path("batch.log");
    settings.logMode = BatchSettings::Overwrite;
    writeFile(path("batch.log"), "old\n");
    show(settings);
    click("Process");
    const QString message = QStringLiteral("Input file '%1' not found.").arg(path("a & <b>.csv"));
    EXPECT_TRUE(
        results().startsWith(QStringLiteral("Writing to log file '%1'\n\nBatch row: 1\n").arg(path("batch.log"))));
    auto *text = m_dialog->findChild<BatchResults *>()->findChild<QPlainTextEdit *>();
    QTextCursor found = text->document()->find(message);
    ASSERT_FALSE(found.isNull()) << results().toStdString();
    EXPECT_EQ(found.charFormat().foreground().color(), QColor(Qt::red));
    const QByteArray logged = readFile(path("batch.log"));
    EXPECT_TRUE(logged.startsWith("Writing to log file"));
    EXPECT_TRUE(logged.contains("** " + message.toUtf8() + " **\n"));
}

TEST_F(BatchProcessDialogTest, WhatIsKept)
{
    BatchSettings settings;
    settings.values = {{at(1, "in"), QStringLiteral("x")}, {at(1, "off"), QStringLiteral("of no column")}};
    settings.verbosity = 4;
    settings.loggingEnabled = true;
    settings.logPath = QStringLiteral("y.log");
    settings.logMode = BatchSettings::Overwrite;
    show(settings);
    EXPECT_TRUE(m_dialog->settings() == settings) << "also of what is disabled for now";
    EXPECT_FALSE(m_dialog->isWindowModified());
    for (QCheckBox *box : m_dialog->findChildren<QCheckBox *>()) {
        box->click();
    }
    m_dialog->findChild<QComboBox *>()->setCurrentIndex(0);
    EXPECT_TRUE(m_dialog->isWindowModified());
    EXPECT_EQ(m_dialog->settings().verbosity, 0);
    m_dialog->reject();
    const Settings &stored = Settings::current();
    EXPECT_FALSE(stored.batchShowTips());
    EXPECT_TRUE(stored.batchClearBeforeAppend());
    EXPECT_TRUE(stored.batchCompletionSound());
    EXPECT_FALSE(stored.batchWindowGeometry().isEmpty());
    EXPECT_FALSE(m_dialog->settings().loggingEnabled);
}

TEST_F(BatchProcessDialogTest, ManyRowsHaveWidgetsWhereTheyAreSeen)
{
    BatchSettings settings;
    for (int row = 0; row < 20000; ++row) {
        settings.values.insert(at(row, "in"), QString::number(row));
    }
    show(settings);
    const int seen = grid().findChildren<BatchPathCell *>().size();
    EXPECT_LT(seen, 200);
    grid().scrollToBottom();
    ASSERT_TRUE(waitFor([this] { return cell("Input alias=in, row 20000") != nullptr; }));
    EXPECT_EQ(cell("Input alias=in, row 20000")->text(), QStringLiteral("19999"));
    EXPECT_TRUE(waitFor([this, seen] { return grid().findChildren<BatchPathCell *>().size() <= 2 * seen; }));
}

TEST_F(BatchProcessDialogTest, TheReportKeepsItsLength)
{
    BatchResults shown;
    for (int line = 0; line <= BatchResults::maxLines; ++line) {
        shown.info(QString::number(line));
    }
    shown.finish();
    EXPECT_EQ(shown.findChild<QPlainTextEdit *>()->blockCount(), BatchResults::maxLines);
    EXPECT_EQ(shown.findChild<QPlainTextEdit *>()->document()->firstBlock().text(), QStringLiteral("1"));
    EXPECT_FALSE(shown.findChild<QLabel *>()->isHidden());
}

} // namespace
