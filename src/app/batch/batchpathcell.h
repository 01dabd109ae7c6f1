#pragma once

#include "app/batch/batchcolumns.h"

#include <QWidget>

class Prompts;
class QLineEdit;
class QToolButton;

/// A cell of the batch grid: a path that can be typed or chosen. Folders are chosen for inputs from folders, else
/// files.
class BatchPathCell : public QWidget
{
    Q_OBJECT

public:
    /// `prompts` must outlive this; `row` is counted from 0.
    BatchPathCell(const BatchColumn &column, int row, const QString &text, Prompts &prompts);

    QLineEdit *edit() const { return m_edit; }
    QToolButton *button() const { return m_button; }

signals:
    void textChanged(const QString &text);
    /// The cell has got the focus.
    void entered();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void onBrowse();

private:
    QString chosenPath() const;

    const BatchColumn m_column;
    Prompts &m_prompts;
    QLineEdit *m_edit;
    QToolButton *m_button;
};
