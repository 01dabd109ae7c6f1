#include "panes/editors/filtercolumnsparameterwidget.h"

#include "data/matchoperator.h"
#include "panes/editors/filtercolumnstablewidget.h"
#include "panes/widgets/recordtools.h"
#include "transforms/options/parameter.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QToolButton>
#include <QWhatsThis>

FilterColumnsParameterWidget::FilterColumnsParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : RecordParameterWidget(parameter, node, *new FilterColumnsTableWidget, parent)
    , m_keep(new QComboBox)
    , m_match(new QComboBox)
{
    m_keep->addItems({QStringLiteral("Keep"), QStringLiteral("Remove")});
    m_keep->setToolTip(QStringLiteral("Choose whether to keep or remove matches."));
    m_keep->setAccessibleName(QStringLiteral("Keep or remove"));
    m_match->addItems({QStringLiteral("Matching all (AND)"), QStringLiteral("Matching any (OR)")});
    m_match->setAccessibleName(QStringLiteral("Matching"));
    m_match->setToolTip(QStringLiteral("Choose whether a row must match all terms or any of them."));
    auto *choices = new QHBoxLayout;
    choices->addWidget(m_keep);
    choices->addWidget(m_match);
    choices->addStretch(1);
    contents().insertLayout(0, choices);
    addEditButtons(QStringLiteral("Add a filter. (%1)"), QStringLiteral("Remove selected filter term(s). (%1)"));
    addMoveButtons(
        QStringLiteral("Move selected filter term(s) up."), QStringLiteral("Move selected filter term(s) down."));
    addClipboardButtons(QStringLiteral("Copy filter terms to the clipboard."),
        QStringLiteral("Paste in filter terms from the clipboard. Click the ? button for details."));
    connect(tools().add(QStringLiteral("edit-delete"), QStringLiteral("Remove all"),
                QStringLiteral("Remove all filter term(s).")),
        &QToolButton::clicked, &table(), &RecordTableWidget::removeAll);
    addSummaryButton();
    FilterColumnsParameterWidget::refresh();
    connect(m_keep, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &RecordParameterWidget::onChanged);
    connect(m_match, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &RecordParameterWidget::onChanged);
}

void FilterColumnsParameterWidget::addSummaryButton()
{
    QToolButton *button = tools().add(
        QStringLiteral("tips"), QStringLiteral("Summary"), QStringLiteral("Summary of current filter."));
    connect(button, &QToolButton::clicked, this, [this, button] {
        QWhatsThis::showText(button->mapToGlobal(QPoint(0, button->height())), summary().toHtmlEscaped(), button);
    });
}

void FilterColumnsParameterWidget::refresh()
{
    const FilterRecord record = parameter()->toFilterTerms();
    const QSignalBlocker keepBlocker(m_keep);
    const QSignalBlocker matchBlocker(m_match);
    m_keep->setCurrentIndex(record.keep ? 0 : 1);
    m_match->setCurrentIndex(record.matchAll ? 0 : 1);
    takeColumns();
    QVector<RecordTableWidget::Record> records;
    for (const FilterTerm &term : record.terms) {
        records.append(FilterColumnsTableWidget::recordOf(term));
    }
    table().setRecords(records);
    onRefreshed();
}

QVariant FilterColumnsParameterWidget::value() const
{
    FilterRecord record;
    record.keep = m_keep->currentIndex() == 0;
    record.matchAll = m_match->currentIndex() == 0;
    record.terms.clear();
    for (const RecordTableWidget::Record &row : table().records()) {
        record.terms.append(FilterColumnsTableWidget::termOf(row));
    }
    return record == parameter()->toFilterTerms() ? parameter()->value() : QVariant::fromValue(record);
}

QString FilterColumnsParameterWidget::summary() const
{
    QStringList terms;
    const QVector<RecordTableWidget::Record> records = table().records();
    for (int row = 0; row < records.size(); ++row) {
        const FilterTerm term = FilterColumnsTableWidget::termOf(records.at(row));
        terms.append(QStringLiteral("%1 %2 %3")
                         .arg(table().item(row, 0)->text(), MatchOperators::shortForm(term.op),
                             term.text.isEmpty() ? QString() : QStringLiteral("'%1'").arg(term.text)));
    }
    if (terms.isEmpty()) {
        return QStringLiteral("No filter terms");
    }
    return m_keep->currentText() + QLatin1Char(' ')
           + terms.join(m_match->currentIndex() == 0 ? QStringLiteral(" AND ") : QStringLiteral(" OR "));
}
