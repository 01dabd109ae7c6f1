#pragma once

#include <QWidget>

class QHBoxLayout;
class QToolButton;

/// A row of small buttons for a table of records.
class RecordTools : public QWidget
{
    Q_OBJECT

public:
    explicit RecordTools(QWidget *parent = nullptr);

    /// `tip` may have a place %1 for `keys`, which are told there and pressed in the table.
    QToolButton *add(const QString &icon, const QString &name, const QString &tip, const QString &keys = QString());

private:
    QHBoxLayout *m_layout;
};
