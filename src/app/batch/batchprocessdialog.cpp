#include "app/batch/batchprocessdialog.h"

#include "app/batch/batchgrid.h"
#include "app/batch/batchgridmodel.h"
#include "app/batch/batchprocess.h"
#include "app/batch/batchresults.h"
#include "app/logwidget.h"
#include "graph/graphscene.h"
#include "outputs/filenamevariables.h"
#include "panes/dialogs/helphook.h"
#include "panes/dialogs/prompts.h"
#include "settings/settings.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(1000, 720);
constexpr int screenMargin = 60;
/// Of the height, where the grid would leave less than a third for the results.
constexpr double largestShareOfGrid = 0.67;

QPushButton *button(const char *text, const char *tip)
{
    auto *made = new QPushButton(QString::fromLatin1(text));
    made->setToolTip(QString::fromLatin1(tip));
    made->setAutoDefault(false);
    return made;
}

QCheckBox *checkBox(const char *text, const char *tip)
{
    auto *made = new QCheckBox(QString::fromLatin1(text));
    made->setToolTip(QString::fromLatin1(tip));
    return made;
}

QWidget *rowOf(std::initializer_list<QWidget *> widgets)
{
    auto *widget = new QWidget;
    auto *layout = new QHBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget *member : widgets) {
        member ? layout->addWidget(member) : layout->addStretch();
    }
    return widget;
}

} // namespace

BatchProcessDialog::BatchProcessDialog(const GraphScene &scene, const BatchSettings &settings, Prompts &prompts)
    : QDialog(prompts.window())
    , m_scene(scene)
    , m_prompts(prompts)
{
    setWindowTitle(QStringLiteral("Batch Process[*]"));
    HelpHook::setHelpPage(*this, QStringLiteral("Batch_processing"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    const BatchColumns columns = batchColumns(commandLineItems(scene));
    build(columns);
    fill(settings);
    resize(firstSize.boundedTo(QGuiApplication::primaryScreen()->availableSize() - QSize(screenMargin, screenMargin)));
    restoreGeometry(Settings::current().batchWindowGeometry());
    setWindowModified(false);
    onUpdateButtons();
    QTimer::singleShot(0, this, &BatchProcessDialog::onSetSplitterDefaultLayout);
}

BatchProcessDialog::~BatchProcessDialog() = default;

void BatchProcessDialog::build(const BatchColumns &columns)
{
    m_model = new BatchGridModel(columns.columns, this);
    m_grid = new BatchGrid(*m_model, m_prompts);
    m_results = new BatchResults;
    m_tip = new QLabel(tipText(columns));
    m_tip->setTextFormat(Qt::PlainText);
    m_tip->setWordWrap(true);
    m_tip->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_splitter = new QSplitter(Qt::Vertical);
    m_splitter->addWidget(m_grid);
    m_splitter->addWidget(m_results);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(0, 0);
    m_splitter->setStretchFactor(1, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tip);
    layout->addWidget(buildRowButtons());
    layout->addWidget(m_splitter, 1);
    layout->addWidget(buildRunRow());
    m_process = button("&Process", "Start processing.");
    m_stop = button("&Stop", "Stop processing.");
    m_sound = checkBox("&make a sound on completion", "Check to make a sound when batch processing complete.");
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Close | QDialogButtonBox::Help);
    m_buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    m_buttons->button(QDialogButtonBox::Help)->setAutoDefault(false);
    layout->addWidget(rowOf({m_process, m_stop, m_sound, nullptr, m_buttons}));
    connect(m_process, &QPushButton::clicked, this, &BatchProcessDialog::onProcess);
    connect(m_stop, &QPushButton::clicked, this, &BatchProcessDialog::onStop);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_buttons, &QDialogButtonBox::helpRequested, this, &BatchProcessDialog::onHelpRequested);
    connect(m_grid, &BatchGrid::pathEdited, this, &BatchProcessDialog::onPathModified);
    connect(
        m_grid->selectionModel(), &QItemSelectionModel::selectionChanged, this, &BatchProcessDialog::onUpdateButtons);
    connect(m_splitter, &QSplitter::splitterMoved, this, [this] { m_splitterMoved = true; });
}

