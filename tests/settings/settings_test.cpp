#include "settings/filetypes.h"
#include "settings/settingkey.h"
#include "settings/settingsdefaults.h"
#include "settings/settingsnotifier.h"
#include "support/printers.h"
#include "support/scopedsettings.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <gtest/gtest.h>

namespace {

/// A path that nobody can write to, not even an administrator: its folder is a file.
QString impossiblePath()
{
    return QStringLiteral("/proc/version/quillmere.ini");
}

struct DefaultCase
{
    const char *what;
    QVariant (*read)(const Settings &);
    QVariant expected;
};

TEST(Settings, EmptyStoreGivesDefaults)
{
    ScopedSettings scoped;
    const DefaultCase cases[] = {
        {"notes move with their items", [](const Settings &s) { return QVariant(s.autoMoveNotes()); }, true},
        {"updates are looked for every week", [](const Settings &s) { return QVariant(s.updateIntervalDays()); }, 7},
        {"the ceiling is 4 GiB", [](const Settings &s) { return QVariant(s.maxMemoryUsage()); }, 4.0},
        {"edits wait two seconds", [](const Settings &s) { return QVariant(s.processingDelay()); }, 2.0},
        {"changed cells are blue", [](const Settings &s) { return QVariant(s.changedDataColor().name()); }, "#4d8aff"},
        {"errors are red", [](const Settings &s) { return QVariant(s.verifyFailErrorColor().name()); }, "#e7405b"},
        {"infos are yellow", [](const Settings &s) { return QVariant(s.verifyFailInfoColor().name()); }, "#edb405"},
        {"warnings are orange", [](const Settings &s) { return QVariant(s.verifyFailWarningColor().name()); },
            "#ea8f06"},
        {"no update check yet", [](const Settings &s) { return QVariant(s.lastUpdatedCheck().isValid()); }, false},
        {"the row count starts at 0", [](const Settings &s) { return QVariant(s.totalRowsProcessed()); }, quint64(0)},
        {"and its milestone at a million", [](const Settings &s) { return QVariant(s.totalNextExpRowsToNotify()); }, 6},
        {"the list of frequencies has 20 rows", [](const Settings &s) { return QVariant(s.numColFrequences()); }, 20},
        {"search ignores case", [](const Settings &s) { return QVariant(s.findCaseSenstive()); }, false},
        {"search is by name", [](const Settings &s) { return QVariant(s.findInNames()); }, true},
        {"middle pane is the widest", [](const Settings &s) { return QVariant(s.splitterWidth2()); }, 600},
        {"no window was placed yet", [](const Settings &s) { return QVariant(s.geometry().isEmpty()); }, true},
        {"the start shows recent documents", [](const Settings &s) { return QVariant(int(s.openPreviousAtStart())); },
            int(StartChoice::RecentWindow)},
        {"no recent documents", [](const Settings &s) { return QVariant(s.recentDocs()); }, QStringList()},
        {"summary sorts by no column", [](const Settings &s) { return QVariant(s.itemSummarySortCol()); }, -1},
        {"or by the one given", [](const Settings &s) { return QVariant(s.itemSummarySortCol(3)); }, 3},
        {"new outputs are csv", [](const Settings &s) { return QVariant(s.defaultOutputExtension()); }, "csv"},
        {"blocked inputs stand as listed", [](const Settings &s) { return QVariant(s.blockedInputExtensions()); },
            "exe,bat,bsh,csh,zsh,cmd,py,js,com,doc,docx,scr,arx,bpl,vcl,mui,ocx,sys,drv,zip,arj,7z,png,jpeg,jpg,chm,"
            "hlp"},
        {"blocked outputs stand sorted", [](const Settings &s) { return QVariant(s.blockedOutputExtensions()); },
            "7z,arj,arx,bat,bpl,bsh,chm,cmd,com,csh,doc,docx,drv,exe,hlp,jpeg,jpg,js,mui,ocx,png,py,scr,sys,vcl,zip,"
            "zsh"},
    };
    for (const DefaultCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(c.read(Settings::current()), c.expected);
    }
    EXPECT_TRUE(QSettings(scoped->fileName(), QSettings::IniFormat).allKeys().isEmpty()) << "reading writes nothing";
}

TEST(Settings, ValuesOutliveTheObject)
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("quillmere.ini"));
    {
        Settings settings(file);
        settings.setTotalRowsProcessed(Q_UINT64_C(18446744073709551615));
        settings.setLastUpdatedCheck(QDate(2024, 2, 29));
        settings.setChangedDataColor(QColor(1, 2, 3));
        settings.setItemSummaryColOrder({2});
        settings.setItemSummaryColWidths({7, -1, 0});
        settings.setFindText(QStringLiteral("a, \"b\"\n\u00e9\u4e2d"));
        settings.setRecentDocs({QStringLiteral("/a,b.transform")});
        settings.setGeometry(QByteArray("\0\xff;=", 4));
        settings.setLocale(QLocale(QLocale::German, QLocale::Austria));
        settings.setAllTransformsAddedCount({{QStringLiteral("Pad"), 4}});
        settings.setDateFormats({QStringLiteral("d.M.yy"), QStringLiteral("yyyy")});
        settings.setCustomColor(14, QColor(9, 8, 7));
        settings.setTransformDefault(QStringLiteral("Pad"), QStringLiteral("Length"), 12);
    }
    const Settings settings(file);
    EXPECT_EQ(settings.totalRowsProcessed(), Q_UINT64_C(18446744073709551615));
    EXPECT_EQ(settings.lastUpdatedCheck(), QDate(2024, 2, 29));
    EXPECT_EQ(settings.changedDataColor(), QColor(1, 2, 3));
    EXPECT_EQ(settings.itemSummaryColOrder(), QList<int>{2});
    EXPECT_EQ(settings.itemSummaryColWidths(), (QList<int>{7, -1, 0}));
    EXPECT_EQ(settings.findText(), QStringLiteral("a, \"b\"\n\u00e9\u4e2d"));
    EXPECT_EQ(settings.recentDocs(), QStringList{QStringLiteral("/a,b.transform")});
    EXPECT_EQ(settings.geometry(), QByteArray("\0\xff;=", 4));
    EXPECT_EQ(settings.locale(), QLocale(QLocale::German, QLocale::Austria));
    EXPECT_EQ(settings.allTransformsAddedCount().value(QStringLiteral("Pad")), 4);
    EXPECT_EQ(settings.dateFormats(), (QStringList{QStringLiteral("d.M.yy"), QStringLiteral("yyyy")}));
    EXPECT_EQ(settings.customColor(14), QColor(9, 8, 7));
    EXPECT_EQ(settings.customColor(13, Qt::red), QColor(Qt::red));
    EXPECT_TRUE(settings.hasTransformDefault(QStringLiteral("Pad"), QStringLiteral("Length")));
    EXPECT_EQ(settings.transformDefault(QStringLiteral("Pad"), QStringLiteral("Length")), QVariant(12));
    EXPECT_FALSE(settings.hasTransformDefault(QStringLiteral("Chop"), QStringLiteral("Length")));
}

