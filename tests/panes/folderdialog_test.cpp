#include "inputs/folderlisting.h"
#include "panes/dialogs/inputfromfolderdialog.h"
#include "panes/dialogs/prompts.h"
#include "settings/filetypes.h"
#include "support/printers.h"
#include "support/scopedsettings.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

/// Two files of a folder, one of a folder in it, an empty one and one of another kind.
class FolderDialogTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QDir(m_folder.path()).mkpath(QStringLiteral("sub"));
        write("b.csv", QByteArray(3000, 'b'));
        write("a.csv", QByteArray(1000, 'a'));
        write("sub/c.csv", QByteArray(1000, 'c'));
        write("empty.csv", QByteArray());
        write("other.txt", "x");
        m_source.folder = m_folder.path();
    }
    void write(const char *name, const QByteArray &content) const
    {
        QFile file(m_folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    static QToolButton &button(const QWidget &dialog, const char *text)
    {
        for (QToolButton *each : dialog.findChildren<QToolButton *>()) {
            if (each->text() == QLatin1String(text)) {
                return *each;
            }
        }
        ADD_FAILURE() << text;
        return *dialog.findChild<QToolButton *>();
    }

    const ScopedSettings m_settings;
    QTemporaryDir m_folder;
    FolderInput m_source;
    Prompts m_prompts{nullptr};
};

} // namespace

TEST_F(FolderDialogTest, ListsWhatWouldBeRead)
{
    InputFromFolderDialog dialog(m_source, m_prompts);
    dialog.show();
    const auto &table = *dialog.findChild<QTableWidget *>();
    EXPECT_FALSE(button(dialog, "&Copy").isEnabled());
    button(dialog, "&List").click();
    ASSERT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.item(0, 1)->text(), QStringLiteral("a.csv"));
    EXPECT_EQ(table.item(1, 3)->text(), QStringLiteral("3"));
    EXPECT_TRUE(table.isColumnHidden(2)) << "there are no sheets";
    EXPECT_EQ(dialog.findChild<QPlainTextEdit *>()->toPlainText(),
        QStringLiteral("File '%1' is 0KB").arg(m_folder.filePath(QStringLiteral("empty.csv"))));
    button(dialog, "&Copy").click();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(QStringLiteral("Folder\tFile name\tSize (KB)\t")));

    dialog.findChild<QCheckBox *>()->setChecked(true);
    EXPECT_EQ(table.rowCount(), 0) << "an edit takes the list away";
    EXPECT_FALSE(button(dialog, "&Copy").isEnabled());
    button(dialog, "&List").click();
    EXPECT_EQ(table.rowCount(), 3);
    EXPECT_TRUE(dialog.source().recurse);
}

TEST_F(FolderDialogTest, SheetsAreMatchedForWorkbooksOnly)
{
    InputFromFolderDialog dialog(m_source, m_prompts);
    auto &type = *dialog.findChild<QComboBox *>();
    EXPECT_EQ(dialog.fileType(), FileType::Delimited) << "that of the wildcard";
    QLineEdit *sheets = nullptr;
    for (QLabel *label : dialog.findChildren<QLabel *>()) {
        sheets = label->text() == QStringLiteral("Matching s&heets:") ? qobject_cast<QLineEdit *>(label->buddy())
                                                                      : sheets;
    }
    ASSERT_TRUE(sheets);
    EXPECT_FALSE(sheets->isEnabled());
    type.setCurrentIndex(type.findData(FileType::ExcelXlsx));
    EXPECT_TRUE(sheets->isEnabled());
    EXPECT_FALSE(dialog.findChild<QTableWidget *>()->isColumnHidden(2));
}

TEST_F(FolderDialogTest, AStoppedListingSaysSo)
{
    m_source.recurse = true;
    FolderListing listing(m_source, FileType::Delimited);
    int files = 0;
    listing.run([&files] { return ++files < 2; });
    EXPECT_EQ(listing.rows().size(), 2);
    EXPECT_EQ(listing.summary(), QStringLiteral("2 file(s) matched in 1 folder(s), total size 4KB (stopped by user)"));
    EXPECT_EQ(listing.messages().last(), QStringLiteral("Stopped by user"));
}

TEST_F(FolderDialogTest, ChecksOfTheFields)
{
    struct Case
    {
        const char *what;
        const char *folder;
        const char *match;
        QStringList lines;
    };
    const Case cases[] = {
        {"all is well", "/d", "*.csv", {}},
        {"no folder", "", "*.csv", {"'Folder' is unset"}},
        {"a wildcard in the folder", "/d?", "*.csv", {"'Folder' should not contain '*' or '?' wildcards"}},
        {"nothing to match", "/d", "", {"'Matching files' is unset"}},
        {"a path to match", "/d", "sub/*.csv", {"'Matching files' should not contain '\\' or '/' characters"}},
        {"one name", "/d", "a.csv", {"'Matching files' should usually contain '*' or '?' wildcards"}},
        {"another type's extension", "/d", "*.json",
            {"File type 'Delimited text' may be incorrect for extension 'json'"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        FolderInput source;
        source.folder = QString::fromLatin1(c.folder);
        source.fileMatch = QString::fromLatin1(c.match);
        EXPECT_EQ(FolderListing(source, FileType::Delimited).checks(), c.lines);
    }
}
