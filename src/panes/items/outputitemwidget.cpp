#include "panes/items/outputitemwidget.h"

#include "data/dataset.h"
#include "graph/undostep.h"
#include "outputnode/outputdefaults.h"
#include "outputnode/outputnode.h"
#include "outputs/excelformats.h"
#include "outputs/jsontypes.h"
#include "outputs/outputpaths.h"
#include "panes/dialogs/columnchoicesdialog.h"
#include "panes/dialogs/filetypequestions.h"
#include "panes/dialogs/prompts.h"
#include "panes/icons.h"
#include "panes/items/optionsform.h"
#include "panes/widgets/singlecolumnfilteredwidget.h"
#include "settings/product.h"
#include "settings/settings.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QUrl>

namespace {

using Source = DeclaredOptions<OutputOptions>;

QPushButton *smallButton(const QString &text, const QString &tip)
{
    auto *button = new QPushButton(text);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

} // namespace

OutputItemWidget::OutputItemWidget(OutputNode &item, QWidget *parent)
    : OptionsItemWidget(item, makeSource(this), parent)
{
    addTargetRows();
    addTextRows();
    addWritingRows();
    addAliasRow();
}

std::unique_ptr<OptionSource> OutputItemWidget::makeSource(OutputItemWidget *panel)
{
    return std::make_unique<Source>([panel] { return panel->output() ? panel->output()->options() : OutputOptions(); },
        [panel](const OutputOptions &options, const QString &label) { panel->setOptions(options, label); },
        [panel] { return OutputDefaults::place(*panel->output()); });
}

OutputNode *OutputItemWidget::output() const
{
    return static_cast<OutputNode *>(node());
}

void OutputItemWidget::setOptions(OutputOptions options, const QString &label)
{
    if (!output()) {
        return;
    }
    const OutputOptions before = output()->options();
    if (options.path != before.path) {
        if (!followPath(options)) {
            return;
        }
    } else if (options.fileType != before.fileType) {
        followType(options);
    }
    if (output()) {
        const UndoStep step(*node(), QStringLiteral("'%1' change").arg(label), kindOfEdit());
        output()->setOptions(options);
    }
}

bool OutputItemWidget::isYes(const QString &question)
{
    return panelState().prompts->ask(QMessageBox::Question, question, QMessageBox::Yes | QMessageBox::No)
           == QMessageBox::Yes;
}

bool OutputItemWidget::followPath(OutputOptions &options)
{
    Prompts &prompts = *panelState().prompts;
    if (OutputPaths::isBlocked(options.path)) {
        prompts.warning(QStringLiteral("The extension for this file is blocked in 'Preferences>Output Extensions':\n%1")
                            .arg(QDir::toNativeSeparators(options.path)));
        return false;
    }
    const int type = FileTypeQuestions::fileTypeForExtension(prompts, options.path, options.fileType);
    if (type != options.fileType && isYes(QStringLiteral("Change file type to '%1'?").arg(FileType::label(type)))) {
        options.fileType = type;
    }
    return true;
}

void OutputItemWidget::followType(OutputOptions &options)
{
    const QFileInfo file(options.path);
    const QString extension = Settings::current().outputFileExtensions().key(options.fileType);
    if (options.path.isEmpty() || extension.isEmpty()
        || OutputPaths::fileType(options.path, FileType::None) == options.fileType
        || !isYes(QStringLiteral("Change file extension to '%1'?").arg(extension))) {
        return;
    }
    const QString path = file.path() + QLatin1Char('/') + file.completeBaseName() + QLatin1Char('.') + extension;
    if (QFileInfo::exists(path)
        && !isYes(
            QStringLiteral("%1 already exists.\nDo you want to replace it?").arg(QDir::toNativeSeparators(path)))) {
        return;
    }
    options.path = path;
    if (FileType::isExcel(options.fileType) && options.worksheet.isEmpty()) {
        options.worksheet = QString::fromLatin1(Product::name);
    }
}

void OutputItemWidget::addTargetRows()
{
    form().addRow({"single_or_multi", "multi_file_confirm"});
    m_filesColumn = new SingleColumnFilteredWidget;
    m_filesColumn->setToolTip(QStringLiteral("The column with the path of the file to which each row goes."));
    form().addRow(QStringLiteral("Files column:"), m_filesColumn, [this] { return output()->isMultiFile(); });
    connect(m_filesColumn, &SingleColumnFilteredWidget::columnChanged, this, &OutputItemWidget::onFilesColumnChosen);
    form().addRow({"path"});
    QPushButton *open = smallButton(
        QStringLiteral("Open"), QStringLiteral("Open the file that was written, or its folder."));
    connect(open, &QPushButton::clicked, this, &OutputItemWidget::openWritten);
    form().addToRow(open);
    form().addRow(QStringLiteral("Sheet:"), makeSheetLine(QStringLiteral("Name of the Excel sheet to write.")),
        [this] { return FileType::isExcel(output()->fileType()); });
    form().addRow({"file_type"});
}

void OutputItemWidget::addTextRows()
{
    form().addRow({"delimiter", "custom_delimiter"});
    form().addRow({"quote"});
    form().addRow({"line_endings"});
    form().addRow({"encoding"});
    form().addRow({"bom"});
    form().addRow({"json_types"});
    QPushButton *types = smallButton(QStringLiteral("Set..."), QStringLiteral("Set the JSON type for each column."));
    connect(types, &QPushButton::clicked, this, &OutputItemWidget::chooseJsonTypes);
    form().addToRow(types);
    form().addRow({"excel_output"});
    QPushButton *formats = smallButton(
        QStringLiteral("Set..."), QStringLiteral("Set the Excel format for each column."));
    connect(formats, &QPushButton::clicked, this, &OutputItemWidget::chooseExcelFormats);
    form().addToRow(formats);
    form().addRow({"excel_use_style_template", "excel_style_template_path"});
    for (const char *key : {"xml_above_root", "xml_root", "xml_below_root", "xml_row", "html_encode"}) {
        form().addRow({key});
    }
}

void OutputItemWidget::addWritingRows()
{
    form().addRow({"enable_output", "overwrite_sheet"});
    form().addRow({"write_header", "write_header_first_append_only"});
    form().addRow({"remove_empty"});
    form().addRow({"file_comment"});
}

void OutputItemWidget::onFilesColumnChosen()
{
    if (output()) {
        const UndoStep step(*node(), QStringLiteral("'Files column' change"));
        output()->columns().setMultiFileColumn(m_filesColumn->column(), output()->knownDataset());
    }
    onParameterValueChanged(true);
}

void OutputItemWidget::onBrowse(const QByteArray &key)
{
    Settings &settings = Settings::current();
    Prompts &prompts = *panelState().prompts;
    const QString present = form().source().value(key).toString();
    FileRequest request;
    request.start = present.isEmpty() ? settings.lastOutputDataDir() : present;
    QString path;
    if (key == "path") {
        request.title = QStringLiteral("Output To File");
        request.filter = settings.outputFileFilter();
        // Whether a file is overwritten is for the write mode to say.
        request.confirmsOverwriting = false;
        path = prompts.saveFile(request);
    } else {
        request.title = QStringLiteral("Style Template");
        request.filter = QStringLiteral("Excel (*.xlsx *.xls)");
        path = prompts.openFile(request);
    }
    if (!path.isEmpty()) {
        settings.setLastOutputDataDir(QFileInfo(path).absolutePath());
        changeOption(key, path, QStringLiteral("File"));
    }
}

void OutputItemWidget::chooseExcelFormats()
{
    ColumnChoicesDialog::Texts texts;
    texts.title = QStringLiteral("Excel Column Formats");
    texts.heading = QStringLiteral("Set the Excel format for each column.");
    texts.choiceColumn = QStringLiteral("Excel Format");
    texts.choices = ExcelColumnFormat::labels();
    texts.quickSetTip = QStringLiteral("Quickly set the Excel format for multiple columns.");
    const Dataset &table = node()->datasetConst();
    ColumnChoicesDialog dialog(
        texts, {table.columnNames(), table.columnIds()}, output()->columns().excelFormats(), this);
    if (panelState().prompts->exec(dialog) == QDialog::Accepted && output()) {
        const UndoStep step(*node(), QStringLiteral("'Formatting' change"));
        output()->columns().setExcelFormats(dialog.choices(), output()->knownDataset());
        form().source().setValue("excel_output", int(ExcelFormatMode::Manual), QStringLiteral("Formatting"));
        onParameterValueChanged(true);
        refreshOptions();
    }
}

void OutputItemWidget::chooseJsonTypes()
{
    ColumnChoicesDialog::Texts texts;
    texts.title = QStringLiteral("JSON Column Types");
    texts.heading = QStringLiteral("Set the JSON type for each column.");
    texts.choiceColumn = QStringLiteral("JSON Type");
    texts.choices = JsonColumnType::labels();
    texts.quickSetTip = QStringLiteral("Quickly set the JSON type for multiple columns.");
    const Dataset &table = node()->datasetConst();
    ColumnChoicesDialog dialog(texts, {table.columnNames(), table.columnIds()}, output()->columns().jsonTypes(), this);
    if (panelState().prompts->exec(dialog) == QDialog::Accepted && output()) {
        const UndoStep step(*node(), QStringLiteral("'Value types' change"));
        output()->columns().setJsonTypes(dialog.choices(), output()->knownDataset());
        form().source().setValue("json_types", int(JsonTypeMode::Manual), QStringLiteral("Value types"));
        onParameterValueChanged(true);
        refreshOptions();
    }
}

void OutputItemWidget::openWritten()
{
    Prompts &prompts = *panelState().prompts;
    if (output()->writtenFiles().isEmpty()) {
        prompts.warning(QStringLiteral("File not written."));
        return;
    }
    const QFileInfo file(*output()->writtenFiles().cbegin());
    const bool several = output()->isMultiFile();
    const QString path = several ? file.absolutePath() : file.absoluteFilePath();
    const QString shown = QDir::toNativeSeparators(path);
    if (!QFileInfo::exists(path)) {
        prompts.warning(
            (several ? QStringLiteral("Folder '%1' not found.") : QStringLiteral("File '%1' not found.")).arg(shown));
    } else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path))) {
        prompts.warning(
            (several ? QStringLiteral("Unable to open folder '%1'.")
                     : QStringLiteral("Unable to open '%1'. Make sure there is an editor associated with this "
                                      "file type."))
                .arg(shown));
    }
}

void OutputItemWidget::refreshOptions()
{
    OptionsItemWidget::refreshOptions();
    const QList<Node *> inputs = node()->upstreamNodes(true);
    m_filesColumn->setColumns(ColumnList::of(inputs.isEmpty() ? nullptr : inputs.first()));
    m_filesColumn->setColumn(output()->columns().multiFileColumn());
}
