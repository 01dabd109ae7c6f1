#pragma once

#include <QDialog>

class QVBoxLayout;

/// Welcomes at the first start: what the program does in three steps, and ways to begin.
class GettingStartedDialog : public QDialog
{
    Q_OBJECT

public:
    enum class Choice { Nothing, Example, QuickStart };

    /// Offers an example only where there are any.
    explicit GettingStartedDialog(bool hasExamples, QWidget *parent = nullptr);

    Choice choice() const { return m_choice; }

private:
    void addWelcome(QVBoxLayout &layout);
    void addSteps(QVBoxLayout &layout);
    void addButtons(QVBoxLayout &layout, bool hasExamples);
    void choose(Choice choice);

    Choice m_choice = Choice::Nothing;
};
