#include "panes/items/transformitemwidget.h"

#include "data/dataset.h"
#include "graph/transformexample.h"
#include "graph/transformnode.h"
#include "panes/dialogs/prompts.h"
#include "panes/explore/exploreduplicatesdialog.h"
#include "panes/explore/explorekeysbutton.h"
#include "panes/items/comparerow.h"
#include "panes/items/datapage.h"
#include "panes/items/parameterform.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "panes/widgets/colorbutton.h"
#include "settings/settings.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {

/// Whoever types on sees one example, not one for each letter.
constexpr int examplePauseMs = 120;

} // namespace

TransformItemWidget::TransformItemWidget(TransformNode &item, QWidget *parent)
    : DataItemWidget(item, parent)
    , m_form(new ParameterForm(item))
    , m_examplePause(new QTimer(this))
{
    auto *options = new QWidget;
    auto *layout = new QVBoxLayout(options);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *help = new QLabel(item.description());
    help->setTextFormat(Qt::PlainText);
    help->setWordWrap(true);
    QPalette faint = help->palette();
    faint.setColor(QPalette::WindowText, faint.color(QPalette::PlaceholderText));
    help->setPalette(faint);
    layout->addWidget(help);
    layout->addWidget(m_form, 1);
    if (item.transform()->hasKeyColumns()) {
        addKeysButton(*layout);
    }
    if (TransformExample::canBeShown(item)) {
        layout->addWidget(makeExample());
    }
    if (item.transform()->hasDuplicateColumns()) {
        layout->addWidget(makeDuplicatesButton());
    }
    setOptionsArea(options);
    connect(m_form, &ParameterForm::parameterValueChanged, this, &DataItemWidget::onParameterValueChanged);
    connect(m_form, &ParameterForm::processNow, this, &DataItemWidget::processNow);
    connect(m_form, &ParameterForm::userInteraction, this, &DataItemWidget::onUserInteraction);
    if (item.transform()->canCompareChanges()) {
        m_compare = new CompareRow(dataPage().view());
        dataPage().addRow(m_compare);
        connect(m_compare, &CompareRow::showChangesToggled, this, &TransformItemWidget::showChanges);
        connect(m_compare, &CompareRow::colorChanged, this, &TransformItemWidget::refresh);
    }
    if (item.transform()->hasDrilldown()) {
        dataPage().view().setHint(DataTableView::Hint::Drilldown);
    }
    if (item.transform()->isVerify()) {
        dataPage().view().setHint(DataTableView::Hint::Verification);
        dataPage().view().table().setVerification(true);
        addVerificationColors();
    }
}

void TransformItemWidget::addKeysButton(QLayout &layout)
{
    m_keys = new ExploreKeysButton(*transformNode()->transform());
    m_keys->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    layout.addWidget(m_keys);
    connect(m_keys, &QPushButton::clicked, this, [this] {
        if (node()) {
            m_keys->explore(*panelState().prompts);
        }
    });
    connect(m_form, &ParameterForm::parameterValueChanged, m_keys, &ExploreKeysButton::refresh);
}

QLabel *TransformItemWidget::makeExample()
{
    m_example = new QLabel;
    m_example->setTextFormat(Qt::PlainText);
    m_example->setWordWrap(true);
    m_example->setAccessibleName(QStringLiteral("Example"));
    m_example->setToolTip(QStringLiteral("What these options do to the first row that they change."));
    m_example->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_examplePause->setSingleShot(true);
    m_examplePause->setInterval(examplePauseMs);
    connect(m_examplePause, &QTimer::timeout, this, &TransformItemWidget::updateExample);
    connect(m_form, &ParameterForm::parameterValueChanged, m_examplePause, QOverload<>::of(&QTimer::start));
    return m_example;
}

void TransformItemWidget::updateExample()
{
    // During a run the inputs are on their way to be others; its end refreshes the panel.
    if (!node() || !interacts()) {
        return;
    }
    const QString line = TransformExample::lineFor(*transformNode());
    m_example->setText(line.isEmpty() ? QString() : QStringLiteral("Example: ") + line);
    m_example->setVisible(!line.isEmpty());
}

