#include "panes/items/outputitemwidget.h"

#include "data/dataset.h"
#include "graph/undostep.h"
#include "outputnode/outputnode.h"
#include "outputs/excelformats.h"
#include "outputs/jsontypes.h"
#include "panes/dialogs/columnchoicesdialog.h"
#include "panes/dialogs/prompts.h"
#include "panes/icons.h"
#include "panes/items/optionsform.h"
#include "panes/widgets/singlecolumnfilteredwidget.h"
#include "settings/settings.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

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
    : DataItemWidget(item, parent)
{
    auto source = std::make_unique<Source>([this] { return output() ? output()->options() : OutputOptions(); },
        [this](const OutputOptions &options, const QString &label) { setOptions(options, label); },
        [](const OutputOptions &options) {
            const QString extension = QFileInfo(options.path).suffix().toLower();
            return OptionWalk::DefaultsPlace{QStringLiteral("outputs"), FileType::label(options.fileType),
                extension.isEmpty() ? QStringLiteral("(Empty)") : extension};
        });
    m_form = new OptionsForm(std::move(source));
    addTargetRows();
    addTextRows();
    addWritingRows();
    addAliasRow();
    auto *area = new QWidget;
    auto *layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_form);
    layout->addStretch(1);
    DataItemWidget::setOptions(area);
    connect(m_form, &OptionsForm::optionChanged, this, [this] { onParameterValueChanged(true); });
    connect(m_form, &OptionsForm::processNow, this, &DataItemWidget::processNow);
    connect(m_form, &OptionsForm::userInteraction, this, &DataItemWidget::onUserInteraction);
    connect(m_form, &OptionsForm::browseClicked, this, &OutputItemWidget::onBrowse);
}

OutputNode *OutputItemWidget::output() const
{
    return static_cast<OutputNode *>(node());
}

void OutputItemWidget::setOptions(const OutputOptions &options, const QString &label)
{
    if (output()) {
        const UndoStep step(*node(), QStringLiteral("'%1' change").arg(label), kindOfEdit());
        output()->setOptions(options);
    }
}

void OutputItemWidget::addTargetRows()
{
    m_form->addRow({"single_or_multi", "multi_file_confirm"});
    m_filesColumn = new SingleColumnFilteredWidget;
    m_filesColumn->setToolTip(QStringLiteral("The column with the path of the file to which each row goes."));
    m_form->addRow(QStringLiteral("Files column:"), m_filesColumn, [this] { return output()->isMultiFile(); });
    connect(m_filesColumn, &SingleColumnFilteredWidget::columnChanged, this, &OutputItemWidget::onFilesColumnChosen);
    m_form->addRow({"path"});
    QPushButton *open = smallButton(
        QStringLiteral("Open"), QStringLiteral("Open the file that was written, or its folder."));
    connect(open, &QPushButton::clicked, this, &OutputItemWidget::openWritten);
    m_form->addToRow(open);
    m_sheet = new QLineEdit;
    m_sheet->setToolTip(QStringLiteral("Name of the Excel sheet to write."));
    m_form->addRow(QStringLiteral("Sheet:"), m_sheet, [this] { return FileType::isExcel(output()->fileType()); });
    connect(m_sheet, &QLineEdit::editingFinished, this, [this] {
        if (m_form->source().setValue("worksheet", m_sheet->text(), QStringLiteral("Sheet"))) {
            onParameterValueChanged(true);
        }
    });
    m_form->addRow({"file_type"});
}

void OutputItemWidget::addTextRows()
{
    m_form->addRow({"delimiter", "custom_delimiter"});
    m_form->addRow({"quote"});
    m_form->addRow({"line_endings"});
    m_form->addRow({"encoding"});
    m_form->addRow({"bom"});
    m_form->addRow({"json_types"});
    QPushButton *types = smallButton(QStringLiteral("Set..."), QStringLiteral("Set the JSON type for each column."));
    connect(types, &QPushButton::clicked, this, &OutputItemWidget::chooseJsonTypes);
    m_form->addToRow(types);
    m_form->addRow({"excel_output"});
    QPushButton *formats = smallButton(
        QStringLiteral("Set..."), QStringLiteral("Set the Excel format for each column."));
    connect(formats, &QPushButton::clicked, this, &OutputItemWidget::chooseExcelFormats);
    m_form->addToRow(formats);
    m_form->addRow({"excel_use_style_template", "excel_style_template_path"});
    for (const char *key : {"xml_above_root", "xml_root", "xml_below_root", "xml_row", "html_encode"}) {
        m_form->addRow({key});
    }
}

void OutputItemWidget::addWritingRows()
{
    m_form->addRow({"enable_output", "overwrite_sheet"});
    m_form->addRow({"write_header", "write_header_first_append_only"});
    m_form->addRow({"remove_empty"});
    m_form->addRow({"file_comment"});
}

void OutputItemWidget::addAliasRow()
{
    m_alias = new QLineEdit;
    m_alias->setToolTip(QStringLiteral("A name for this item, by which a command line can give it another file."));
    connect(m_alias, &QLineEdit::editingFinished, this, &OutputItemWidget::onAliasEdited);
    m_form->addRow(QStringLiteral("Alias:"), m_alias);
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
    const QString present = m_form->source().value(key).toString();
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
    if (!path.isEmpty() && m_form->source().setValue(key, path, QStringLiteral("File"))) {
        settings.setLastOutputDataDir(QFileInfo(path).absolutePath());
        onParameterValueChanged(true);
        refreshOptions();
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
        m_form->source().setValue("excel_output", int(ExcelFormatMode::Manual), QStringLiteral("Formatting"));
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
        m_form->source().setValue("json_types", int(JsonTypeMode::Manual), QStringLiteral("Value types"));
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

void OutputItemWidget::onAliasEdited()
{
    if (output() && m_alias->text().trimmed() != output()->alias()) {
        const UndoStep step(*node(), QStringLiteral("'Alias' change"));
        output()->setAlias(m_alias->text());
        emit changeNeedsSave();
        refreshOptions();
    }
}

void OutputItemWidget::takeTyped()
{
    DataItemWidget::takeTyped();
    onAliasEdited();
}

void OutputItemWidget::refreshOptions()
{
    m_form->refresh();
    const QList<Node *> inputs = node()->upstreamNodes(true);
    m_filesColumn->setColumns(ColumnList::of(inputs.isEmpty() ? nullptr : inputs.first()));
    m_filesColumn->setColumn(output()->columns().multiFileColumn());
    if (!m_sheet->hasFocus()) {
        m_sheet->setText(output()->options().worksheet);
    }
    if (!m_alias->hasFocus()) {
        m_alias->setText(output()->alias());
    }
}
