#include "app/boxanswers.h"
#include "graph/colors.h"
#include "panes/preferences/generalpage.h"
#include "panes/preferences/preferencesdialog.h"
#include "panes/widgets/colorbutton.h"
#include "settings/settings.h"
#include "support/printers.h"
#include "support/scopedsettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>
#include <gtest/gtest.h>

// The preferences, changed by keys and the mouse.

namespace {

class Preferences : public testing::Test
{
protected:
    Preferences() { open(); }

    void open()
    {
        PreferencesStore store;
        store.moveToFile = [this] {
            ++m_moves;
            return m_canMove;
        };
        store.moveToSystem = store.moveToFile;
        store.file = m_folder.filePath(QStringLiteral("quillmere.ini"));
        m_dialog = std::make_unique<PreferencesDialog>(store, m_prompts);
        m_dialog->show();
    }
    /// The editor that is named by its label.
    template<class Widget>
    Widget &editor(const char *name) const
    {
        for (Widget *widget : m_dialog->findChildren<Widget *>()) {
            if (widget->accessibleName() == QLatin1String(name)) {
                return *widget;
            }
        }
        ADD_FAILURE() << name;
        return *m_dialog->findChild<Widget *>();
    }
    template<class Button>
    Button &button(const char *text) const
    {
        for (Button *found : m_dialog->findChildren<Button *>()) {
            if (found->text().remove('&') == QLatin1String(text)) {
                return *found;
            }
        }
        ADD_FAILURE() << text;
        return *m_dialog->findChild<Button *>();
    }
    void press(const char *text) const { button<QPushButton>(text).click(); }
    void choose(const char *label, const char *text) const
    {
        auto &box = editor<QComboBox>(label);
        box.setFocus();
        box.setCurrentIndex(box.findText(QLatin1String(text)));
        EXPECT_EQ(box.currentText(), QLatin1String(text));
        emit box.activated(box.currentIndex());
    }
    void type(const char *label, const char *keys) const
    {
        auto &box = editor<QAbstractSpinBox>(label);
        box.selectAll();
        QTest::keyClicks(&box, QLatin1String(keys));
        box.interpretText();
    }
    /// Changes something on each tab of rows.
    void changeRows() const
    {
        choose("At start-up:", "Open previous");
        choose("Opening a .transform with auto run:", "Disable outputs");
        choose("Copy data to clipboard text/plain as:", "Tab Separated Values");
        choose("Optimize processing for:", "Maximum speed");
        type("Maximum memory usage:", "7.5");
        button<QCheckBox>("warn on locale change").click();
        button<QCheckBox>("make a sound when processing completed").click();
        choose("User interface theme:", "Dark");
        choose("Tool bar icon size:", "Large");
        type("Right pane processing delay:", "0.5");
        choose("Zoom wheel behavior:", "Does nothing");
        type("Zoom wheel sensitivity:", "8");
        type("Data table padding:", "3");
        button<QCheckBox>("gray Left pane buttons when not available").click();
        button<QCheckBox>("move Note items with associated items").click();
        button<QCheckBox>("use native file windows").click();
    }
    static QVariantList rows()
    {
        const Settings &s = Settings::current();
        return {static_cast<int>(s.openPreviousAtStart()), static_cast<int>(s.openAutoRun()),
            static_cast<int>(s.copyDataAs()), static_cast<int>(s.optimizeFor()), s.maxMemoryUsage(),
            s.warnOnLocaleChange(), s.beepAfterProcessing(), static_cast<int>(s.uiTheme()),
            static_cast<int>(s.toolbarIconSize()), s.processingDelay(), static_cast<int>(s.mouseWheelBehaviour()),
            s.mouseWheelSensitivity(), s.dataFontVerticalPadding(), s.grayLeftPaneButtons(), s.autoMoveNotes(),
            s.useNativeFileDialogs()};
    }

    const ScopedSettings m_settings;
    QTemporaryDir m_folder;
    ScriptedPrompts m_prompts;
    bool m_canMove = true;
    int m_moves = 0;
    std::unique_ptr<PreferencesDialog> m_dialog;
};

} // namespace

