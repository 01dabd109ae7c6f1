#pragma once

class Node;
class Parameter;
class QWidget;

/// Makes the editors of options by their kinds.
namespace ParameterWidgets {

/// The editor for `parameter` of `node`, a ParameterWidget; null for a kind that has none.
QWidget *make(Parameter &parameter, Node &node, QWidget *parent = nullptr);
/// Editors with lists or tables of their own: they take the whole width of a panel and share its height.
bool isTall(const Parameter &parameter);

} // namespace ParameterWidgets
