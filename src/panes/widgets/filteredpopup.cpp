#include "panes/widgets/filteredpopup.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

namespace {

constexpr int mostRowsShown = 14;
constexpr int leastWidth = 220;

} // namespace

FilteredPopup::FilteredPopup(QAbstractItemModel &model, QWidget *parent)
    : QFrame(parent, Qt::Popup)
    , m_filter(new QLineEdit)
    , m_list(new QListView)
    , m_rows(new QSortFilterProxyModel(this))
{
    setFrameShape(QFrame::StyledPanel);
    m_rows->setSourceModel(&model);
    m_rows->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_filter->setPlaceholderText(QStringLiteral("Filter"));
    m_filter->setAccessibleName(QStringLiteral("Filter"));
    m_filter->setClearButtonEnabled(true);
    m_filter->installEventFilter(this);
    m_list->setModel(m_rows);
    m_list->setUniformItemSizes(true);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setMouseTracking(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(3, 3, 3, 3);
    layout->setSpacing(3);
    layout->addWidget(m_filter);
    layout->addWidget(m_list);
    setFocusProxy(m_filter);
    connect(m_filter, &QLineEdit::textChanged, this, &FilteredPopup::onFilterChanged);
    connect(m_list, &QListView::clicked, this, &FilteredPopup::choose);
    connect(m_list, &QListView::entered, m_list, &QListView::setCurrentIndex);
}

QSize FilteredPopup::sizeFor(const QWidget &widget) const
{
    const int rows = qBound(1, m_rows->rowCount(), mostRowsShown);
    const int rowHeight = m_rows->rowCount() > 0 ? m_list->sizeHintForRow(0) : fontMetrics().lineSpacing();
    return {qMax(leastWidth, widget.width()), m_filter->sizeHint().height() + rows * rowHeight + rowHeight};
}

void FilteredPopup::popUp(QWidget &widget, int current, const QString &filter)
{
    m_filter->clear();
    resize(sizeFor(widget));
    QPoint place = widget.mapToGlobal(QPoint(0, widget.height()));
    const QRect screen = widget.screen()->availableGeometry();
    if (place.y() + height() > screen.bottom()) {
        place.setY(qMax(screen.top(), widget.mapToGlobal(QPoint()).y() - height()));
    }
    place.setX(qBound(screen.left(), place.x(), qMax(screen.left(), screen.right() - width())));
    move(place);
    show();
    m_filter->setFocus(Qt::PopupFocusReason);
    m_filter->setText(filter);
    if (filter.isEmpty()) {
        const QModelIndex index = m_rows->mapFromSource(m_rows->sourceModel()->index(qMax(0, current), 0));
        m_list->setCurrentIndex(index);
        m_list->scrollTo(index, QAbstractItemView::PositionAtCenter);
    }
}

void FilteredPopup::onFilterChanged(const QString &text)
{
    m_rows->setFilterFixedString(text);
    m_list->setCurrentIndex(m_rows->index(0, 0));
}

void FilteredPopup::choose(const QModelIndex &index)
{
    if (index.isValid()) {
        const int row = m_rows->mapToSource(index).row();
        hide();
        emit chosen(row);
    }
}

bool FilteredPopup::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_filter || event->type() != QEvent::KeyPress) {
        return QFrame::eventFilter(watched, event);
    }
    auto *key = static_cast<QKeyEvent *>(event);
    switch (key->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(m_list, event);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        choose(m_list->currentIndex());
        return true;
    case Qt::Key_Escape:
        hide();
        return true;
    default:
        return false;
    }
}
