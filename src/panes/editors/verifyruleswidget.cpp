#include "panes/editors/verifyruleswidget.h"

#include "data/dataset.h"
#include "data/values.h"
#include "data/verifyrulenames.h"
#include "panes/widgets/wheelguard.h"
#include "transforms/verify/ruletable.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QSplitter>

namespace {

enum Column { Active, Name, Value, Severity, Fails, Id };

constexpr int typeCount = 5;

/// Rules that can't hold together.
const QVector<QVector<int>> excludingRules{{24, 25, 26, 27}, {7, 53}, {8, 53}, {28, 29}};

bool excludes(int rule, int other)
{
    for (const QVector<int> &group : excludingRules) {
        if (rule != other && group.contains(rule) && group.contains(other)) {
            return true;
        }
    }
    return false;
}

RecordField field(const char *title, RecordField::Kind kind)
{
    RecordField result;
    result.title = QLatin1String(title);
    result.kind = kind;
    return result;
}

QVector<RecordField> ruleFields()
{
    RecordField severity = field("Severity", RecordField::Choice);
    for (const int level : {VerifyRule::Information, VerifyRule::Warning, VerifyRule::Error}) {
        severity.choices.append(VerifyRuleTable::severityName(level));
    }
    severity.toolTip = QStringLiteral("How grave a fail is.");
    return {field("Active", RecordField::Flag), field("Rule", RecordField::Label), field("Value", RecordField::Text),
        severity, field("Fails", RecordField::Label), field("", RecordField::Label)};
}

} // namespace

VerifyRulesWidget::VerifyRulesWidget(QWidget *parent)
    : QWidget(parent)
    , m_columnFilter(new QLineEdit)
    , m_columnCount(new QLabel)
    , m_columnList(new QListWidget)
    , m_heading(new QLabel)
    , m_type(new QComboBox)
    , m_ruleFilter(new QLineEdit)
    , m_table(new RecordTableWidget)
{
    auto *splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(columnsSide());
    splitter->addWidget(rulesSide());
    splitter->setStretchFactor(1, 2);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    setFocusProxy(m_columnList);
    connect(m_columnList, &QListWidget::itemSelectionChanged, this, &VerifyRulesWidget::showRules);
    connect(m_columnList, &QListWidget::itemSelectionChanged, this, &VerifyRulesWidget::userInteraction);
    connect(m_columnFilter, &QLineEdit::textChanged, this, &VerifyRulesWidget::filterColumns);
    connect(m_ruleFilter, &QLineEdit::textChanged, this, &VerifyRulesWidget::filterRules);
    connect(m_type, QOverload<int>::of(&QComboBox::activated), this, &VerifyRulesWidget::onTypeChosen);
    connect(m_table, &RecordTableWidget::edited, this, &VerifyRulesWidget::onRuleEdited);
}

QWidget *VerifyRulesWidget::columnsSide()
{
    auto *side = new QWidget;
    m_columnFilter->setPlaceholderText(QStringLiteral("Filter columns"));
    m_columnFilter->setAccessibleName(QStringLiteral("Filter columns"));
    m_columnFilter->setClearButtonEnabled(true);
    m_columnList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_columnList->setUniformItemSizes(true);
    m_columnList->setAccessibleName(QStringLiteral("Columns"));
    auto *layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_columnCount);
    layout->addWidget(m_columnFilter);
    layout->addWidget(m_columnList, 1);
    return side;
}

QWidget *VerifyRulesWidget::rulesSide()
{
    auto *side = new QWidget;
    for (int type = 0; type < typeCount; ++type) {
        m_type->addItem(VerifyRuleTable::columnTypeName(type));
    }
    m_type->setToolTip(QStringLiteral("What the column holds. It chooses which rules are offered."));
    guardFromWheel(*m_type);
    m_ruleFilter->setPlaceholderText(QStringLiteral("Filter rules"));
    m_ruleFilter->setAccessibleName(QStringLiteral("Filter rules"));
    m_ruleFilter->setClearButtonEnabled(true);
    m_table->setFields(ruleFields(), {false, QString(), QString(), 1, QString(), 0});
    m_table->setFixed(true);
    m_table->setMovable(false);
    m_table->setDragDropMode(QAbstractItemView::NoDragDrop);
    m_table->setColumnHidden(Id, true);
    m_table->setAccessibleName(QStringLiteral("Rules"));
    m_table->horizontalHeader()->setSectionResizeMode(Severity, QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setSectionResizeMode(Fails, QHeaderView::ResizeToContents);
    auto *type = new QFormLayout;
    type->addRow(QStringLiteral("Column type:"), m_type);
    auto *layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_heading);
    layout->addLayout(type);
    layout->addWidget(m_ruleFilter);
    layout->addWidget(m_table, 1);
    return side;
}

