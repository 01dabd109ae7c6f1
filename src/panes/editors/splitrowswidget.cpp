#include "panes/editors/splitrowswidget.h"

#include "data/matchoperator.h"
#include "panes/widgets/lineeditwithinsertcontrolchars.h"
#include "panes/widgets/singlecolumnfilteredwidget.h"
#include "panes/widgets/wheelguard.h"

#include <QFormLayout>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStackedWidget>

namespace {

constexpr int mostColumns = 100000;

} // namespace

SplitRowsWidget::SplitRowsWidget(QWidget *parent)
    : QWidget(parent)
    , m_mode(new QComboBox)
    , m_pages(new QStackedWidget)
    , m_op(new QComboBox)
    , m_text(new LineEditWithInsertControlChars)
    , m_every(new QSpinBox)
    , m_times(new QSpinBox)
    , m_start(new SingleColumnFilteredWidget)
{
    m_mode->addItems({QStringLiteral("By matching column names"), QStringLiteral("Automatically by column names"),
        QStringLiteral("Every few columns")});
    m_mode->setAccessibleName(QStringLiteral("Split mode"));
    guardFromWheel(*m_mode);
    m_pages->addWidget(matchPage());
    m_pages->addWidget(new QWidget);
    m_pages->addWidget(everyPage());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_mode);
    layout->addWidget(m_pages);
    setFocusProxy(m_mode);
    connect(m_mode, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        showPage();
        emit changed();
    });
    connect(m_op, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &SplitRowsWidget::changed);
    connect(m_text, &QLineEdit::textChanged, this, &SplitRowsWidget::changed);
    connect(m_every, QOverload<int>::of(&QSpinBox::valueChanged), this, &SplitRowsWidget::changed);
    connect(m_times, QOverload<int>::of(&QSpinBox::valueChanged), this, &SplitRowsWidget::changed);
    connect(m_start, &SingleColumnFilteredWidget::columnChanged, this, &SplitRowsWidget::changed);
}

QWidget *SplitRowsWidget::matchPage()
{
    auto *page = new QWidget;
    auto *form = new QFormLayout(page);
    form->setContentsMargins(0, 0, 0, 0);
    m_op->addItems(MatchOperators::labels());
    m_op->setToolTip(QStringLiteral("Start a new row at each column whose name matches."));
    guardFromWheel(*m_op);
    form->addRow(QStringLiteral("Column name:"), m_op);
    form->addRow(QStringLiteral("Value:"), m_text);
    return page;
}

QWidget *SplitRowsWidget::everyPage()
{
    auto *page = new QWidget;
    auto *form = new QFormLayout(page);
    form->setContentsMargins(0, 0, 0, 0);
    for (QSpinBox *box : {m_every, m_times}) {
        box->setRange(1, mostColumns);
        guardFromWheel(*box);
    }
    m_every->setSuffix(QStringLiteral(" column(s)"));
    m_times->setSuffix(QStringLiteral(" time(s)"));
    form->addRow(QStringLiteral("Starting at:"), m_start);
    form->addRow(QStringLiteral("Every:"), m_every);
    form->addRow(QStringLiteral("At most:"), m_times);
    return page;
}

void SplitRowsWidget::showPage()
{
    m_pages->setCurrentIndex(m_mode->currentIndex());
    for (int page = 0; page < m_pages->count(); ++page) {
        // Only the page that is open asks for room.
        const bool open = page == m_pages->currentIndex();
        m_pages->widget(page)->setSizePolicy(
            QSizePolicy::Preferred, open ? QSizePolicy::Preferred : QSizePolicy::Ignored);
    }
}

void SplitRowsWidget::setColumns(const ColumnList &columns)
{
    m_start->setColumns(columns);
}

void SplitRowsWidget::setRecord(const SplitRowsRecord &record)
{
    const QSignalBlocker blocker(this);
    m_mode->setCurrentIndex(record.mode);
    m_op->setCurrentIndex(record.op);
    if (record.text != m_text->text()) {
        m_text->setText(record.text);
    }
    m_every->setValue(record.every);
    m_times->setValue(record.times);
    m_start->setColumn(record.startColumn);
    showPage();
}

SplitRowsRecord SplitRowsWidget::record() const
{
    SplitRowsRecord record;
    record.mode = m_mode->currentIndex();
    record.op = m_op->currentIndex();
    record.text = m_text->text();
    record.every = m_every->value();
    record.times = m_times->value();
    record.startColumn = m_start->column();
    return record;
}
