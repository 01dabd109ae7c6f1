#include "panes/dialogs/schemadialog.h"

#include "panes/dialogs/helphook.h"
#include "panes/dialogs/prompts.h"
#include "panes/widgets/recordtablewidget.h"
#include "panes/widgets/recordtools.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QToolButton>
#include <algorithm>

namespace {

constexpr QSize firstSize(520, 560);

} // namespace

SchemaDialog::SchemaDialog(const InputSchema &schema, const QStringList &inputNames, Prompts &prompts, QWidget *parent)
    : QDialog(parent)
    , m_first(schema)
    , m_inputNames(inputNames)
    , m_prompts(prompts)
    , m_table(new RecordTableWidget)
{
    setWindowTitle(QStringLiteral("Schema[*]"));
    HelpHook::setHelpPage(*this, QStringLiteral("Input_data#schema"));
    RecordField name;
    name.title = QStringLiteral("Expected columns");
    name.toolTip = QStringLiteral(
        "Expected columns in the input, in the order expected. \nThe schema is case-sensitive and "
        "takes account of whitespace.\nIf a missing column is added, the 'Missing column value' "
        "value will be used for the whole column.");
    RecordField value;
    value.title = QStringLiteral("Missing column value");
    value.toolTip = name.toolTip;
    m_table->setFields({name, value}, {QString(), QString()});
    m_table->setAccessibleName(name.title);
    m_table->setEmptyText(QStringLiteral("Import the columns of the input, or add some"));
    auto *tools = new RecordTools;
    addTools(*tools);
    auto *form = new QFormLayout;
    m_missingColsComboBox = addMode(*form, QStringLiteral("Missing columns in input:"),
        {QStringLiteral("Add as in schema"), QStringLiteral("Treat as an error")},
        QStringLiteral(
            "What to do with columns that are in the schema, but missing from the input.\n'Add as in schema': "
            "Adds a column with that name at the same position. All values in the column will be set to the "
            "'Missing column value' value.\n'Treat as an error': Changes the input status to error and stops "
            "further processing."));
    m_reorderedColsComboBox = addMode(*form, QStringLiteral("Out of order columns in input:"),
        {QStringLiteral("Re-order as in schema"), QStringLiteral("Treat as an error")},
        QStringLiteral(
            "What to do with columns that are in the schema and the input, but in a different order.\n'Re-order "
            "as in schema': Re-orders the input columns to match the schema.\n'Treat as an error': Changes the "
            "input status to error and stops further processing."));
    m_extraColsComboBox = addMode(*form, QStringLiteral("Extra columns in input:"),
        {QStringLiteral("Add to end"), QStringLiteral("Ignore"), QStringLiteral("Treat as an error")},
        QStringLiteral(
            "What to do with columns that are in the input, but are not in the schema.\n'Add to end': Adds the "
            "extra columns at the end of columns in the schema.\n'Ignore': Does not input the extra "
            "columns.\n'Treat as an error': Changes the input status to error and stops further processing."));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &SchemaDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(tools);
    layout->addWidget(m_table, 1);
    layout->addLayout(form);
    layout->addWidget(buttons);
    QVector<RecordTableWidget::Record> records;
    for (int i = 0; i < schema.columnNames.size(); ++i) {
        records.append({schema.columnNames.at(i), schema.missingValue(i)});
    }
    m_table->setRecords(records);
    m_missingColsComboBox->setCurrentIndex(schema.missingMode);
    m_reorderedColsComboBox->setCurrentIndex(schema.reorderMode);
    m_extraColsComboBox->setCurrentIndex(schema.extraMode);
    for (QComboBox *mode : {m_missingColsComboBox, m_reorderedColsComboBox, m_extraColsComboBox}) {
        connect(mode, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &SchemaDialog::onModified);
    }
    connect(m_missingColsComboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &SchemaDialog::onUpdateTableCols);
    connect(m_table, &RecordTableWidget::edited, this, &SchemaDialog::onModified);
    connect(m_table, &QTableWidget::itemSelectionChanged, this, &SchemaDialog::onUpdateButtons);
    onUpdateTableCols();
    onUpdateButtons();
    resize(firstSize);
}

QComboBox *SchemaDialog::addMode(QFormLayout &form, const QString &label, const QStringList &texts, const QString &tip)
{
    auto *mode = new QComboBox;
    mode->addItems(texts);
    mode->setToolTip(tip);
    form.addRow(label, mode);
    return mode;
}