TEST_F(Preferences, OkStoresEachRowAndShowsItAgain)
{
    changeRows();
    press("OK");
    const QVariantList expected{static_cast<int>(StartChoice::Previous),
        static_cast<int>(AutoRunChoice::DisableOutputs), static_cast<int>(TextForm::TabSeparated),
        static_cast<int>(RunOptimum::Speed), 7.5, false, true, static_cast<int>(UiTheme::Dark),
        static_cast<int>(ToolBarIcons::Large), 0.5, static_cast<int>(WheelBehaviour::Nothing), 8, 3, true, false,
        false};
    EXPECT_EQ(rows(), expected);
    open();
    EXPECT_EQ(editor<QComboBox>("Optimize processing for:").currentText(), "Maximum speed");
    EXPECT_EQ(editor<QDoubleSpinBox>("Right pane processing delay:").value(), 0.5);
    press("OK");
    EXPECT_EQ(rows(), expected);
}

TEST_F(Preferences, CancelStoresNothing)
{
    const QVariantList before = rows();
    const QStringList formats = Settings::current().dateFormats();
    changeRows();
    press("Default (US)");
    press("<< Set Custom To");
    press("Cancel");
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(Settings::current().dateFormats(), formats);
    EXPECT_EQ(Settings::current().colorScheme(), ColorScheme::Modern);
}

TEST_F(Preferences, WhatNobodyTouchesKeepsItsDefault)
{
    press("OK");
    for (const char *key : {"locale", "ui_font", "color_scheme", "date_formats", "input_file_extensions"}) {
        EXPECT_FALSE(Settings::current().isStored(QLatin1String(key))) << key;
    }
}

TEST_F(Preferences, TabsStandInTheirOrder)
{
    const auto *tabs = m_dialog->findChild<QTabWidget *>();
    QStringList titles;
    for (int tab = 0; tab < tabs->count(); ++tab) {
        titles.append(tabs->tabText(tab));
    }
    EXPECT_EQ(
        titles, (QStringList{"General", "User Interface", "Dates", "Input Extensions", "Output Extensions", "Colors"}));
}

TEST_F(Preferences, DateFormatsAreEditedAndChecked)
{
    auto &text = editor<QPlainTextEdit>("Supported date formats (1 per line):");
    press("Default (US)");
    EXPECT_TRUE(text.toPlainText().contains(QLatin1String("M/d/yyyy\nd/M/yyyy\nyyyy/M/d")));
    press("Default (non-US)");
    EXPECT_TRUE(text.toPlainText().contains(QLatin1String("d/M/yyyy\nM/d/yyyy\nyyyy/M/d\nd/M/yyyy")));
    text.selectAll();
    QTest::keyClicks(&text, QStringLiteral("d.M.yyyy"));
    QTest::keyClick(&text, Qt::Key_Return);
    QTest::keyClicks(&text, QStringLiteral("xx"));
    const QList<QLabel *> labels = m_dialog->findChildren<QLabel *>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(),
        [](const QLabel *label) { return label->text() == QLatin1String("'xx' shows no part of a date or a time"); }));
    press("OK");
    EXPECT_EQ(Settings::current().dateFormats(), (QStringList{"d.M.yyyy", "xx"}));
}

TEST_F(Preferences, ExtensionsAreAddedAndSetBack)
{
    const SettingsExtensions before = Settings::current().inputFileExtensions();
    auto *table = &editor<QTableWidget>("Input extensions");
    QTest::keyClick(table, Qt::Key_Insert);
    table->item(table->currentRow(), 0)->setData(Qt::UserRole, QStringLiteral(" .DAT"));
    auto &blocked = editor<QLineEdit>("Block output to files with extensions:");
    blocked.selectAll();
    QTest::keyClicks(&blocked, QStringLiteral("zip"));
    press("OK");
    SettingsExtensions wanted = before;
    wanted.insert(QStringLiteral("dat"), wanted.value(QStringLiteral("csv")));
    EXPECT_EQ(Settings::current().inputFileExtensions(), wanted);
    EXPECT_EQ(Settings::current().blockedOutputExtensions(), "zip");
    open();
    for (QToolButton *tool : m_dialog->findChildren<QToolButton *>()) {
        if (tool->toolTip().startsWith(QLatin1String("Set the input file extensions back to the default."))) {
            tool->click();
        }
    }
    press("OK");
    EXPECT_EQ(Settings::current().inputFileExtensions(), before);
}

