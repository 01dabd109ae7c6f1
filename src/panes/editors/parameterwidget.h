#pragma once

#include "graph/undostep.h"

#include <QPointer>
#include <QString>
#include <QVariant>

class Node;
class Parameter;
class QWidget;

/// What all editors of a transform's options share, beside the widget that each of them is: the option, writing back
/// what was edited, and the mark of an option that still has to be set.
///
/// Each editor also has the signals `parameterValueChanged(bool startTimer)`, `processNow()` and `userInteraction()`.
class ParameterWidget
{
public:
    /// The option outlives the editor; `node` is the item that it belongs to.
    ParameterWidget(Parameter &parameter, Node &node);
    virtual ~ParameterWidget();
    ParameterWidget(const ParameterWidget &) = delete;
    ParameterWidget &operator=(const ParameterWidget &) = delete;

    Parameter *parameter() const { return m_parameter; }
    /// The item; null once it is gone.
    Node *node() const;
    QString name() const;
    bool isUnset() const;
    /// Marks the editor as one whose value makes no sense, with the reason in its tool tip; empty takes the mark away.
    void setFault(const QString &reason);
    /// Shows the option's value without telling of an edit.
    virtual void refresh() = 0;
    /// What the editor shows, in the form that the option has it.
    virtual QVariant value() const = 0;

protected:
    /// Writes the editor's value into the option, as one step of undo; what is typed without a pause is one. False when
    /// that is what it has already.
    bool commit(UndoStep::Kind kind = UndoStep::Single);
    /// Sets tool tip and accessible name by the option.
    void describe(QWidget &widget) const;
    /// A frame round an option that is needed and not set; called after the widget has painted itself.
    void paintUnsetFrame(QWidget &widget) const;

private:
    Parameter *m_parameter;
    const QPointer<Node> m_node;
    QString m_fault;
};