void VerifyRulesWidget::setRules(const VerifyRuleSet &rules, const ColumnList &columns)
{
    m_rules = rules;
    if (columns != m_columns || m_columnList->count() == 0) {
        m_columns = columns;
        fillColumns();
    }
    updateColumnTexts();
    showRules();
}

void VerifyRulesWidget::fillColumns()
{
    const QSignalBlocker blocker(m_columnList);
    const int current = qMax(0, m_columnList->currentRow());
    m_columnList->clear();
    m_columnList->addItem(QString());
    for (int column = 0; column < m_columns.size(); ++column) {
        m_columnList->addItem(QString());
    }
    m_columnList->setCurrentRow(qMin(current, m_columnList->count() - 1));
    m_columnCount->setText(QStringLiteral("Columns [%1]").arg(formatInteger(m_columns.size(), true)));
    filterColumns(m_columnFilter->text());
}

void VerifyRulesWidget::updateColumnTexts()
{
    const QSignalBlocker blocker(m_columnList);
    for (int row = 0; row < m_columnList->count(); ++row) {
        const ColumnId id = m_columns.ids.value(row - 1);
        const QString name = row == 0 ? QStringLiteral("<Dataset>") : m_columns.names.at(row - 1);
        int active = row == 0 ? m_rules.activeDatasetRules() : 0;
        if (row > 0) {
            for (const VerifyRule &rule : m_rules.columns.value(id).rules) {
                active += rule.active ? 1 : 0;
            }
        }
        const QString rules = active == 1 ? QStringLiteral("rule") : QStringLiteral("rules");
        m_columnList->item(row)->setText(
            active == 0 ? name : name + QStringLiteral(" [%1 %2 active]").arg(formatInteger(active, true), rules));
    }
}

void VerifyRulesWidget::filterColumns(const QString &text)
{
    for (int row = 1; row < m_columnList->count(); ++row) {
        m_columnList->item(row)->setHidden(!m_columns.names.at(row - 1).contains(text, Qt::CaseInsensitive));
    }
}

void VerifyRulesWidget::filterRules(const QString &text)
{
    for (int row = 0; row < m_table->rowCount(); ++row) {
        m_table->setRowHidden(row, !m_table->item(row, Name)->text().contains(text, Qt::CaseInsensitive));
    }
}

QList<ColumnId> VerifyRulesWidget::selectedColumns() const
{
    QList<ColumnId> ids;
    for (const QModelIndex &index : m_columnList->selectionModel()->selectedIndexes()) {
        ids.append(m_columns.ids.value(index.row() - 1));
    }
    return ids.isEmpty() ? QList<ColumnId>{shownColumn()} : ids;
}

ColumnId VerifyRulesWidget::shownColumn() const
{
    return m_columns.ids.value(m_columnList->currentRow() - 1);
}

QVector<int> VerifyRulesWidget::offeredRules(ColumnId column) const
{
    if (!column.isNull()) {
        return VerifyRuleTable::columnRulesOf(m_rules.columns.value(column).type);
    }
    QVector<int> rules;
    for (int rule = 0; rule < VerifyRule::datasetRuleCount; ++rule) {
        rules.append(rule);
    }
    return rules;
}

VerifyRule VerifyRulesWidget::ruleOf(ColumnId column, int ruleId) const
{
    const QList<VerifyRule> &rules = column.isNull() ? m_rules.datasetRules : m_rules.columns.value(column).rules;
    for (const VerifyRule &rule : rules) {
        if (rule.ruleId == ruleId) {
            return rule;
        }
    }
    VerifyRule rule;
    rule.ruleId = ruleId;
    rule.value = column.isNull() ? VerifyRuleTable::datasetRuleDefault(ruleId)
                                 : VerifyRuleTable::columnRuleDefault(ruleId);
    return rule;
}

void VerifyRulesWidget::storeRule(ColumnId column, const VerifyRule &rule)
{
    QList<VerifyRule> &rules = column.isNull() ? m_rules.datasetRules : m_rules.columns[column].rules;
    for (VerifyRule &present : rules) {
        if (present.ruleId == rule.ruleId) {
            present = rule;
            return;
        }
    }
    rules.append(rule);
}