TEST(Settings, LocaleOfRunsWithoutOneIsNoChoice)
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("s.ini"));
    const QString key = QStringLiteral("locale");
    const QByteArray before = qgetenv("LC_ALL");
    qputenv("LC_ALL", "de_DE.UTF-8");
    for (const char *left : {"C", "POSIX", ""}) {
        SCOPED_TRACE(left);
        QSettings(file, QSettings::IniFormat).setValue(key, QString::fromLatin1(left));
        Settings settings(file);
        EXPECT_FALSE(settings.isStored(key));
        EXPECT_EQ(settings.locale().name(), QStringLiteral("de_DE"));
        EXPECT_EQ(settings.dateFormats().first(), QStringLiteral("dd.MM.yy"));
        settings.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        EXPECT_TRUE(settings.isStored(key));
        EXPECT_EQ(settings.dateFormats().first(), QStringLiteral("M/d/yyyy"));
        settings.setLocale(QLocale::c());
        EXPECT_FALSE(settings.isStored(key));
        EXPECT_TRUE(settings.sync());
        EXPECT_FALSE(QSettings(file, QSettings::IniFormat).contains(key));
    }
    qputenv("LC_ALL", before);
}

TEST(Settings, ReadsTheStoreOnceForAKey)
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("s.ini"));
    QSettings other(file, QSettings::IniFormat);
    other.setValue(QStringLiteral("num_col_frequences"), 5);
    other.sync();
    const Settings settings(file);
    EXPECT_EQ(settings.numColFrequences(), 5);
    // Within a process two QSettings on one file share their values, so the change is there to be seen.
    other.setValue(QStringLiteral("num_col_frequences"), 6);
    EXPECT_EQ(settings.numColFrequences(), 5);
    other.setValue(QStringLiteral("sample_combo_index"), 4);
    EXPECT_EQ(settings.sampleComboIndex(), 4) << "a default isn't kept as if it had been stored";
}