void SchemaDialog::addTools(RecordTools &tools)
{
    const auto add = [this, &tools](const char *icon, const char *name, const char *tip) {
        QToolButton *button = tools.add(QLatin1String(icon), QLatin1String(name), QLatin1String(tip));
        button->setObjectName(QLatin1String(name));
        return button;
    };
    QToolButton *import = add("document-import", "Import",
        "Import the column names and order from the current input (clears the existing schema).");
    import->setEnabled(!m_inputNames.isEmpty());
    connect(import, &QToolButton::clicked, this, &SchemaDialog::importNames);
    connect(
        add("list-add", "Add",
            "Add a column name to the schema. If a row is selected, it adds it beneath that row. Otherwise it adds it "
            "to the end."),
        &QToolButton::clicked, m_table, &RecordTableWidget::addRecord);
    QToolButton *up = add("go-up", "Move up", "Move the selected column(s) up.");
    connect(up, &QToolButton::clicked, m_table, &RecordTableWidget::moveUp);
    QToolButton *down = add("go-down", "Move down", "Move the selected column(s) down.");
    connect(down, &QToolButton::clicked, m_table, &RecordTableWidget::moveDown);
    QToolButton *ascending = add("go-top", "Sort ascending", "Sort alphabetically ascending.");
    connect(ascending, &QToolButton::clicked, this, [this] { sort(true); });
    QToolButton *descending = add("go-bottom", "Sort descending", "Sort alphabetically descending.");
    connect(descending, &QToolButton::clicked, this, [this] { sort(false); });
    QToolButton *remove = add("list-remove", "Delete", "Delete the selected column(s) from the schema.");
    connect(remove, &QToolButton::clicked, m_table, &RecordTableWidget::removeSelected);
    QToolButton *copy = add("edit-copy", "Copy", "Copy the whole schema to the clipboard.");
    connect(copy, &QToolButton::clicked, m_table, &RecordTableWidget::copyRecords);
    connect(add("edit-paste", "Paste",
                "Paste the schema from the clipboard. If a row is selected, it pastes below that. If no row is "
                "selected, it "
                "pastes at the end."),
        &QToolButton::clicked, m_table, &RecordTableWidget::pasteRecords);
    QToolButton *clear = add("edit-delete", "Clear", "Clear the existing schema.");
    connect(clear, &QToolButton::clicked, m_table, &RecordTableWidget::removeAll);
    m_needSelection = {up, down, remove};
    m_needRows = {ascending, descending, copy, clear};
}

void SchemaDialog::importNames()
{
    QVector<RecordTableWidget::Record> records;
    for (const QString &name : m_inputNames) {
        records.append({name, QString()});
    }
    m_table->setRecords(records);
    onModified();
}

void SchemaDialog::sort(bool ascending)
{
    QVector<RecordTableWidget::Record> records = m_table->records();
    std::stable_sort(records.begin(), records.end(), [ascending](const auto &a, const auto &b) {
        const int order = QString::localeAwareCompare(a.first().toString(), b.first().toString());
        return ascending ? order < 0 : order > 0;
    });
    m_table->setRecords(records);
    onModified();
}

void SchemaDialog::onModified()
{
    setWindowModified(true);
    onUpdateButtons();
}

void SchemaDialog::onUpdateButtons()
{
    const bool selected = !m_table->selectedItems().isEmpty();
    for (QToolButton *button : qAsConst(m_needSelection)) {
        button->setEnabled(selected);
    }
    for (QToolButton *button : qAsConst(m_needRows)) {
        button->setEnabled(m_table->rowCount() > 0);
    }
}

void SchemaDialog::onUpdateTableCols()
{
    m_table->setColumnHidden(1, m_missingColsComboBox->currentIndex() != InputSchema::AddMissing);
}

InputSchema SchemaDialog::schema() const
{
    InputSchema schema = m_first;
    schema.missingMode = m_missingColsComboBox->currentIndex();
    schema.reorderMode = m_reorderedColsComboBox->currentIndex();
    schema.extraMode = m_extraColsComboBox->currentIndex();
    const QVector<RecordTableWidget::Record> records = m_table->records();
    QStringList names;
    QStringList values;
    bool sameValues = records.size() == m_first.columnNames.size();
    for (int i = 0; i < records.size(); ++i) {
        names.append(records.at(i).at(0).toString());
        values.append(records.at(i).at(1).toString());
        sameValues = sameValues && values.last() == m_first.missingValue(i);
    }
    schema.columnNames = names;
    // A single value may stand for all columns; it stays so while nobody gives a column one of its own.
    schema.missingValues = sameValues ? m_first.missingValues : values;
    return schema;
}

void SchemaDialog::accept()
{
    for (const RecordTableWidget::Record &record : m_table->records()) {
        if (record.first().toString().isEmpty()) {
            m_prompts.warning(QStringLiteral("Column names in the schema cannot be blank."));
            return;
        }
    }
    QDialog::accept();
}
