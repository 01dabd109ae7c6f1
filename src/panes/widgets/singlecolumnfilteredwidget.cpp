#include "panes/widgets/singlecolumnfilteredwidget.h"

#include "panes/widgets/filteredpopup.h"
#include "panes/widgets/wheelguard.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStringListModel>

namespace {

constexpr int leastCharacters = 8;

} // namespace

SingleColumnFilteredWidget::SingleColumnFilteredWidget(QWidget *parent)
    : QComboBox(parent)
    , m_names(new QStringListModel(this))
{
    guardFromWheel(*this);
    setModel(m_names);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(leastCharacters);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    fill();
    connect(
        this, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &SingleColumnFilteredWidget::onIndexChanged);
}

void SingleColumnFilteredWidget::setNoneText(const QString &text)
{
    m_noneText = text;
    fill();
}

void SingleColumnFilteredWidget::setColumns(const ColumnList &columns)
{
    if (columns != m_columns) {
        m_columns = columns;
        fill();
    }
}

void SingleColumnFilteredWidget::fill()
{
    const QSignalBlocker blocker(this);
    m_names->setStringList(QStringList(m_noneText) + m_columns.names);
    setCurrentIndex(m_columns.indexOf(m_column) + 1);
}

void SingleColumnFilteredWidget::setColumn(ColumnId id)
{
    const QSignalBlocker blocker(this);
    m_column = id;
    setCurrentIndex(m_columns.indexOf(id) + 1);
}

void SingleColumnFilteredWidget::onIndexChanged(int index)
{
    const ColumnId id = index > 0 ? m_columns.ids.value(index - 1) : ColumnId();
    if (index >= 0 && id != m_column) {
        m_column = id;
        emit columnChanged();
    }
}

void SingleColumnFilteredWidget::showPopup()
{
    popUp(QString());
}

void SingleColumnFilteredWidget::popUp(const QString &filter)
{
    if (!m_popup) {
        m_popup = new FilteredPopup(*m_names, this);
        connect(m_popup, &FilteredPopup::chosen, this, [this](int row) {
            const bool wasLost = row == 0 && currentIndex() == 0 && !m_column.isNull();
            setCurrentIndex(row);
            if (wasLost) {
                onIndexChanged(row);
            }
        });
    }
    m_popup->popUp(*this, currentIndex(), filter);
}

void SingleColumnFilteredWidget::keyPressEvent(QKeyEvent *event)
{
    const QString text = event->text();
    const bool types = !text.isEmpty() && text.at(0).isPrint() && text.at(0) != QLatin1Char(' ')
                       && !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (types) {
        popUp(text);
        return;
    }
    QComboBox::keyPressEvent(event);
}
