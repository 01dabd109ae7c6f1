#include "panes/dialogs/localedialog.h"
#include "panes/dialogs/notesdialog.h"
#include "panes/dialogs/openrecentdialog.h"
#include "settings/settings.h"
#include "support/printers.h"
#include "support/scopedsettings.h"

#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

template<class Widget>
Widget &only(const QWidget &parent)
{
    const QList<Widget *> found = parent.findChildren<Widget *>();
    EXPECT_EQ(found.size(), 1);
    return *found.first();
}

QStringList column(const QTableWidget &table, int number)
{
    QStringList texts;
    for (int row = 0; row < table.rowCount(); ++row) {
        texts.append(table.item(row, number)->text());
    }
    return texts;
}

/// Documents of which the first is new, the second ten and the third forty days old.
class OpenRecent : public testing::Test
{
protected:
    void SetUp() override
    {
        const QPair<const char *, int> files[] = {{"new", 0}, {"aged", 10}, {"old", 40}};
        for (const auto &f : files) {
            QFile file(m_folder.filePath(QString::fromLatin1(f.first) + ".transform"));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write("x");
            file.flush();
            file.setFileTime(QDateTime::currentDateTime().addDays(-f.second), QFileDevice::FileModificationTime);
            m_paths.append(file.fileName());
        }
        m_paths.insert(1, m_folder.filePath(QStringLiteral("gone.transform")));
    }

    const ScopedSettings m_settings;
    QTemporaryDir m_folder;
    QStringList m_paths;
};

} // namespace

TEST_F(OpenRecent, ListsWhatIsThereAndKeepsItsFilter)
{
    {
        OpenRecentDialog dialog(m_paths);
        const auto &table = only<QTableWidget>(dialog);
        EXPECT_EQ(column(table, 0), QStringList({"new.transform", "aged.transform", "old.transform"}));
        EXPECT_EQ(dialog.path(), m_paths.first()) << "the newest is chosen";
        const QList<QComboBox *> combos = dialog.findChildren<QComboBox *>();
        ASSERT_EQ(combos.size(), 2);
        combos[0]->setCurrentText(QStringLiteral("Modified in last 7days"));
        EXPECT_EQ(column(table, 0), QStringList{"new.transform"});
        combos[0]->setCurrentText(QStringLiteral("Modified in last 30 days"));
        EXPECT_EQ(column(table, 0), QStringList({"new.transform", "aged.transform"}));
        combos[1]->setCurrentText(QStringLiteral("Open previous"));
    }
    EXPECT_EQ(Settings::current().openRecentFilter(), RecentFilter::LastMonth);
    EXPECT_EQ(Settings::current().openPreviousAtStart(), StartChoice::Previous);
    OpenRecentDialog again(m_paths);
    EXPECT_EQ(only<QTableWidget>(again).rowCount(), 2);
}

TEST_F(OpenRecent, SortsTimesAsTimes)
{
    OpenRecentDialog dialog(m_paths);
    auto &table = only<QTableWidget>(dialog);
    table.sortByColumn(2, Qt::AscendingOrder);
    EXPECT_EQ(column(table, 0), QStringList({"old.transform", "aged.transform", "new.transform"}));
    table.sortByColumn(0, Qt::AscendingOrder);
    EXPECT_EQ(column(table, 0).first(), QStringLiteral("aged.transform"));
    table.selectRow(2);
    EXPECT_EQ(dialog.path(), m_paths.last());
}

TEST_F(OpenRecent, WithoutDocumentsNothingCanBeOpened)
{
    OpenRecentDialog dialog({m_paths.at(1)});
    EXPECT_EQ(dialog.path(), QString());
    for (const QPushButton *button : dialog.findChildren<QPushButton *>()) {
        EXPECT_EQ(button->isEnabled(), button->text().contains(QStringLiteral("Cancel")));
    }
}

TEST(LocaleDialog, BeginsWithTheLocaleAndGivesTheChosenOne)
{
    const ScopedSettings settings;
    LocaleDialog dialog(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(dialog.chosenLocale(), QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_FALSE(dialog.isWindowModified());
    const QList<QComboBox *> combos = dialog.findChildren<QComboBox *>();
    combos[0]->setCurrentText(QStringLiteral("German"));
    EXPECT_EQ(dialog.chosenLocale(), QLocale(QLocale::German, QLocale::Germany));
    EXPECT_TRUE(dialog.isWindowModified());
    combos[1]->setCurrentText(QStringLiteral("Switzerland"));
    EXPECT_EQ(dialog.chosenLocale(), QLocale(QLocale::German, QLocale::Switzerland));
    const QString sample = dialog.findChildren<QLabel *>().last()->text();
    EXPECT_TRUE(sample.contains(QStringLiteral("567"))) << sample.toStdString();
}

TEST(NotesDialog, GivesWhatWasTyped)
{
    NotesDialog dialog(QStringLiteral("old"));
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Notes"));
    only<QPlainTextEdit>(dialog).setPlainText(QStringLiteral("new\nlines"));
    EXPECT_EQ(dialog.notes(), QStringLiteral("new\nlines"));
}