QWidget *BatchProcessDialog::buildRowButtons()
{
    m_add = button("&Add", "Add a row to process.");
    m_remove = button("&Remove", "Remove selected row(s).");
    m_clear = button("Cl&ear", "Clear all rows.");
    m_clearBeforeAppend = checkBox("clear 'Append' outputs be&fore first append",
        "Check if you want to clear any ouytput files with 'Write mode'=Append before the first append.");
    m_showTips = checkBox("show &tips", "Check to show helpful tips.");
    connect(m_add, &QPushButton::clicked, this, &BatchProcessDialog::onAddRow);
    connect(m_remove, &QPushButton::clicked, this, &BatchProcessDialog::onRemoveRows);
    connect(m_clear, &QPushButton::clicked, this, &BatchProcessDialog::onClear);
    connect(m_showTips, &QCheckBox::toggled, this, &BatchProcessDialog::onTipsToggled);
    return rowOf({m_add, m_remove, m_clear, m_clearBeforeAppend, nullptr, m_showTips});
}

QWidget *BatchProcessDialog::buildRunRow()
{
    m_verbosity = new QComboBox;
    for (int level = Verbosity::Silent; level <= Verbosity::Maximum; ++level) {
        m_verbosity->addItem(Verbosity::name(level));
        m_verbosity->setItemData(level, Verbosity::description(level), Qt::ToolTipRole);
    }
    auto *label = new QLabel(QStringLiteral("&Verbosity:"));
    label->setBuddy(m_verbosity);
    m_log = new LogWidget(m_prompts);
    QWidget *row = rowOf({label, m_verbosity, m_log});
    row->layout()->setSpacing(8);
    connect(m_verbosity, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &BatchProcessDialog::onVerbosityChanged);
    connect(m_log, &LogWidget::changed, this, &BatchProcessDialog::onLoggingChanged);
    return row;
}

QString BatchProcessDialog::tipText(const BatchColumns &columns) const
{
    QString folder = QDir::toNativeSeparators(QDir::homePath());
    QString alias;
    for (const BatchColumn &column : columns.columns) {
        if (alias.isEmpty() && column.kind == CommandLineItem::Input && !column.isFolder) {
            alias = column.alias;
            folder = QDir::toNativeSeparators(QFileInfo(column.ownPath).absolutePath());
        }
    }
    folder += folder.endsWith(QDir::separator()) ? QString() : QString(QDir::separator());
    const QString ofAlias = QStringLiteral("{%1}").arg(alias);
    QStringList parts;
    for (const char *part : {"fname", "folder", "lastfolder", "ext", "sheet"}) {
        parts.append(QStringLiteral("{%1.%2}").arg(alias, QLatin1String(part)));
    }
    const QString where = QStringLiteral("\n%1 is the name of the file of input '%2', and %3 are parts of its path."
                                         "\n%4 are filled in as each file is written.")
                              .arg(ofAlias, alias, parts.join(QStringLiteral(", ")),
                                  FileNameVariables::names().join(QStringLiteral(", ")));
    QString text = QStringLiteral("Input file locations can include wildcards and Excel sheet names:\n"
                                  "E.g. '%1*.csv' or '%1*.xlsx[*]'.\n"
                                  "Output file locations can include variables:\n"
                                  "E.g. '%1output%2%3.csv'.\n"
                                  "Where:%4\n"
                                  "Click 'Help' for more details.")
                       .arg(folder, QLatin1Char('_') + ofAlias, QStringLiteral("_{date}"), where);
    for (const QString &line : columns.leftOut) {
        text += QLatin1Char('\n') + line;
    }
    return text;
}

void BatchProcessDialog::fill(const BatchSettings &settings)
{
    m_model->setValues(settings.values);
    if (m_model->rowCount() == 0) {
        m_model->addRow();
    }
    m_verbosity->setCurrentIndex(settings.verbosity);
    m_log->setValues(settings.loggingEnabled, settings.logPath, settings.logMode == BatchSettings::Overwrite);
    const Settings &stored = Settings::current();
    m_clearBeforeAppend->setChecked(stored.batchClearBeforeAppend());
    m_sound->setChecked(stored.batchCompletionSound());
    m_showTips->setChecked(stored.batchShowTips());
    onTipsToggled(m_showTips->isChecked());
}