struct StoredCase
{
    const char *what;
    const char *line;
    QVariant (*read)(const Settings &);
    QVariant expected;
};

TEST(Settings, ConvertsWhatStandsInTheStore)
{
    const StoredCase cases[] = {
        {"a text that is a number", "num_col_frequences=7",
            [](const Settings &s) { return QVariant(s.numColFrequences()); }, 7},
        {"a text that isn't gives 0, not the default", "num_col_frequences=many",
            [](const Settings &s) { return QVariant(s.numColFrequences()); }, 0},
        {"a ceiling that isn't a number is 0", "max_memory_usage=lots",
            [](const Settings &s) { return QVariant(s.maxMemoryUsage()); }, 0.0},
        {"a bool as a number", "show_changes=1", [](const Settings &s) { return QVariant(s.showChanges()); }, true},
        {"a bool as a word", "auto_move_notes=false", [](const Settings &s) { return QVariant(s.autoMoveNotes()); },
            false},
        {"a colour by name", "changed_data_color=#010203",
            [](const Settings &s) { return QVariant(s.changedDataColor().name()); }, "#010203"},
        {"a broken colour is invalid", "changed_data_color=@Size(1 2)",
            [](const Settings &s) { return QVariant(s.changedDataColor().isValid()); }, false},
        {"a date in ISO form", "last_updated_check=2024-05-06",
            [](const Settings &s) { return QVariant(s.lastUpdatedCheck()); }, QDate(2024, 5, 6)},
        {"unquoted commas stay one text", "blocked_input_extensions=abc, csv",
            [](const Settings &s) { return QVariant(s.blockedInputExtensions()); }, "abc,csv"},
        {"one document is a list of one", "recent_docs=/a.transform",
            [](const Settings &s) { return QVariant(s.recentDocs()); }, QStringList{QStringLiteral("/a.transform")}},
        {"a choice by its number", "open_auto_run=4", [](const Settings &s) { return QVariant(int(s.openAutoRun())); },
            int(AutoRunChoice::DisableOutputs)},
        {"a number that no choice has is the first", "open_auto_run=5",
            [](const Settings &s) { return QVariant(int(s.openAutoRun())); }, int(AutoRunChoice::LeaveAutoRun)},
        {"nor is a negative one a choice", "mouse_wheel_behaviour=-1",
            [](const Settings &s) { return QVariant(int(s.mouseWheelBehaviour())); }, int(WheelBehaviour::Scroll)},
        {"a scheme past the last is the custom one", "color_scheme=11",
            [](const Settings &s) { return QVariant(int(s.colorScheme())); }, int(ColorScheme::Custom)},
        {"an unknown interval of updates is never", "auto_update_interval=12",
            [](const Settings &s) { return QVariant(s.updateIntervalDays()); }, 0},
        {"the way of sorting is one of Qt's", "item_summary_sort_order=0",
            [](const Settings &s) { return QVariant(int(s.itemSummarySortOrder())); }, int(Qt::AscendingOrder)},
        {"a locale by name", "locale=de_DE", [](const Settings &s) { return QVariant(s.locale().name()); }, "de_DE"},
        {"an unknown locale is the plain one", "locale=zz_ZZ",
            [](const Settings &s) { return QVariant(s.locale().name()); }, "C"},
        {"line breaks part date formats, empty lines don't count", "date_formats=d.M.yyyy\\n\\nyyyy",
            [](const Settings &s) { return QVariant(s.dateFormats()); },
            QStringList({QStringLiteral("d.M.yyyy"), QStringLiteral("yyyy")})},
    };
    QTemporaryDir folder;
    int number = 0;
    for (const StoredCase &c : cases) {
        SCOPED_TRACE(c.what);
        QFile file(folder.filePath(QString::number(++number)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("[General]\n") + c.line + '\n');
        file.close();
        EXPECT_EQ(c.read(Settings(file.fileName())), c.expected);
    }
}

TEST(Settings, BrokenOrUnreachableStoreIsAnEmptyOne)
{
    const Settings missing(impossiblePath());
    EXPECT_EQ(missing.numColFrequences(), 20);
    EXPECT_FALSE(missing.isWritable());
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("broken.ini")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("\x01\x02]]][\nno equals sign\n\xff\xfe=\n");
    file.close();
    Settings broken(file.fileName());
    EXPECT_EQ(broken.numColFrequences(), 20);
    broken.setNumColFrequences(3);
    EXPECT_TRUE(broken.sync()) << "it can be written to";
    EXPECT_EQ(Settings(file.fileName()).numColFrequences(), 3);
}

TEST(Settings, SetterHoldsWithoutAWritableStore)
{
    Settings settings(impossiblePath());
    settings.setNumColFrequences(3);
    EXPECT_EQ(settings.numColFrequences(), 3);
    EXPECT_FALSE(settings.sync());
}

class StoreMove : public testing::Test
{
protected:
    void SetUp() override
    {
        m_before = qgetenv("XDG_CONFIG_HOME");
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.filePath(QStringLiteral("config")));
    }
    void TearDown() override
    {
        const QString home = m_before.isEmpty() ? QDir::homePath() + QStringLiteral("/.config")
                                                : QString::fromUtf8(m_before);
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home);
    }
    QString ini() const { return m_folder.filePath(QStringLiteral("quillmere.ini")); }
    QString systemFile() const { return m_folder.filePath(QStringLiteral("config/Marlwick/Quillmere.conf")); }

    QTemporaryDir m_folder;
    QByteArray m_before;
};

