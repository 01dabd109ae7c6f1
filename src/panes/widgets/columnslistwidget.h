#pragma once

#include <QListView>
#include <functional>

/// The list of check marks of a MultipleColumnsWidget: Space checks all that is selected.
class ColumnsListWidget : public QListView
{
    Q_OBJECT

public:
    explicit ColumnsListWidget(QWidget *parent = nullptr);

    /// What is painted over the list, such as the mark of an option that isn't set.
    void setOverlay(std::function<void(QWidget &viewport)> paint) { m_paintOverlay = std::move(paint); }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    std::function<void(QWidget &)> m_paintOverlay;
};