BatchSettings BatchProcessDialog::settings() const
{
    BatchSettings settings;
    settings.values = m_model->values();
    settings.verbosity = m_verbosity->currentIndex();
    settings.loggingEnabled = m_log->isLogging();
    settings.logPath = m_log->path();
    settings.logMode = m_log->overwrites() ? BatchSettings::Overwrite : BatchSettings::Append;
    return settings;
}

void BatchProcessDialog::done(int result)
{
    if (m_batch) {
        m_closesAfterRun = true;
        onStop();
        return;
    }
    storeSettings();
    QDialog::done(result);
}

void BatchProcessDialog::storeSettings()
{
    Settings &stored = Settings::current();
    stored.setBatchShowTips(m_showTips->isChecked());
    stored.setBatchCompletionSound(m_sound->isChecked());
    stored.setBatchClearBeforeAppend(m_clearBeforeAppend->isChecked());
    stored.setBatchWindowGeometry(saveGeometry());
}

void BatchProcessDialog::onAddRow()
{
    m_model->addRow();
    const QModelIndex added = m_model->index(m_model->rowCount() - 1, 0);
    m_grid->selectionModel()->setCurrentIndex(added, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_grid->scrollTo(added);
    onPathModified();
    onSetSplitterDefaultLayout();
}

void BatchProcessDialog::onRemoveRows()
{
    m_model->removeRows(m_grid->selectedRows());
    onPathModified();
    onSetSplitterDefaultLayout();
}

void BatchProcessDialog::onClear()
{
    m_model->clear();
    onPathModified();
    onSetSplitterDefaultLayout();
}

void BatchProcessDialog::onProcess()
{
    if (m_batch) {
        return;
    }
    m_results->clear();
    BatchProcess batch(m_scene, settings(), *m_results);
    batch.setClearBeforeAppend(m_clearBeforeAppend->isChecked());
    connect(&batch, &BatchProcess::rowProgressed, this, &BatchProcessDialog::onRowProgressed);
    {
        setRunning(&batch);
        const auto end = qScopeGuard([this] { setRunning(nullptr); });
        batch.run();
    }
    if (m_sound->isChecked()) {
        QApplication::beep();
    }
    if (m_closesAfterRun) {
        reject();
    }
}

/// Null when none runs any more.
void BatchProcessDialog::setRunning(BatchProcess *batch)
{
    m_batch = batch;
    m_grid->setProgressShown(batch != nullptr);
    if (!batch) {
        m_results->finish();
    }
    onUpdateButtons();
}

void BatchProcessDialog::onStop()
{
    if (m_batch) {
        m_batch->requestStop();
        m_stop->setEnabled(false);
    }
}

void BatchProcessDialog::onRowProgressed(int row, int percent)
{
    m_model->setProgress(row, percent);
}

void BatchProcessDialog::onVerbosityChanged()
{
    m_verbosity->setToolTip(Verbosity::description(m_verbosity->currentIndex()));
    onPathModified();
}

void BatchProcessDialog::onLoggingChanged()
{
    onPathModified();
}

void BatchProcessDialog::onPathModified()
{
    setWindowModified(true);
    onUpdateButtons();
}

void BatchProcessDialog::onUpdateButtons()
{
    const bool runs = m_batch != nullptr;
    const bool hasRows = m_model->rowCount() > 0;
    for (QWidget *widget : std::initializer_list<QWidget *>{m_add, m_grid, m_clearBeforeAppend, m_verbosity, m_log}) {
        widget->setEnabled(!runs);
    }
    m_remove->setEnabled(!runs && m_grid->selectionModel()->hasSelection());
    m_clear->setEnabled(!runs && hasRows);
    m_process->setEnabled(!runs && hasRows);
    m_stop->setEnabled(runs);
}

void BatchProcessDialog::onTipsToggled(bool on)
{
    m_tip->setVisible(on);
}

void BatchProcessDialog::onSetSplitterDefaultLayout()
{
    if (m_splitterMoved) {
        return;
    }
    const int whole = m_splitter->height() - m_splitter->handleWidth();
    int top = m_grid->neededHeight();
    if (top > 2 * (whole - top)) {
        top = static_cast<int>(whole * largestShareOfGrid);
    }
    m_splitter->setSizes({top, whole - top});
}

void BatchProcessDialog::onHelpRequested()
{
    HelpHook::showHelp(this, QStringLiteral("Batch_processing"));
}