TEST_F(StoreMove, IniLeavesTheSystemStoreAlone)
{
    {
        Settings settings(ini());
        settings.setSessions(4);
        EXPECT_TRUE(settings.isIni());
    }
    EXPECT_TRUE(QFile::exists(ini()));
    EXPECT_FALSE(QFile::exists(systemFile()));
}

TEST_F(StoreMove, EveryKeyMovesThereAndBack)
{
    {
        Settings settings;
        EXPECT_EQ(settings.fileName(), systemFile());
        EXPECT_FALSE(settings.isIni());
        settings.setSessions(4);
        settings.setTransformDefault(QStringLiteral("Pad"), QStringLiteral("Length"), 12);
        ASSERT_TRUE(settings.reopenAsIni(ini()));
        EXPECT_TRUE(settings.isIni());
        EXPECT_EQ(settings.sessions(), 4);
    }
    EXPECT_TRUE(QSettings(systemFile(), QSettings::IniFormat).allKeys().isEmpty());
    {
        Settings settings(ini());
        EXPECT_EQ(settings.transformDefault(QStringLiteral("Pad"), QStringLiteral("Length")).toInt(), 12);
        ASSERT_TRUE(settings.reopenAsSystem());
        EXPECT_FALSE(settings.isIni());
    }
    EXPECT_FALSE(QFile::exists(ini())) << "an ini file that stays would be taken at the next start";
    EXPECT_EQ(Settings().sessions(), 4);
}

