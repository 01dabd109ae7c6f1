#include "panes/items/inputitemwidget.h"

#include "data/dataset.h"
#include "graph/graphscene.h"
#include "graph/undostep.h"
#include "inputnode/inputnode.h"
#include "inputs/clipboardtext.h"
#include "inputs/excelsheets.h"
#include "panes/dialogs/filetypequestions.h"
#include "panes/dialogs/prompts.h"
#include "panes/dialogs/schemadialog.h"
#include "panes/fixedwidth/fixedwidthautomanualwidget.h"
#include "panes/fixedwidth/fixedwidthmanualdialog.h"
#include "panes/items/optionsform.h"
#include "settings/settings.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

namespace {

using Source = DeclaredOptions<InputOptions>;

} // namespace

InputItemWidget::InputItemWidget(InputNode &item, QWidget *parent)
    : OptionsItemWidget(item, makeSource(this), parent)
{
    addSourceRows();
    addReadingRows();
    addTidyingRows();
    addAliasRow();
}

std::unique_ptr<OptionSource> InputItemWidget::makeSource(InputItemWidget *panel)
{
    return std::make_unique<Source>([panel] { return panel->input() ? panel->input()->options() : InputOptions(); },
        [panel](const InputOptions &options, const QString &label) { panel->setOptions(options, label); },
        [panel] {
            const InputOptions options = panel->input()->options();
            return OptionWalk::DefaultsPlace{
                QStringLiteral("inputs"), FileType::label(options.fileType), options.sourceExtension()};
        });
}

InputNode *InputItemWidget::input() const
{
    return static_cast<InputNode *>(node());
}

void InputItemWidget::setOptions(const InputOptions &options, const QString &label)
{
    if (!input()) {
        return;
    }
    const InputOptions before = input()->options();
    InputOptions changed = options;
    if (options.path != before.path) {
        changed.fileType = FileTypeQuestions::inputTypeAfterChange(
            *panelState().prompts, before.path, options.path, before.fileType);
    }
    const UndoStep step(*node(), QStringLiteral("'%1' change").arg(label), kindOfEdit());
    if (options.path != before.path || options.worksheet != before.worksheet) {
        input()->setPath(options.path, options.worksheet);
    }
    input()->setOptions(changed);
}

void InputItemWidget::addSourceRows()
{
    const int medium = input()->options().medium;
    if (medium == Medium::Clipboard) {
        auto *import = new QPushButton(QStringLiteral("Import from clipboard."));
        import->setToolTip(QStringLiteral("Import from clipboard.\nDoes not run items downstream."));
        import->setAutoDefault(false);
        connect(import, &QPushButton::clicked, this, &InputItemWidget::importClipboard);
        form().addRow(QString(), import);
    } else if (medium == Medium::Folder) {
        form().addRow({"multi_file_folder", "multi_file_recurse"});
        form().addRow({"multi_file_match"});
        form().addRow({"multi_sheetmatch"});
    } else {
        form().addRow({"path"});
    }
    form().addRow(
        QStringLiteral("Sheet:"), sheetBox(), [this] { return input()->options().applies(InputOptions::Worksheet); });
    form().addRow({"file_type"});
}

void InputItemWidget::addReadingRows()
{
    form().addRow({"delimiter", "custom_delimiter"});
    form().addRow({"ignore_repeated_delim"});
    form().addRow({"quote"});
    form().addRow(
        QStringLiteral("Columns:"), widthsBox(), [this] { return input()->options().applies(InputOptions::Columns); });
    form().addRow({"encoding"});
    form().addRow({"ignored_rows"});
    auto *spin = qobject_cast<QSpinBox *>(form().editor("ignored_rows"));
    spin->setPrefix(QStringLiteral("First "));
    spin->setSuffix(QStringLiteral(" row(s)"));
    form().addRow(QString(), headerBox());
    form().addRow(QStringLiteral("Use schema:"), schemaBox());
    form().addRow({"json_arrays_as_rows"});
}

void InputItemWidget::addTidyingRows()
{
    form().addRow({"trim", "simplify"}, QStringLiteral("Whitespace:"));
    form().addRow({"ignore_empty", "ignore_empty_cols"}, QStringLiteral("Ignore empty:"));
    form().addRow({"ignore_excel_hidden_rows", "ignore_excel_hidden_cols"}, QStringLiteral("Ignore hidden:"));
    form().addRow({"watching"});
    form().addRow({"show_meta"});
    form().addRow({"meta_text"}, QStringLiteral("Meta text:"));
    form().addRow({"meta_col_name"}, QStringLiteral("Meta column:"));
}

QWidget *InputItemWidget::headerBox()
{
    m_header = new QCheckBox(QStringLiteral("has header"));
    m_header->setToolTip(QStringLiteral("Check if the first row holds the column names."));
    connect(m_header, &QCheckBox::clicked, this,
        [this](bool on) { changeOption("header", on ? 1 : 0, QStringLiteral("has header")); });
    return m_header;
}

QWidget *InputItemWidget::sheetBox()
{
    auto *box = new QWidget;
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    QLineEdit *sheet = makeSheetLine(QStringLiteral("Name or number of the Excel sheet to read."));
    sheet->setPlaceholderText(QStringLiteral("First sheet"));
    auto *choose = new QPushButton(QStringLiteral("Choose..."));
    choose->setAutoDefault(false);
    choose->setToolTip(QStringLiteral("Choose Excel sheets"));
    layout->addWidget(sheet, 1);
    layout->addWidget(choose);
    box->setFocusProxy(sheet);
    connect(choose, &QPushButton::clicked, this, &InputItemWidget::chooseSheet);
    return box;
}

