#pragma once

#include <QDialog>

class QDoubleSpinBox;
class QPushButton;
class QRadioButton;

/// Asks in the middle of a run whether to raise the memory ceiling or to leave the program. Closing it any other way
/// than by its button raises the ceiling: nothing gets lost by mistake.
class InsufficientMemoryDialog : public QDialog
{
    Q_OBJECT

public:
    /// Both in GiB. `modified` tells whether leaving loses changes.
    InsufficientMemoryDialog(double used, double limit, bool modified, QWidget *parent = nullptr);

    bool isExitChosen() const;
    /// The new ceiling in GiB.
    double newLimit() const;

    /// What has happened, with both amounts.
    static QString explanation(double used, double limit);

private slots:
    void onChoiceChanged();

private:
    QRadioButton *m_increase;
    QDoubleSpinBox *m_limit;
    QRadioButton *m_exit;
    QPushButton *m_button;
    QString m_exitText;
};