TEST_F(StoreMove, UnwritableTargetLeavesTheOldStore)
{
    Settings settings;
    settings.setSessions(4);
    EXPECT_FALSE(settings.reopenAsIni(impossiblePath()));
    EXPECT_FALSE(settings.isIni());
    EXPECT_EQ(settings.sessions(), 4);
    settings.sync();
    EXPECT_EQ(QSettings(systemFile(), QSettings::IniFormat).value(QStringLiteral("sessions")).toInt(), 4);
}

TEST(Settings, ChangesAreToldByKey)
{
    struct Change
    {
        const char *sentence;
        void (*change)(Settings &);
        QStringList keys;
    };
    const Change changes[] = {
        {"a value that differs from the default", [](Settings &s) { s.setMaxMemoryUsage(8); }, {"max_memory_usage"}},
        {"the same once more is no change", [](Settings &s) { s.setMaxMemoryUsage(8); }, {}},
        {"a choice", [](Settings &s) { s.setUiTheme(UiTheme::Dark); }, {"ui_theme"}},
        {"the same choice", [](Settings &s) { s.setUiTheme(UiTheme::Dark); }, {}},
        {"a font", [](Settings &s) { s.setDataFont(QFont(QStringLiteral("Some Family"), 8)); }, {"data_font"}},
        {"the same font", [](Settings &s) { s.setDataFont(QFont(QStringLiteral("Some Family"), 8)); }, {}},
        {"a colour of the custom scheme", [](Settings &s) { s.setCustomColor(3, Qt::red); }, {"custom_color_3"}},
        {"the program's font counts where the user chose none",
            [](Settings &s) { s.setDefaultFont(QFont(QStringLiteral("Other Family"), 17)); }, {"ui_font"}},
        {"so does the theme's scheme", [](Settings &s) { s.setThemeColorScheme(ColorScheme::Dark); }, {"color_scheme"}},
        {"the scheme that was there already", [](Settings &s) { s.setThemeColorScheme(ColorScheme::Dark); }, {}},
        {"the user's own scheme", [](Settings &s) { s.setColorScheme(ColorScheme::Candy); }, {"color_scheme"}},
        {"which holds against the theme's", [](Settings &s) { s.setThemeColorScheme(ColorScheme::Modern); }, {}},
        {"a locale", [](Settings &s) { s.setLocale(QLocale(QLocale::German)); }, {"locale"}},
        {"a locale that nobody chose takes it away", [](Settings &s) { s.setLocale(QLocale::c()); }, {"locale"}},
        {"a tip that has been shown", [](Settings &s) { s.isTipShown(QStringLiteral("tip_drilldown")); },
            {"tip_drilldown"}},
    };
    ScopedSettings scoped;
    QStringList told;
    QObject::connect(&scoped->notifier(), &SettingsNotifier::changed, [&](const QString &key) { told.append(key); });
    for (const Change &c : changes) {
        SCOPED_TRACE(c.sentence);
        told.clear();
        c.change(Settings::current());
        EXPECT_EQ(told, c.keys);
    }
}

TEST(Settings, ListenersReadTheNewValue)
{
    ScopedSettings scoped;
    scoped->setColorScheme(ColorScheme::Vivid);
    ColorScheme read = ColorScheme::Vivid;
    QObject::connect(
        &scoped->notifier(), &SettingsNotifier::changed, [&] { read = Settings::current().colorScheme(); });
    scoped->setColorScheme(ColorScheme::Candy);
    EXPECT_EQ(read, ColorScheme::Candy);
    EXPECT_EQ(QSettings(scoped->fileName(), QSettings::IniFormat).value(SettingKey::colorScheme).toInt(), 3)
        << "choices are stored as numbers";
}

TEST(Settings, TipIsNewOncePerKey)
{
    ScopedSettings scoped;
    EXPECT_FALSE(scoped->isTipShown(QStringLiteral("tip_drilldown")));
    EXPECT_TRUE(scoped->isTipShown(QStringLiteral("tip_drilldown")));
    EXPECT_FALSE(scoped->isTipShown(QStringLiteral("tip_edit_transform")));
}

