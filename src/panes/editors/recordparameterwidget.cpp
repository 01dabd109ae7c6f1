#include "panes/editors/recordparameterwidget.h"

#include "panes/widgets/recordtablewidget.h"
#include "panes/widgets/recordtools.h"
#include "transforms/options/parameter.h"

#include <QToolButton>
#include <QVBoxLayout>

RecordParameterWidget::RecordParameterWidget(
    Parameter &parameter, Node &node, RecordTableWidget &table, QWidget *parent)
    : QWidget(parent)
    , ParameterWidget(parameter, node)
    , m_table(table)
    , m_tools(new RecordTools)
    , m_layout(new QVBoxLayout(this))
{
    describe(*this);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(2);
    m_layout->addWidget(m_tools);
    m_layout->addWidget(&m_table, 1);
    m_table.setAccessibleName(parameter.label());
    m_table.setOverlay([this](QWidget &viewport) { paintUnsetFrame(viewport); });
    setFocusProxy(&m_table);
    connect(&m_table, &RecordTableWidget::edited, this, &RecordParameterWidget::onChanged);
    connect(&m_table, &RecordTableWidget::userInteraction, this, &RecordParameterWidget::userInteraction);
}

void RecordParameterWidget::addEditButtons(const QString &addTip, const QString &removeTip)
{
    connect(m_tools->add(QStringLiteral("list-add"), QStringLiteral("Add"), addTip, QStringLiteral("Insert")),
        &QToolButton::clicked, &m_table, &RecordTableWidget::addRecord);
    connect(m_tools->add(QStringLiteral("list-remove"), QStringLiteral("Remove"), removeTip, QStringLiteral("Delete")),
        &QToolButton::clicked, &m_table, &RecordTableWidget::removeSelected);
    connect(m_tools->add(
                QStringLiteral("edit-duplicate"), QStringLiteral("Duplicate"), QStringLiteral("Duplicate selected.")),
        &QToolButton::clicked, &m_table, &RecordTableWidget::duplicateSelected);
}

void RecordParameterWidget::addMoveButtons(const QString &upTip, const QString &downTip)
{
    connect(m_tools->add(QStringLiteral("go-up"), QStringLiteral("Move up"), upTip), &QToolButton::clicked, &m_table,
        &RecordTableWidget::moveUp);
    connect(m_tools->add(QStringLiteral("go-down"), QStringLiteral("Move down"), downTip), &QToolButton::clicked,
        &m_table, &RecordTableWidget::moveDown);
}

void RecordParameterWidget::addClipboardButtons(const QString &copyTip, const QString &pasteTip)
{
    connect(m_tools->add(QStringLiteral("edit-copy"), QStringLiteral("Copy"), copyTip), &QToolButton::clicked, &m_table,
        &RecordTableWidget::copyRecords);
    connect(m_tools->add(QStringLiteral("edit-paste"), QStringLiteral("Paste"), pasteTip), &QToolButton::clicked,
        &m_table, &RecordTableWidget::pasteRecords);
}

void RecordParameterWidget::takeColumns()
{
    m_table.setColumns(ColumnList::of(parameter()->node()));
}

void RecordParameterWidget::onRefreshed()
{
    m_table.viewport()->update();
}

void RecordParameterWidget::onChanged()
{
    if (commit()) {
        emit parameterValueChanged(true);
    }
    onRefreshed();
}
