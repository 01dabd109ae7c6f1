#pragma once

#include <QVector>
#include <QWidget>

class Parameter;
class ParameterWidget;
class QGridLayout;
class QLabel;
class QToolButton;
class TransformNode;

/// The options of a transform, each with its label and editor, in their order.
class ParameterForm : public QWidget
{
    Q_OBJECT

public:
    explicit ParameterForm(TransformNode &node, QWidget *parent = nullptr);

    /// Shows the values anew; builds the form again if the transform has other options by now.
    void refresh();
    /// The editor of the option with this key; null for an unknown one.
    QWidget *editor(const QString &key) const;

signals:
    void parameterValueChanged(bool startTimer);
    void processNow();
    void userInteraction();

private:
    struct Row
    {
        Parameter *parameter;
        QWidget *editor;
        ParameterWidget *mixin;
        QLabel *label; ///< null where the editor shows it
        QToolButton *saveDefault;
    };

    void build();
    void addRow(Parameter &parameter);
    QToolButton *addDefaultButton(Parameter &parameter);
    void onSaveDefault(const Parameter &parameter);
    void updateStates();
    void connectEditor(QWidget &editor);

    TransformNode &m_node;
    QList<Parameter *> m_parameters; ///< those that the form was built for
    QGridLayout *m_grid = nullptr;
    QVector<Row> m_rows;

private slots:
    void onParameterValueChanged(bool startTimer);
};