TEST(Settings, OptionDefaultsAreKeptByKindTypeAndExtension)
{
    ScopedSettings scoped;
    const QString inputs = QStringLiteral("inputs");
    const QString type = FileType::label(FileType::Delimited);
    const QString option = QStringLiteral("trim_whitespace");
    scoped->setDefaultOption(inputs, type, QStringLiteral("csv"), option, false);
    EXPECT_TRUE(scoped->isStored(QStringLiteral("defaults/inputs/Delimited text/csv/trim_whitespace")));
    EXPECT_EQ(scoped->defaultOption(inputs, type, QStringLiteral("csv"), option, true), QVariant(false));
    EXPECT_EQ(scoped->defaultOption(inputs, type, QStringLiteral("(Empty)"), option, true), QVariant(true));
    EXPECT_FALSE(scoped->hasDefaultOption(QStringLiteral("outputs"), type, QStringLiteral("csv"), option));
}

TEST(Settings, TypesByExtension)
{
    ScopedSettings scoped;
    EXPECT_EQ(scoped->inputTypeOf(QStringLiteral("CSV")), int(FileType::Delimited));
    EXPECT_EQ(scoped->inputTypeOf(QStringLiteral("xlsx")), int(FileType::ExcelXlsx));
    EXPECT_EQ(scoped->inputTypeOf(QStringLiteral("vcf")), int(FileType::VCard));
    EXPECT_EQ(scoped->inputTypeOf(QStringLiteral("odd")), int(FileType::None));
    EXPECT_EQ(scoped->inputTypeOf(QString()), int(FileType::None));
    EXPECT_EQ(scoped->outputTypeOf(QStringLiteral("txt")), int(FileType::PlainText));
    EXPECT_EQ(scoped->outputTypeOf(QStringLiteral("tsv")), int(FileType::Delimited));
    EXPECT_EQ(scoped->outputTypeOf(QStringLiteral("md")), int(FileType::Markdown));
    scoped->setInputFileExtensions({{QStringLiteral("odd"), FileType::Json}});
    EXPECT_EQ(scoped->inputTypeOf(QStringLiteral("odd")), int(FileType::Json));
    EXPECT_EQ(scoped->inputTypeOf(QStringLiteral("csv")), int(FileType::Delimited)) << "the built-in table backs it";
}

TEST(Settings, PlainTextComesToOldOutputTablesOnce)
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("old.ini"));
    QSettings(file, QSettings::IniFormat)
        .setValue(
            QStringLiteral("output_file_extensions"), QVariantMap{{QStringLiteral("txt"), int(FileType::Delimited)}});
    Settings settings(file);
    EXPECT_EQ(settings.outputFileExtensions(), (SettingsExtensions{{QStringLiteral("log"), FileType::PlainText},
                                                   {QStringLiteral("txt"), FileType::Delimited}}));
    settings.setOutputFileExtensions({{QStringLiteral("txt"), FileType::Delimited}});
    EXPECT_EQ(settings.outputFileExtensions().size(), 1) << "what the user took out stays out";
}

TEST(Settings, FiltersOfFileDialogs)
{
    ScopedSettings scoped;
    EXPECT_EQ(scoped->outputFileFilter(),
        QStringLiteral(
            "Delimited text file (*.csv);;Excel XLSX file (*.xlsx);;Excel XLS file (*.xls);;HTML file (*.html);;"
            "JSON file (*.json);;Plain text file (*.log);;Markdown file (*.md);;XML file (*.xml);;"
            "vCard file (*.vcf);;YAML file (*.yaml)"));
    scoped->setInputFileExtensions({{QStringLiteral("b"), 0}, {QStringLiteral("a"), 4}});
    EXPECT_EQ(scoped->inputFileFilter(), QStringLiteral("Input data files (*.a *.b);;All Files (*.*)"));
}

