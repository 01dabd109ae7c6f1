#include "panes/widgets/multiplecolumnswidget.h"

#include "data/dataset.h"
#include "data/datasource.h"
#include "data/values.h"
#include "panes/widgets/columnchecksmodel.h"
#include "panes/widgets/columnslistwidget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSortFilterProxyModel>
#include <QToolButton>

namespace {

enum ColumnType { NumericColumns, DateColumns, TextColumns };

constexpr int rowsLookedAt = 50;

ColumnType typeOf(const Dataset &dataset, ColumnIndex column, const QStringList &formats)
{
    QString format;
    if (dataset.isColumnNumeric(column, true, rowsLookedAt)) {
        return NumericColumns;
    }
    return dataset.isColumnDate(column, formats, &format, rowsLookedAt) ? DateColumns : TextColumns;
}

} // namespace

MultipleColumnsWidget::MultipleColumnsWidget(QWidget *parent)
    : QWidget(parent)
    , m_model(new ColumnChecksModel(this))
    , m_rows(new QSortFilterProxyModel(this))
    , m_filter(new QLineEdit)
    , m_list(new ColumnsListWidget)
    , m_count(new QLabel)
{
    m_rows->setSourceModel(m_model);
    m_rows->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_list->setModel(m_rows);
    m_list->setAccessibleName(QStringLiteral("Columns"));
    m_filter->setPlaceholderText(QStringLiteral("Filter columns"));
    m_filter->setAccessibleName(QStringLiteral("Filter columns"));
    m_filter->setClearButtonEnabled(true);
    auto *tools = new QHBoxLayout;
    tools->setSpacing(2);
    tools->addWidget(m_filter, 1);
    addButtons(*tools);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addLayout(tools);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_count);
    setFocusProxy(m_list);
    connect(m_filter, &QLineEdit::textChanged, m_rows, &QSortFilterProxyModel::setFilterFixedString);
    connect(m_filter, &QLineEdit::textChanged, this, &MultipleColumnsWidget::userInteraction);
    connect(m_model, &ColumnChecksModel::edited, this, &MultipleColumnsWidget::updateCount);
    connect(m_model, &ColumnChecksModel::edited, this, &MultipleColumnsWidget::columnsChanged);
    updateCount();
}

void MultipleColumnsWidget::addButtons(QHBoxLayout &layout)
{
    const auto add = [&layout](const QString &text, const QString &tip) {
        auto *button = new QToolButton;
        button->setText(text);
        button->setToolTip(tip);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        layout.addWidget(button);
        return button;
    };
    connect(add(QStringLiteral("All"), QStringLiteral("Check all columns shown.")), &QToolButton::clicked, this,
        [this] { m_model->check(shownRows(), true); });
    connect(add(QStringLiteral("None"), QStringLiteral("Uncheck all columns shown.")), &QToolButton::clicked, this,
        [this] { m_model->check(shownRows(), false); });
    connect(
        add(QStringLiteral("Invert"), QStringLiteral("Check the columns shown that are unchecked, and the reverse.")),
        &QToolButton::clicked, this, [this] { m_model->invert(shownRows()); });
    QToolButton *byType = add(
        QStringLiteral("By type"), QStringLiteral("Check only columns of one type, by their first values."));
    auto *menu = new QMenu(byType);
    addTypeMenu(*menu);
    byType->setMenu(menu);
    byType->setPopupMode(QToolButton::InstantPopup);
}

void MultipleColumnsWidget::addTypeMenu(QMenu &menu)
{
    menu.addAction(QStringLiteral("&Numeric"), this, [this] { checkByType(NumericColumns); });
    menu.addAction(QStringLiteral("&Date"), this, [this] { checkByType(DateColumns); });
    menu.addAction(QStringLiteral("&Text"), this, [this] { checkByType(TextColumns); });
}

void MultipleColumnsWidget::setSource(const DataSource *source)
{
    m_source = source;
    m_model->setColumns(ColumnList::of(source));
    updateCount();
}

void MultipleColumnsWidget::setChecked(const QList<ColumnId> &ids)
{
    m_model->setChecked(ids);
    updateCount();
}

QList<ColumnId> MultipleColumnsWidget::checkedColumns() const
{
    return m_model->checkedInOrder();
}

bool MultipleColumnsWidget::isChecked(ColumnId id) const
{
    return m_model->checked().contains(id);
}

QVector<int> MultipleColumnsWidget::shownRows() const
{
    QVector<int> rows;
    for (int row = 0; row < m_rows->rowCount(); ++row) {
        rows.append(m_rows->mapToSource(m_rows->index(row, 0)).row());
    }
    return rows;
}

void MultipleColumnsWidget::checkByType(int type)
{
    if (!m_source) {
        return;
    }
    const Dataset &dataset = m_source->datasetConst();
    const QStringList formats = dateFormats();
    QVector<int> wanted;
    for (const int row : shownRows()) {
        if (row < dataset.columnCount() && typeOf(dataset, ColumnIndex(row), formats) == type) {
            wanted.append(row);
        }
    }
    const QVector<int> shown = shownRows();
    {
        const QSignalBlocker blocker(m_model);
        m_model->check(shown, false);
    }
    m_model->check(wanted, true);
}

void MultipleColumnsWidget::updateCount()
{
    m_count->setText(m_model->rowCount() == 0 ? QStringLiteral("No columns")
                                              : QStringLiteral("%1 of %2 checked")
                                                    .arg(formatInteger(m_model->checkedInOrder().size(), true),
                                                        formatInteger(m_model->rowCount(), true)));
}