TEST_F(Preferences, AnExtensionThatCantBeOneKeepsTheDialogOpen)
{
    const SettingsExtensions before = Settings::current().outputFileExtensions();
    auto *tabs = m_dialog->findChild<QTabWidget *>();
    auto *table = &editor<QTableWidget>("Output extensions");
    QTest::keyClick(table, Qt::Key_Insert); // a row in which nothing is typed is no fault
    const int empty = table->currentRow();
    QTest::keyClick(table, Qt::Key_Insert);
    const int faulty = table->currentRow();
    table->item(faulty, 0)->setData(Qt::UserRole, QStringLiteral("da t"));
    table->setCurrentCell(empty, 0);
    button<QCheckBox>("use native file windows").click();
    const bool native = Settings::current().useNativeFileDialogs();
    press("OK");
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_EQ(tabs->tabText(tabs->currentIndex()), "Output Extensions");
    EXPECT_EQ(table->currentRow(), faulty);
    EXPECT_EQ(Settings::current().useNativeFileDialogs(), native) << "all or nothing is stored";
    table->item(faulty, 0)->setData(Qt::UserRole, QStringLiteral("dat"));
    press("OK");
    EXPECT_FALSE(m_dialog->isVisible());
    SettingsExtensions wanted = before;
    wanted.insert(QStringLiteral("dat"), wanted.value(QStringLiteral("csv")));
    EXPECT_EQ(Settings::current().outputFileExtensions(), wanted);
}

TEST_F(Preferences, DefaultDatesFollowTheLocaleThatWasJustChosen)
{
    emit m_dialog->findChild<GeneralPage *>()->localeChosen(QLocale(QLocale::Finnish, QLocale::Finland));
    press("Default (non-US)");
    EXPECT_EQ(
        editor<QPlainTextEdit>("Supported date formats (1 per line):").toPlainText().section('\n', 0, 0), "d.M.yyyy");
}

TEST_F(Preferences, ChangedColorsSelectTheCustomScheme)
{
    auto &scheme = editor<QComboBox>("Color scheme:");
    EXPECT_EQ(scheme.currentText(), "Modern");
    emit editor<ColorButton>("Inputs: Fill").colorChosen(QColor(1, 2, 3));
    EXPECT_EQ(scheme.currentText(), "Custom");
    press("OK");
    EXPECT_EQ(Settings::current().colorScheme(), ColorScheme::Custom);
    EXPECT_EQ(Settings::current().customColor(Colors::InputBox), QColor(1, 2, 3));
    EXPECT_EQ(Colors(ColorScheme::Custom).color(Colors::OutputBox, ColorScheme::Custom),
        Colors().color(Colors::OutputBox, ColorScheme::Modern))
        << "the others stay";
}

TEST_F(Preferences, CustomTakesAnotherSchemeAndTheSystemsSelection)
{
    auto &source = editor<QComboBox>("Set Custom To");
    source.setCurrentIndex(source.findText(QStringLiteral("Sapphire")));
    press("<< Set Custom To");
    EXPECT_FALSE(button<QCheckBox>("from operating system").isChecked());
    button<QCheckBox>("from operating system").click();
    press("OK");
    const Colors custom(ColorScheme::Custom);
    EXPECT_EQ(custom.color(Colors::Background), Colors(ColorScheme::Sapphire).color(Colors::Background));
    EXPECT_EQ(custom.gradientEffect(), 6);
    EXPECT_FALSE(custom.color(Colors::Selection).isValid());
}

TEST_F(Preferences, IsToldWhenNothingCouldBeStored)
{
    Settings unwritable(QStringLiteral("/proc/version/quillmere.ini"));
    Settings::setCurrent(&unwritable);
    open();
    const BoxAnswers answers({"OK"});
    button<QCheckBox>("warn on locale change").click();
    press("OK");
    EXPECT_EQ(answers.texts(),
        QStringList("Cannot write to '/proc/version/quillmere.ini'.\nEnsure the file and folder have write permission "
                    "or move the executable to a folder with write permission."));
    EXPECT_FALSE(unwritable.warnOnLocaleChange()) << "it holds while the program runs";
    m_dialog.reset();
    Settings::setCurrent(nullptr);
}

TEST_F(Preferences, AStoreThatCantBeWrittenLeavesTheOldOne)
{
    m_canMove = false;
    changeRows();
    const QVariantList before = rows();
    const BoxAnswers answers({"OK"});
    choose("Store these preferences in:", "system store"); // the settings of tests are in a file
    press("OK");
    EXPECT_EQ(answers.texts().last(),
        QStringLiteral("Cannot write to '%1'.\nEnsure the file and folder have write permission or move the "
                       "executable to a folder with write permission.")
            .arg(m_folder.filePath(QStringLiteral("quillmere.ini"))));
    EXPECT_TRUE(m_dialog->isVisible()) << "so that another place can be chosen";
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(editor<QComboBox>("Store these preferences in:").currentText(), "portable .ini file");
}
