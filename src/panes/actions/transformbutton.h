#pragma once

#include "panes/actions/panebutton.h"

class Transform;

/// A button of the left pane that adds one kind of transform.
class TransformButton : public PaneButton
{
    Q_OBJECT

public:
    explicit TransformButton(Transform &prototype, QWidget *parent = nullptr);

    Transform &prototype() const { return m_prototype; }
    /// Takes the picture for light or for dark windows.
    void updateIcon();
    /// For one that only a search reaches, since advanced transforms aren't shown.
    void setHiddenOtherwise(bool hidden, const QString &checkText);

signals:
    void hoverStatusChange(bool hovered);

protected:
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    Transform &m_prototype;
};
