#include "app/application.h"
#include "app/boxanswers.h"
#include "app/commandlinedialog.h"
#include "graph/graphscene.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"
#include "settings/settings.h"
#include "support/printers.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

class CommandLineDialogTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings::setCurrent(&Application::instance()->settings());
        auto *input = new InputNode(InputOptions::forFile(QStringLiteral("/data/sales.tar.csv")));
        input->setAlias(QStringLiteral("in"));
        auto *output = new OutputNode(QStringLiteral("/data/out.csv"));
        output->setAlias(QStringLiteral("out"));
        m_scene.insertNode(input, QPointF(0, 0));
        m_scene.insertNode(output, QPointF(300, 0));
        m_scene.insertConnection(input, output);
    }

    static QString textOf(const CommandLineDialog &dialog, const char *name)
    {
        for (const QPlainTextEdit *edit : dialog.findChildren<QPlainTextEdit *>()) {
            if (edit->accessibleName() == QString::fromLatin1(name)) {
                return edit->isHidden() ? QStringLiteral("hidden") : edit->toPlainText();
            }
        }
        return QStringLiteral("no such text");
    }

    GraphScene m_scene;
    ScriptedPrompts m_prompts;
};

TEST_F(CommandLineDialogTest, FollowsWhatIsChosen)
{
    CommandLineDialog dialog(m_scene, QStringLiteral("/d/f.transform"), false, m_prompts);
    const QString program = QLatin1Char('"') + QCoreApplication::applicationFilePath() + QLatin1Char('"');
    const QString command = program
                            + QStringLiteral(
                                " \"/d/f.transform\" -file \"in=%1\" -file \"out=/data/out.csv\" -cli -verbosity 2");
    EXPECT_EQ(textOf(dialog, "Command"), command.arg(QStringLiteral("/data/sales.tar.csv")));
    EXPECT_EQ(textOf(dialog, "Warnings"), QStringLiteral("hidden"));

    auto *loopBox = dialog.findChild<QGroupBox *>()->findChild<QCheckBox *>();
    const QList<QLineEdit *> loopEdits = dialog.findChild<QGroupBox *>()->findChildren<QLineEdit *>();
    ASSERT_EQ(loopEdits.size(), 2);
    EXPECT_EQ(loopEdits.first()->text(), QStringLiteral("/data"));
    EXPECT_EQ(loopEdits.last()->text(), QStringLiteral("*.tar.csv"));
    EXPECT_FALSE(loopEdits.first()->isEnabled());
    loopBox->setChecked(true);
    EXPECT_TRUE(loopEdits.first()->isEnabled());
    EXPECT_EQ(textOf(dialog, "Command"), QStringLiteral("for /f \"delims=\" %f in ('dir /b /data/*.tar.csv') do ( ")
                                             + command.arg(QStringLiteral("%f")) + QStringLiteral(" )"));
}

TEST_F(CommandLineDialogTest, WarnsAndCopies)
{
    m_scene.nodes().first()->setAlias(QString());
    CommandLineDialog dialog(m_scene, QStringLiteral("/d/f.transform"), true, m_prompts);
    EXPECT_EQ(textOf(dialog, "Warnings"),
        QStringLiteral(
            "Empty input alias.\nNo input aliases that can be used.\nThis .transform file has unsaved changes."));
    EXPECT_FALSE(dialog.findChild<QGroupBox *>()->findChild<QCheckBox *>()->isEnabled()) << "nothing to loop over";
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        if (button->text() == QStringLiteral("&Copy")) {
            button->click();
        }
    }
    EXPECT_EQ(QGuiApplication::clipboard()->text(), textOf(dialog, "Command"));
    dialog.reject();
    EXPECT_FALSE(Settings::current().commandLineWindowGeometry().isEmpty()) << "it opens where it was";
}

} // namespace