void TransformItemWidget::addVerificationColors()
{
    struct Row
    {
        const char *label;
        QColor (Settings::*color)() const;
        void (Settings::*setColor)(const QColor &color);
    };
    const Row rows[] = {
        {"Error:", &Settings::verifyFailErrorColor, &Settings::setVerifyFailErrorColor},
        {"Warning:", &Settings::verifyFailWarningColor, &Settings::setVerifyFailWarningColor},
        {"Info:", &Settings::verifyFailInfoColor, &Settings::setVerifyFailInfoColor},
    };
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const Row &color : rows) {
        auto *label = new QLabel(QLatin1String(color.label));
        auto *button = new ColorButton;
        button->setAccessibleName(label->text());
        button->setColor((Settings::current().*color.color)());
        label->setBuddy(button);
        layout->addWidget(label);
        layout->addWidget(button);
        connect(button, &ColorButton::colorChosen, this, [this, color](const QColor &chosen) {
            (Settings::current().*color.setColor)(chosen);
            refresh();
        });
    }
    layout->addStretch(1);
    dataPage().addRow(row);
}

TransformNode *TransformItemWidget::transformNode() const
{
    return static_cast<TransformNode *>(node());
}

void TransformItemWidget::setPanelState(PanelState &state)
{
    DataItemWidget::setPanelState(state);
    if (m_compare) {
        m_compare->setShowChanges(state.showsChanges);
        showChanges(state.showsChanges);
    }
}

void TransformItemWidget::refreshOptions()
{
    m_form->refresh();
    if (m_keys) {
        m_keys->refresh();
    }
    if (m_example) {
        updateExample();
    }
}

const Dataset *TransformItemWidget::previousDataset() const
{
    const QList<Node *> inputs = m_compare && node() ? node()->upstreamNodes(true) : QList<Node *>();
    return inputs.isEmpty() ? nullptr : &inputs.first()->datasetConst();
}

void TransformItemWidget::onTableShown()
{
    if (node()->datasetConst().hasDrilldown()) {
        const QList<Node *> inputs = node()->upstreamNodes(true);
        dataPage().view().table().setDrilldownSource(inputs.isEmpty() ? Dataset() : inputs.first()->datasetConst());
    }
    highlightColumns();
    if (m_compare) {
        m_compare->updateButtons();
    }
}

void TransformItemWidget::showChanges(bool on)
{
    panelState().showsChanges = on;
    dataPage().view().table().setShowChanges(on);
    m_compare->updateButtons();
}

void TransformItemWidget::highlightColumns()
{
    const Dataset &dataset = node()->datasetConst();
    QSet<int> columns;
    for (const Parameter *parameter : transformNode()->transform()->parameters()) {
        const QList<ColumnId> ids = parameter->referencedColumns();
        // An option that names everything would only tint the whole table.
        if (ids.size() >= dataset.columnCount()) {
            continue;
        }
        for (const ColumnId id : ids) {
            const ColumnIndex column = dataset.columnIndexOfId(id);
            if (column.isValid()) {
                columns.insert(column.toInt());
            }
        }
    }
    dataPage().view().table().setHighlightColumns(columns);
}

QWidget *TransformItemWidget::makeDuplicatesButton()
{
    auto *button = new QPushButton(QStringLiteral("Explore &Duplicates..."));
    button->setToolTip(QStringLiteral("Look at the rows that these options find, without changing anything."));
    button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    connect(button, &QPushButton::clicked, this, &TransformItemWidget::exploreDuplicates);
    return button;
}

void TransformItemWidget::exploreDuplicates()
{
    const QList<Node *> inputs = node() ? node()->upstreamNodes(true) : QList<Node *>();
    if (inputs.isEmpty() || !panelState().prompts) {
        return;
    }
    ExploreDuplicatesDialog dialog(
        *inputs.first(), ExploreDuplicatesDialog::optionsOf(*transformNode()->transform()), *panelState().prompts);
    panelState().prompts->exec(dialog);
}
