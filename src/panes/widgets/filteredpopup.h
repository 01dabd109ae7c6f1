#pragma once

#include <QFrame>

class QAbstractItemModel;
class QLineEdit;
class QListView;
class QSortFilterProxyModel;

/// A list that drops down below a widget, with a box above it whose text all entries shown contain.
class FilteredPopup : public QFrame
{
    Q_OBJECT

public:
    /// `model` outlives the popup.
    FilteredPopup(QAbstractItemModel &model, QWidget *parent);

    /// Drops down below `widget`, with row `current` of the model chosen.
    void popUp(QWidget &widget, int current, const QString &filter = QString());

signals:
    /// A row of the model was chosen.
    void chosen(int row);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void onFilterChanged(const QString &text);
    void choose(const QModelIndex &index);
    QSize sizeFor(const QWidget &widget) const;

    QLineEdit *m_filter;
    QListView *m_list;
    QSortFilterProxyModel *m_rows;
};
