#include "panes/editors/scriptwidget.h"

#include "panes/icons.h"
#include "panes/widgets/codeedit.h"
#include "panes/widgets/plaintext.h"
#include "panes/widgets/scripthighlighter.h"
#include "panes/widgets/wheelguard.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>

namespace {

constexpr int linesShown = 6;
constexpr QSize expandedSize(800, 600);

} // namespace

ScriptWidget::ScriptWidget(QWidget *parent)
    : QWidget(parent)
    , m_edit(new CodeEdit)
    , m_variables(new QComboBox)
{
    new ScriptHighlighter(m_edit->document(), Icons::areDark());
    m_edit->setToolTip(QStringLiteral("Enter your script here. Use 'Insert variable' to add values from columns. Click "
                                      "'Evaluate' to see results. See help for details."));
    m_edit->setAccessibleName(QStringLiteral("Script:"));
    m_edit->setMinimumHeight(linesShown * m_edit->fontMetrics().lineSpacing());
    auto *label = new QLabel(QStringLiteral("Script:"));
    label->setBuddy(m_edit);
    auto *expandButton = new QToolButton;
    expandButton->setAutoRaise(true);
    expandButton->setIcon(Icons::icon(QStringLiteral("fullscreen")));
    expandButton->setToolTip(QStringLiteral("Expand scripting area."));
    expandButton->setAccessibleName(QStringLiteral("Expand scripting area."));
    auto *variablesLabel = new QLabel(QStringLiteral("Insert variable:"));
    variablesLabel->setBuddy(m_variables);
    m_variables->setToolTip(QStringLiteral("The column selected will be added as a variable at the cursor."));
    m_variables->setAccessibleName(variablesLabel->text());
    m_variables->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_variables->setMinimumContentsLength(linesShown);
    guardFromWheel(*m_variables);
    auto *evaluate = new QPushButton(QStringLiteral("Evaluate"));
    evaluate->setToolTip(QStringLiteral("Evaluate the above for all rows."));
    evaluate->setAutoDefault(false);
    auto *top = new QHBoxLayout;
    top->addWidget(label);
    top->addStretch(1);
    top->addWidget(expandButton);
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(variablesLabel);
    bottom->addWidget(m_variables, 1);
    bottom->addWidget(evaluate);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addLayout(top);
    layout->addWidget(m_edit, 1);
    layout->addLayout(bottom);
    setFocusProxy(m_edit);
    connect(m_edit, &QPlainTextEdit::textChanged, this, &ScriptWidget::scriptChanged);
    connect(m_edit, &QPlainTextEdit::cursorPositionChanged, this, &ScriptWidget::userInteraction);
    connect(m_variables, QOverload<int>::of(&QComboBox::activated), this, &ScriptWidget::insertVariable);
    connect(evaluate, &QPushButton::clicked, this, &ScriptWidget::evaluateClicked);
    connect(expandButton, &QToolButton::clicked, this, &ScriptWidget::expand);
}

QString ScriptWidget::script() const
{
    return plainTextOf(*m_edit);
}

void ScriptWidget::setScript(const QString &text)
{
    if (text != script()) {
        const QSignalBlocker blocker(m_edit);
        m_edit->setPlainText(text);
    }
}

void ScriptWidget::setColumns(const ColumnList &columns)
{
    if (columns == m_columns && m_variables->count() > 0) {
        return;
    }
    m_columns = columns;
    m_variables->clear();
    m_variables->addItem(QStringLiteral("<select>"));
    QHash<QString, int> counts;
    for (const QString &name : columns.names) {
        ++counts[name];
    }
    for (int column = 0; column < columns.size(); ++column) {
        const QString name = columns.names.at(column);
        const bool ambiguous = counts.value(name) > 1;
        m_variables->addItem(ambiguous ? QStringLiteral("<ambiguous column name>") : name,
            ambiguous ? QString::number(column + 1) : name);
    }
}

void ScriptWidget::insertVariable(int index)
{
    if (index > 0) {
        m_edit->insertPlainText(QStringLiteral("$(%1)").arg(m_variables->itemData(index).toString()));
        m_variables->setCurrentIndex(0);
        m_edit->setFocus();
    }
}

void ScriptWidget::expand()
{
    QDialog dialog(this);
    dialog.setWindowTitle(QStringLiteral("Script"));
    auto *edit = new CodeEdit;
    new ScriptHighlighter(edit->document(), Icons::areDark());
    edit->setPlainText(script());
    edit->setTextCursor(QTextCursor(edit->document()));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto *layout = new QVBoxLayout(&dialog);
    layout->addWidget(edit);
    layout->addWidget(buttons);
    dialog.resize(expandedSize);
    if (dialog.exec() == QDialog::Accepted) {
        m_edit->setPlainText(plainTextOf(*edit));
    }
}
