#include "app/commandlinedialog.h"

#include "app/logwidget.h"
#include "graph/graphscene.h"
#include "panes/dialogs/helphook.h"
#include "panes/dialogs/prompts.h"
#include "panes/widgets/keptgeometry.h"
#include "settings/settings.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFormLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

constexpr int longestPause = 3600;

QPlainTextEdit *readOnlyText(const QString &name)
{
    auto *edit = new QPlainTextEdit;
    edit->setReadOnly(true);
    edit->setAccessibleName(name);
    return edit;
}

QHBoxLayout *row(std::initializer_list<QWidget *> widgets)
{
    auto *layout = new QHBoxLayout;
    for (QWidget *widget : widgets) {
        layout->addWidget(widget);
    }
    return layout;
}

} // namespace

CommandLineDialog::CommandLineDialog(
    const GraphScene &scene, const QString &documentPath, bool isModified, Prompts &prompts)
    : QDialog(prompts.window())
    , m_prompts(prompts)
    , m_items(commandLineItems(scene))
    , m_documentPath(documentPath)
    , m_isModified(isModified)
{
    setWindowTitle(QStringLiteral("Command Line"));
    HelpHook::setHelpPage(*this, QStringLiteral("Command_line"));
    new QVBoxLayout(this);
    buildForm();
    buildText();
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close | QDialogButtonBox::Help);
    connect(buttons, &QDialogButtonBox::helpRequested, this, &CommandLineDialog::onHelpRequested);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout()->addWidget(buttons);
    keepGeometry(*this, &Settings::commandLineWindowGeometry, &Settings::setCommandLineWindowGeometry);
    onLoopAliasChanged();
}

void CommandLineDialog::buildForm()
{
    m_format = new QComboBox;
    m_format->addItems({QStringLiteral("Windows command prompt"), QStringLiteral("Windows .bat file")});
    auto *note = new QLabel(QStringLiteral(
        "Due to the vagaries of Windows, the 'for' variable has to be %f on command line and %%f in .bat file."));
    note->setWordWrap(true);
    m_pause = new QSpinBox;
    m_pause->setMaximum(longestPause);
    m_pause->setSuffix(QStringLiteral(" seconds"));
    m_pause->setToolTip(
        QStringLiteral("The number of seconds to pause after each run. Set to >0 to stop output of different run "
                       "outputs overlapping."));
    m_verbosity = new QComboBox;
    for (int level = Verbosity::Silent; level <= Verbosity::Maximum; ++level) {
        m_verbosity->addItem(Verbosity::name(level));
        m_verbosity->setItemData(level, Verbosity::description(level), Qt::ToolTipRole);
    }
    m_verbosity->setCurrentIndex(Verbosity::Normal);
    m_log = new LogWidget(m_prompts);
    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("&Format for:"), m_format);
    form->addRow(note);
    form->addRow(QStringLiteral("&Pause for:"), m_pause);
    form->addRow(QStringLiteral("&Verbosity:"), m_verbosity);
    form->addRow(QString(), m_log);
    static_cast<QVBoxLayout *>(layout())->addLayout(form);
    layout()->addWidget(buildLoop());
    connect(m_format, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &CommandLineDialog::onChanged);
    connect(m_verbosity, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &CommandLineDialog::onChanged);
    connect(m_log, &LogWidget::changed, this, &CommandLineDialog::onChanged);
    connect(m_pause, QOverload<int>::of(&QSpinBox::valueChanged), this, &CommandLineDialog::onChanged);
}

QGroupBox *CommandLineDialog::buildLoop()
{
    m_loop = new QCheckBox(QStringLiteral("&Loop:"));
    m_loop->setToolTip(QStringLiteral("Check to loop on an input."));
    m_loopAlias = new QComboBox;
    for (const CommandLineItem &item : m_items) {
        if (item.kind == CommandLineItem::Input && !item.isFolder && !item.alias.isEmpty()) {
            m_loopAlias->addItem(item.alias, item.path);
        }
    }
    m_loopFolder = new QLineEdit;
    m_browseFolder = new QPushButton(QStringLiteral("Browse..."));
    m_loopMatching = new QLineEdit;
    auto *folderLabel = new QLabel(QStringLiteral("for files in fol&der"));
    folderLabel->setBuddy(m_loopFolder);
    auto *form = new QFormLayout;
    form->addRow(m_loop);
    form->addRow(QStringLiteral("on input with &alias"), m_loopAlias);
    form->addRow(folderLabel, row({m_loopFolder, m_browseFolder}));
    form->addRow(QStringLiteral("&matching"), m_loopMatching);
    auto *group = new QGroupBox;
    group->setLayout(form);
    connect(m_loop, &QCheckBox::toggled, this, &CommandLineDialog::onChanged);
    connect(
        m_loopAlias, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &CommandLineDialog::onLoopAliasChanged);
    connect(m_loopFolder, &QLineEdit::textChanged, this, &CommandLineDialog::onChanged);
    connect(m_loopMatching, &QLineEdit::textChanged, this, &CommandLineDialog::onChanged);
    connect(m_browseFolder, &QPushButton::clicked, this, &CommandLineDialog::onBrowseFolder);
    return group;
}

