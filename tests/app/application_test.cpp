#include "app/application.h"
#include "app/boxanswers.h"
#include "app/exceptionreport.h"
#include "app/rowsmilestone.h"
#include "graph/runcontrol.h"
#include "panes/dialogs/insufficientmemorydialog.h"
#include "settings/settings.h"
#include "support/printers.h"
#include "support/scopedsettings.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"

#include <QDoubleSpinBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

TEST(Application, TransformsStandByDisplayName)
{
    Application &application = *Application::instance();
    const QList<Transform *> &all = application.transforms();
    ASSERT_GT(all.size(), 1);
    for (int i = 1; i < all.size(); ++i) {
        EXPECT_LT(all.at(i - 1)->displayName().toLower(), all.at(i)->displayName().toLower());
    }
    const QString name = all.first()->typeName();
    EXPECT_EQ(application.transformByName(name), all.first());
    EXPECT_EQ(application.transformByName(QStringLiteral("Wobble")), nullptr);
}

TEST(Application, CodecsStandOnce)
{
    const QStringList &names = Application::instance()->codecNames();
    EXPECT_TRUE(names.contains(QStringLiteral("UTF-8")));
    EXPECT_FALSE(names.contains(QStringLiteral("latin1"))) << "an alias of another";
    QStringList sorted = names;
    sorted.sort();
    EXPECT_EQ(names, sorted);
}

TEST(Application, FontsForTablesArentTiny)
{
    const QFont font = Application::instance()->defaultFont();
    EXPECT_TRUE(
        font.pointSize() >= 10 || font.pixelSize() > 0 || font.pointSize() == QApplication::font().pointSize() + 1);
    EXPECT_EQ(Application::instance()->settings().uiFont(), font) << "as long as none was chosen";
    EXPECT_EQ(Application::instance()->monospaceFont().pointSizeF(), font.pointSizeF());
}

TEST(Application, KeepAliveBeatsAndLetsEventsIn)
{
    QSignalSpy beats(Application::instance(), &Application::heartBeat);
    bool arrived = false;
    QMetaObject::invokeMethod(
        qApp, [&arrived] { arrived = true; }, Qt::QueuedConnection);
    RunControl::keepAlive();
    EXPECT_EQ(beats.size(), 1);
    EXPECT_TRUE(arrived);
}

/// Throws where an event handler of a window would.
template<class Throw>
int exitCodeAfter(Throw thrower, QStringList *said)
{
    Application::instance()->setPrompts(std::make_unique<ScriptedPrompts>());
    const BoxAnswers answers({QStringLiteral("OK")});
    QMetaObject::invokeMethod(qApp, thrower, Qt::QueuedConnection);
    const int code = QApplication::exec();
    // Windows that close meanwhile ask to quit as well, which the loops of later tests would obey.
    QCoreApplication::removePostedEvents(qApp, QEvent::Quit);
    *said = answers.texts();
    Application::instance()->setPrompts(std::make_unique<Prompts>(nullptr));
    return code;
}

TEST(Application, ExceptionsEndTheProgram)
{
    QStringList said;
    EXPECT_EQ(exitCodeAfter([] { throw MaxMemoryException(); }, &said), 1);
    EXPECT_EQ(said, QStringList{"Quillmere has exceeded the memory allocation set in 'Preferences' and will close."});
    EXPECT_EQ(exitCodeAfter([] { throw std::runtime_error("broken"); }, &said), 2);
    EXPECT_EQ(
        said, QStringList{
                  "Quillmere has to close due to an exception. Please contact support at support@quillmere.example."});
    EXPECT_EQ(exitCodeAfter([] { throw 5; }, &said), 3);
    EXPECT_EQ(said, QStringList{"Quillmere has to close. Please contact support at support@quillmere.example."});
}

struct MilestoneCase
{
    const char *what;
    quint64 rows;
    int next;
    int power;
    int nextAfterwards;
};

TEST(RowsMilestone, PassedOnceForEachPowerOfTen)
{
    const MilestoneCase cases[] = {
        {"just short of the first", 999999, 6, 0, 6},
        {"the first", 1000000, 6, 6, 7},
        {"between two", 9999999, 7, 0, 7},
        {"several at once", 12345678901, 7, 10, 11},
        {"as far as numbers go", Q_UINT64_C(18446744073709551615), 6, 19, 20},
        {"switched off by a high mark", 5000000, 99, 0, 99},
    };
    for (const MilestoneCase &c : cases) {
        SCOPED_TRACE(c.what);
        ScopedSettings scoped;
        scoped->setTotalRowsProcessed(c.rows);
        scoped->setTotalNextExpRowsToNotify(c.next);
        EXPECT_EQ(RowsMilestone::advance(), c.power);
        EXPECT_EQ(scoped->totalNextExpRowsToNotify(), c.nextAfterwards);
        EXPECT_EQ(RowsMilestone::advance(), 0);
    }
    Settings::setCurrent(&Application::instance()->settings());
    EXPECT_EQ(RowsMilestone::message(6),
        QStringLiteral("You have now transformed more than 1,000,000 rows of data in Quillmere.\nTake that, Excel!"));
    EXPECT_TRUE(RowsMilestone::message(19).endsWith(
        QStringLiteral("10,000,000,000,000,000,000 rows of data in Quillmere.\nAwesome!!")));
}

TEST(InsufficientMemoryDialog, OffersMoreOrTheWayOut)
{
    InsufficientMemoryDialog dialog(4.26, 4.0, true);
    EXPECT_EQ(InsufficientMemoryDialog::explanation(4.26, 4.0),
        QStringLiteral("You have exceed the maximum process memory set in 'Preferences'.\n\n"
                       "Maximum memory usage=4.0 GB. Current memory usage=4.3 GB."));
    auto *amount = dialog.findChild<QDoubleSpinBox *>();
    EXPECT_EQ(amount->value(), 4.5);
    EXPECT_EQ(amount->minimum(), 4.5);
    amount->setValue(6.0);
    dialog.accept();
    EXPECT_FALSE(dialog.isExitChosen());
    EXPECT_EQ(dialog.newLimit(), 6.0);

    const QList<QRadioButton *> choices = dialog.findChildren<QRadioButton *>();
    ASSERT_EQ(choices.size(), 2);
    choices.last()->setChecked(true);
    EXPECT_EQ(dialog.findChild<QPushButton *>()->text(), QStringLiteral("Exit now (changes not saved)"));
    EXPECT_FALSE(amount->isEnabled());
    dialog.reject();
    EXPECT_FALSE(dialog.isExitChosen()) << "closing the box isn't leaving the program";
    dialog.accept();
    EXPECT_TRUE(dialog.isExitChosen());
}

} // namespace
