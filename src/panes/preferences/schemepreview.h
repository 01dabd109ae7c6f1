#pragma once

#include "graph/colors.h"

#include <QGraphicsView>
#include <memory>

class GraphScene;

/// A small flow in the colours of a scheme.
class SchemePreview : public QGraphicsView
{
    Q_OBJECT

public:
    explicit SchemePreview(QWidget *parent = nullptr);
    ~SchemePreview() override;

    void setColors(ColorScheme scheme, const CustomColors &custom);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    Colors m_colors;
    std::unique_ptr<GraphScene> m_scene;
};