void CommandLineDialog::buildText()
{
    auto *text = new QLabel(
        QStringLiteral("Copy the following text and paste it into a %1.\nChange the location of input and "
                       "output files, as required. Click 'Help' for more details.")
            .arg(QStringLiteral("Windows Command prompt or batch file")));
    m_text = readOnlyText(QStringLiteral("Command"));
    auto *copy = new QPushButton(QStringLiteral("&Copy"));
    copy->setToolTip(QStringLiteral("Copy example text to the clipboard"));
    m_warningsLabel = new QLabel(QStringLiteral("Warnings:"));
    m_warnings = readOnlyText(QStringLiteral("Warnings"));
    auto *copyRow = row({copy});
    copyRow->addStretch();
    auto *box = static_cast<QVBoxLayout *>(layout());
    box->addWidget(text);
    box->addWidget(m_text, 2);
    box->addLayout(copyRow);
    box->addWidget(m_warningsLabel);
    box->addWidget(m_warnings, 1);
    connect(copy, &QPushButton::clicked, this, &CommandLineDialog::onCopy);
}

CommandLineTextOptions CommandLineDialog::options() const
{
    CommandLineTextOptions chosen;
    chosen.format = CommandLineTextOptions::Format(m_format->currentIndex());
    chosen.pauseSeconds = m_pause->value();
    chosen.verbosity = m_verbosity->currentIndex();
    chosen.logging = m_log->isLogging();
    chosen.logPath = m_log->path();
    chosen.overwriteLog = m_log->overwrites();
    chosen.loop = m_loop->isChecked() && m_loopAlias->count() > 0;
    chosen.loopAlias = m_loopAlias->currentText();
    chosen.loopFolder = m_loopFolder->text();
    chosen.loopMatching = m_loopMatching->text();
    chosen.hasUnsavedChanges = m_isModified;
    return chosen;
}

void CommandLineDialog::onChanged()
{
    const CommandLineText command = commandLineText(
        QDir::toNativeSeparators(QCoreApplication::applicationFilePath()), m_documentPath, m_items, options());
    m_text->setPlainText(command.text);
    m_warnings->setPlainText(command.warnings.join(QLatin1Char('\n')));
    m_warnings->setVisible(!command.warnings.isEmpty());
    m_warningsLabel->setVisible(!command.warnings.isEmpty());
    m_loop->setEnabled(m_loopAlias->count() > 0);
    for (QWidget *widget :
        std::initializer_list<QWidget *>{m_loopAlias, m_loopFolder, m_browseFolder, m_loopMatching}) {
        widget->setEnabled(m_loop->isChecked());
    }
}

void CommandLineDialog::onLoopAliasChanged()
{
    const LoopPattern pattern = loopPatternOf(m_loopAlias->currentData().toString());
    m_loopFolder->setText(m_loopAlias->count() > 0 ? pattern.folder : QString());
    m_loopMatching->setText(m_loopAlias->count() > 0 ? pattern.matching : QString());
    onChanged();
}

void CommandLineDialog::onBrowseFolder()
{
    const QString folder = m_prompts.openFolder({QStringLiteral("Select folder"), m_loopFolder->text(), QString()});
    if (!folder.isEmpty()) {
        m_loopFolder->setText(QDir::toNativeSeparators(folder));
    }
}

void CommandLineDialog::onHelpRequested()
{
    HelpHook::showHelp(this, QStringLiteral("Command_line"));
}

void CommandLineDialog::onCopy()
{
    QGuiApplication::clipboard()->setText(m_text->toPlainText());
}