TEST(Settings, BlockedExtensions)
{
    const QString list = QStringLiteral("exe, .BAT ,,py");
    EXPECT_TRUE(Settings::isExtensionBlocked(QStringLiteral("EXE"), list));
    EXPECT_TRUE(Settings::isExtensionBlocked(QStringLiteral("bat"), list));
    EXPECT_FALSE(Settings::isExtensionBlocked(QStringLiteral("p"), list));
    EXPECT_FALSE(Settings::isExtensionBlocked(QString(), list)) << "a gap in the list blocks nothing";
}

struct FormatCase
{
    const char *what;
    const char *locale;
    QString first;
    int count;
};

TEST(Settings, DateFormatsFollowTheLocaleSetting)
{
    const FormatCase cases[] = {
        {"an American short format is in the list", "en_US", QStringLiteral("M/d/yyyy"), 12},
        {"a German one goes first", "de_DE", QStringLiteral("dd.MM.yy"), 13},
        {"a British one too", "en_GB", QStringLiteral("dd/MM/yyyy"), 13},
    };
    for (const FormatCase &c : cases) {
        SCOPED_TRACE(c.what);
        ScopedSettings scoped;
        scoped->setLocale(QLocale(QString::fromLatin1(c.locale)));
        EXPECT_EQ(scoped->dateFormats().value(0), c.first);
        EXPECT_EQ(scoped->dateFormats().size(), c.count);
    }
}

TEST(Settings, DerivedNumbers)
{
    ScopedSettings scoped;
    const int days[] = {1, 7, 30, 0};
    for (int i = 0; i < 4; ++i) {
        scoped->setAutoUpdateInterval(UpdateInterval(i));
        EXPECT_EQ(scoped->updateIntervalDays(), days[i]) << i;
    }
    EXPECT_DOUBLE_EQ(Settings::wheelFactor(5), 1.25);
    EXPECT_DOUBLE_EQ(Settings::wheelFactor(6), 1.375);
    EXPECT_DOUBLE_EQ(Settings::wheelFactor(4), 1.0 + 0.25 / 1.5);
}

TEST(Settings, FontsFollowTheProgramUntilChosen)
{
    ScopedSettings scoped;
    QFont font(QStringLiteral("Some Family"), 17);
    scoped->setDefaultFont(font);
    EXPECT_EQ(scoped->uiFont(), font);
    font.setPointSize(9);
    scoped->setUiFont(font);
    EXPECT_EQ(scoped->uiFont().pointSize(), 9);
    EXPECT_EQ(scoped->dataFont().pointSize(), 17);
}

} // namespace

TEST(SessionLocale, IsThatOfNumbersNotOfWords)
{
    struct Environment
    {
        const char *sentence;
        const char *all;
        const char *numeric;
        const char *lang;
        const char *language;
        const char *locale;
        const char *variable;
    };
    const Environment cases[] = {
        {"formats of another country", "", "de_DE.UTF-8", "en_US.UTF-8", "", "de_DE", "LC_NUMERIC"},
        {"words of another language", "", "", "en_US.UTF-8", "fr", "en_US", "LANG"},
        {"one for all", "sv_SE.UTF-8", "de_DE.UTF-8", "en_US.UTF-8", "", "sv_SE", "LC_ALL"},
        {"none", "", "", "C.UTF-8", "", "C", "LANG"},
    };
    const QList<QByteArray> names{"LC_ALL", "LC_NUMERIC", "LANG", "LANGUAGE"};
    QList<QByteArray> before;
    for (const QByteArray &name : names) {
        before.append(qgetenv(name.constData()));
    }
    for (const Environment &each : cases) {
        SCOPED_TRACE(each.sentence);
        qputenv("LC_ALL", each.all);
        qputenv("LC_NUMERIC", each.numeric);
        qputenv("LANG", each.lang);
        qputenv("LANGUAGE", each.language);
        EXPECT_EQ(SettingsDefaults::sessionLocale().locale.name().toStdString(), each.locale);
        EXPECT_EQ(SettingsDefaults::sessionLocale().variable.toStdString(), each.variable);
    }
    for (int i = 0; i < names.size(); ++i) {
        qputenv(names.at(i).constData(), before.at(i));
    }
}