void InputItemWidget::chooseSheet()
{
    const InputOptions options = input()->options();
    QString message;
    const ExcelSheetEntry sheets = listExcelSheets(options.fileType, options.path, &message);
    Prompts &prompts = *panelState().prompts;
    if (sheets.names.isEmpty()) {
        prompts.warning(message);
        return;
    }
    const int chosen = prompts.chooseItem(
        QStringLiteral("Select Excel sheet to input"), sheets.displayTexts, sheets.names.indexOf(options.worksheet));
    if (chosen >= 0) {
        changeOption("worksheet", sheets.names.at(chosen), QStringLiteral("Sheet"));
    }
}

QWidget *InputItemWidget::widthsBox()
{
    m_widths = new FixedWidthAutoManualWidget;
    connect(m_widths, &FixedWidthAutoManualWidget::automaticChanged, this,
        [this](bool automatic) { takeWidths(input()->options().fixedWidths, automatic); });
    connect(m_widths, &FixedWidthAutoManualWidget::manualEditClicked, this, &InputItemWidget::editWidths);
    return m_widths;
}

void InputItemWidget::editWidths()
{
    FixedWidthManualDialog dialog(input()->options().fixedWidths, input()->fixedWidthSample(), this);
    if (panelState().prompts->exec(dialog) == QDialog::Accepted && input()) {
        takeWidths(dialog.widths(), false);
    }
}

void InputItemWidget::takeWidths(const QList<int> &widths, bool automatic)
{
    takeChanged(QStringLiteral("Columns"), [&](InputOptions &options) {
        options.autoFixedWidths = automatic;
        options.fixedWidths = widths;
    });
}

QWidget *InputItemWidget::schemaBox()
{
    auto *box = new QWidget;
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    m_schema = new QComboBox;
    m_schema->addItems({QStringLiteral("No"), QStringLiteral("Yes")});
    m_schema->setToolTip(QStringLiteral("Use a schema to manage what happens if columns are added, removed or change "
                                        "position in the input."));
    m_schema->setAccessibleName(QStringLiteral("Use schema"));
    auto *edit = new QPushButton(QStringLiteral("Edit..."));
    edit->setAutoDefault(false);
    edit->setToolTip(QStringLiteral("Edit the input schema."));
    layout->addWidget(m_schema);
    layout->addWidget(edit);
    layout->addStretch(1);
    box->setFocusProxy(m_schema);
    connect(m_schema, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
        InputSchema schema = input()->options().schema;
        schema.inUse = index == 1;
        if (schema.inUse && schema.columnNames.isEmpty()) {
            schema.columnNames = input()->previousColumnNames();
        }
        takeSchema(schema);
    });
    connect(edit, &QPushButton::clicked, this, &InputItemWidget::editSchema);
    return box;
}

void InputItemWidget::takeSchema(const InputSchema &schema)
{
    takeChanged(QStringLiteral("Use schema"), [&](InputOptions &options) { options.schema = schema; });
}

void InputItemWidget::takeChanged(const QString &label, const std::function<void(InputOptions &)> &change)
{
    InputOptions options = input()->options();
    const QVariantList before = options.values();
    change(options);
    if (options.values() != before) {
        setOptions(options, label);
        onParameterValueChanged(true);
        refreshOptions();
    }
}

void InputItemWidget::editSchema()
{
    SchemaDialog dialog(input()->options().schema, input()->previousColumnNames(), *panelState().prompts, this);
    if (panelState().prompts->exec(dialog) == QDialog::Accepted && input()) {
        takeSchema(dialog.schema());
    }
}

void InputItemWidget::onBrowse(const QByteArray &key)
{
    Settings &settings = Settings::current();
    const QString present = form().source().value(key).toString();
    const QString folder = present.isEmpty() ? settings.lastDataDir() : QFileInfo(present).absolutePath();
    const QString path = panelState().prompts->openFile(
        {QStringLiteral("Input From File"), folder, settings.inputFileFilter()});
    if (!path.isEmpty()) {
        settings.setLastDataDir(QFileInfo(path).absolutePath());
        changeOption(key, path, QStringLiteral("File"));
    }
}

void InputItemWidget::importClipboard()
{
    InputOptions options = input()->options();
    options.text = clipboardText(QApplication::clipboard()->mimeData());
    if (options.text.isEmpty()) {
        return;
    }
    const UndoStep step(*node(), QStringLiteral("import from clipboard"));
    input()->setOptions(options);
    onParameterValueChanged(false);
    input()->process(false, false);
    refresh();
}

void InputItemWidget::refreshOptions()
{
    OptionsItemWidget::refreshOptions();
    const InputOptions options = input()->options();
    const QSignalBlocker headerBlocker(m_header);
    m_header->setTristate(options.headerMode == InputOptions::DecideAtFirstRead);
    m_header->setCheckState(options.headerMode == InputOptions::DecideAtFirstRead  ? Qt::PartiallyChecked
                            : options.headerMode == InputOptions::FirstRowIsHeader ? Qt::Checked
                                                                                   : Qt::Unchecked);
    m_widths->setAutomatic(options.autoFixedWidths);
    m_schema->setCurrentIndex(options.schema.inUse ? 1 : 0);
}