int VerifyRulesWidget::failsOf(int ruleId) const
{
    return m_fails.value(shownColumn()).value(ruleId);
}

void VerifyRulesWidget::showRules()
{
    const ColumnId column = shownColumn();
    const bool isTable = column.isNull();
    m_heading->setText(
        isTable ? QStringLiteral("Rules that apply to the dataset") : QStringLiteral("Rules that apply per column"));
    m_type->setEnabled(!isTable);
    m_type->setCurrentIndex(m_rules.columns.value(column).type);
    QVector<RecordTableWidget::Record> records;
    for (const int id : offeredRules(column)) {
        const VerifyRule rule = ruleOf(column, id);
        const auto kind = isTable ? VerifyRuleTable::datasetRuleKind(id) : VerifyRuleTable::columnRuleKind(id);
        const QString name = isTable ? verifyDatasetRuleName(id) : verifyColumnRuleName(id);
        const int fails = failsOf(id);
        records.append({rule.active, name, VerifyRuleTable::parameterText(rule.value, kind), rule.severity,
            fails > 0 ? formatInteger(fails, true) : QString(), id});
    }
    m_table->setRecords(records);
    lockCells();
    filterRules(m_ruleFilter->text());
}

void VerifyRulesWidget::lockCells()
{
    const QSignalBlocker blocker(m_table);
    const bool isTable = shownColumn().isNull();
    QVector<int> active;
    for (int row = 0; row < m_table->rowCount(); ++row) {
        if (m_table->item(row, Active)->checkState() == Qt::Checked) {
            active.append(m_table->item(row, Id)->data(Qt::UserRole).toInt());
        }
    }
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const int id = m_table->item(row, Id)->data(Qt::UserRole).toInt();
        const QString tip = isTable ? VerifyRuleTable::datasetRuleToolTip(id) : VerifyRuleTable::columnRuleToolTip(id);
        const bool excluded = !isTable && std::any_of(active.cbegin(), active.cend(), [id](int other) {
            return excludes(id, other);
        });
        for (int column = Active; column <= Fails; ++column) {
            QTableWidgetItem *cell = m_table->item(row, column);
            cell->setToolTip(tip);
            cell->setFlags(cell->flags().setFlag(Qt::ItemIsEnabled, !excluded || active.contains(id)));
        }
        const auto kind = isTable ? VerifyRuleTable::datasetRuleKind(id) : VerifyRuleTable::columnRuleKind(id);
        if (kind == VerifyRuleTable::NoParameter) {
            QTableWidgetItem *value = m_table->item(row, Value);
            value->setFlags(value->flags() & ~Qt::ItemIsEditable);
        }
    }
}

void VerifyRulesWidget::onRuleEdited()
{
    const int row = m_table->currentRow();
    if (row < 0) {
        return;
    }
    const RecordTableWidget::Record record = m_table->records().at(row);
    const int id = record.at(Id).toInt();
    const bool isTable = shownColumn().isNull();
    const auto kind = isTable ? VerifyRuleTable::datasetRuleKind(id) : VerifyRuleTable::columnRuleKind(id);
    for (const ColumnId column : selectedColumns()) {
        if (column.isNull() != isTable || !offeredRules(column).contains(id)) {
            continue;
        }
        VerifyRule rule = ruleOf(column, id);
        rule.active = record.at(Active).toBool();
        rule.severity = record.at(Severity).toInt();
        const QString text = record.at(Value).toString();
        if (text != VerifyRuleTable::parameterText(rule.value, kind)) {
            rule.value = VerifyRuleTable::parameterFromText(text, kind);
            // Whoever gives a rule its value wants it to be looked at.
            rule.active = true;
        }
        storeRule(column, rule);
    }
    updateColumnTexts();
    showRules();
    emit changed();
}

void VerifyRulesWidget::onTypeChosen(int type)
{
    for (const ColumnId column : selectedColumns()) {
        if (!column.isNull()) {
            m_rules.columns[column].type = type;
        }
    }
    showRules();
    emit changed();
}

void VerifyRulesWidget::showFails(const Dataset &result)
{
    m_fails.clear();
    for (const ColumnId id : qAsConst(m_columns.ids)) {
        const ColumnIndex column = result.columnIndexOfId(id);
        for (int rule = 0; column.isValid() && rule < VerifyRule::columnRuleCount; ++rule) {
            const int fails = result.issues().columnRuleFails(column, rule);
            if (fails > 0) {
                m_fails[id].insert(rule, fails);
            }
        }
    }
    showRules();
}
