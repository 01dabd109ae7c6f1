#pragma once

#include <QWidget>

class DataTableView;
class QCheckBox;
class QLabel;
class QHBoxLayout;
class QToolButton;

/// Shows what a transform has changed in its table, and steps through it.
class CompareRow : public QWidget
{
    Q_OBJECT

public:
    explicit CompareRow(DataTableView &view, QWidget *parent = nullptr);

    void setShowChanges(bool on);
    void updateButtons();

signals:
    void showChangesToggled(bool on);
    void colorChanged();

public slots:
    void onNextChange();
    void onPreviousChange();

private:
    QToolButton *addButton(QHBoxLayout &layout, const QString &icon, const QString &name, const QString &tip);
    void goTo(bool forwards);

    DataTableView &m_view;
    QCheckBox *m_show;
    QToolButton *m_previous;
    QToolButton *m_next;
    QLabel *m_message;
};
