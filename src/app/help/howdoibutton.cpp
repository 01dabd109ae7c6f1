#include "app/help/howdoibutton.h"

#include <QMenu>
#include <QStyle>

HowDoIButton::HowDoIButton(QWidget *parent)
    : QToolButton(parent)
{
    setObjectName(QStringLiteral("m_howDoIButton"));
    setText(QStringLiteral("How do I...?"));
    setToolTip(QStringLiteral("Find out how to do something."));
    setStatusTip(toolTip());
    setPopupMode(QToolButton::InstantPopup);
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    // The tool bar itself takes no keys, and this opens like a menu.
    setFocusPolicy(Qt::TabFocus);
    auto *menu = new QMenu(this);
    for (const Task &task : tasks()) {
        const QString page = task.page;
        menu->addAction(task.text, this, [this, page] { emit pageChosen(page); });
    }
    setMenu(menu);
}

QSize HowDoIButton::sizeHint() const
{
    const int arrow = style()->pixelMetric(QStyle::PM_MenuButtonIndicator, nullptr, this);
    return QToolButton::sizeHint() + QSize(arrow, 0);
}

const QVector<HowDoIButton::Task> &HowDoIButton::tasks()
{
    static const QVector<Task> all{
        {QStringLiteral("Build my first flow"), QStringLiteral("Quick_start_guide")},
        {QStringLiteral("Add data"), QStringLiteral("Input_data")},
        {QStringLiteral("Connect items"), QStringLiteral("Connections")},
        {QStringLiteral("Clean up text"), QStringLiteral("Whitespace")},
        {QStringLiteral("Find and replace"), QStringLiteral("Replace_Multi")},
        {QStringLiteral("Keep some rows only"), QStringLiteral("Filter")},
        {QStringLiteral("Remove duplicates"), QStringLiteral("Dedupe")},
        {QStringLiteral("Merge two datasets by a key"), QStringLiteral("Join")},
        {QStringLiteral("Put datasets below each other"), QStringLiteral("Stack")},
        {QStringLiteral("Sum up by group"), QStringLiteral("Pivot")},
        {QStringLiteral("Calculate a column"), QStringLiteral("Calculate")},
        {QStringLiteral("Convert dates"), QStringLiteral("Date_Format")},
        {QStringLiteral("Check data against rules"), QStringLiteral("Verify")},
        {QStringLiteral("Compare two datasets"), QStringLiteral("Compare_data")},
        {QStringLiteral("Draw a chart"), QStringLiteral("Chart_data")},
        {QStringLiteral("Write files"), QStringLiteral("Output_data")},
        {QStringLiteral("Process many files"), QStringLiteral("Batch_processing")},
        {QStringLiteral("Work faster with keys"), QStringLiteral("Keyboard_shortcuts")},
    };
    return all;
}
