#include "panes/items/parameterform.h"

#include "graph/transformnode.h"
#include "panes/editors/parameterwidget.h"
#include "panes/editors/parameterwidgets.h"
#include "panes/widgets/staricon.h"
#include "settings/settings.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QToolButton>

namespace {

enum Column { LabelColumn, EditorColumn, DefaultColumn };

QString labelText(const QString &label)
{
    QString text = label.trimmed();
    return text.replace(QLatin1Char('&'), QStringLiteral("&&")) + QLatin1Char(':');
}

} // namespace

ParameterForm::ParameterForm(TransformNode &node, QWidget *parent)
    : QWidget(parent)
    , m_node(node)
{
    build();
}

void ParameterForm::build()
{
    for (const Row &row : m_rows) {
        delete row.editor;
        delete row.label;
        delete row.saveDefault;
    }
    m_rows.clear();
    delete m_grid;
    m_grid = new QGridLayout(this);
    m_grid->setContentsMargins(0, 0, 4, 0);
    m_grid->setHorizontalSpacing(8);
    m_grid->setVerticalSpacing(4);
    m_grid->setColumnStretch(EditorColumn, 1);
    m_parameters = m_node.transform()->parameters();
    bool hasTall = false;
    for (Parameter *parameter : qAsConst(m_parameters)) {
        addRow(*parameter);
        hasTall = hasTall || ParameterWidgets::isTall(*parameter);
    }
    if (!hasTall) {
        m_grid->setRowStretch(m_grid->rowCount(), 1);
    }
    updateStates();
}

void ParameterForm::addRow(Parameter &parameter)
{
    QWidget *editor = ParameterWidgets::make(parameter, m_node);
    if (!editor) {
        return;
    }
    const int row = m_grid->rowCount();
    const bool isTall = ParameterWidgets::isTall(parameter);
    const bool showsLabel = qobject_cast<QCheckBox *>(editor) || parameter.kind() == Parameter::Label;
    QLabel *label = nullptr;
    if (!showsLabel) {
        label = new QLabel(labelText(parameter.label()));
        label->setToolTip(parameter.toolTip());
        label->setBuddy(editor);
    }
    if (isTall) {
        if (label) {
            m_grid->addWidget(label, row, LabelColumn, 1, 2);
        }
        m_grid->addWidget(editor, row + 1, LabelColumn, 1, 2);
        m_grid->setRowStretch(row + 1, 1);
    } else if (parameter.kind() == Parameter::Label) {
        m_grid->addWidget(editor, row, LabelColumn, 1, 2);
    } else {
        if (label) {
            m_grid->addWidget(label, row, LabelColumn);
        }
        m_grid->addWidget(editor, row, EditorColumn);
    }
    QToolButton *saveDefault = parameter.hasUserDefault() ? addDefaultButton(parameter) : nullptr;
    if (saveDefault) {
        m_grid->addWidget(saveDefault, row, DefaultColumn);
    }
    m_rows.append({&parameter, editor, dynamic_cast<ParameterWidget *>(editor), label, saveDefault});
    connectEditor(*editor);
}

void ParameterForm::connectEditor(QWidget &editor)
{
    // The signals are those of many classes, of which none derives from the other.
    connect(&editor, SIGNAL(parameterValueChanged(bool)), this, SLOT(onParameterValueChanged(bool)));
    connect(&editor, SIGNAL(processNow()), this, SIGNAL(processNow()));
    connect(&editor, SIGNAL(userInteraction()), this, SIGNAL(userInteraction()));
}

QToolButton *ParameterForm::addDefaultButton(Parameter &parameter)
{
    auto *button = new QToolButton;
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, [this, &parameter] { onSaveDefault(parameter); });
    return button;
}

void ParameterForm::onSaveDefault(const Parameter &parameter)
{
    Settings &settings = Settings::current();
    const QString type = m_node.transform()->typeName();
    if (settings.hasTransformDefault(type, parameter.name())
        && settings.transformDefault(type, parameter.name()) == parameter.value()) {
        settings.removeTransformDefault(type, parameter.name());
    } else {
        m_node.transform()->saveUserDefault(parameter);
    }
    updateStates();
}

void ParameterForm::updateStates()
{
    const Transform &transform = *m_node.transform();
    QHash<QString, bool> states;
    for (const QPair<QString, bool> &state : transform.parameterStates()) {
        states.insert(state.first, state.second);
    }
    const Settings &settings = Settings::current();
    for (const Row &row : m_rows) {
        const bool active = states.value(row.parameter->name(), true);
        row.editor->setEnabled(active);
        if (row.mixin) {
            row.mixin->setFault(transform.optionFault(row.parameter->name()));
        }
        if (row.label) {
            row.label->setEnabled(active);
        }
        if (row.saveDefault) {
            const QString key = row.parameter->name();
            const bool isDefault = settings.hasTransformDefault(transform.typeName(), key)
                                   && settings.transformDefault(transform.typeName(), key) == row.parameter->value();
            const QString label = row.parameter->label();
            row.saveDefault->setEnabled(active);
            row.saveDefault->setIcon(starIcon(isDefault, *this));
            row.saveDefault->setToolTip(
                isDefault ? QStringLiteral("New '%1' items start with this value. Click to forget it.")
                                .arg(transform.displayName())
                          : QStringLiteral("Save as default for new '%1' items.").arg(transform.displayName()));
            row.saveDefault->setAccessibleName(isDefault ? QStringLiteral("Forget default of '%1'").arg(label)
                                                         : QStringLiteral("Save '%1' as default").arg(label));
        }
    }
}

void ParameterForm::refresh()
{
    if (m_node.transform()->parameters() != m_parameters) {
        build();
        return;
    }
    for (const Row &row : m_rows) {
        if (row.mixin) {
            row.mixin->refresh();
        }
    }
    updateStates();
}

QWidget *ParameterForm::editor(const QString &key) const
{
    for (const Row &row : m_rows) {
        if (row.parameter->name() == key) {
            return row.editor;
        }
    }
    return nullptr;
}

void ParameterForm::onParameterValueChanged(bool startTimer)
{
    updateStates();
    emit parameterValueChanged(startTimer);
}
