#pragma once

#include "graph/node.h"

#include <memory>

class Transform;

/// A transform on the canvas.
class TransformNode final : public Node
{
    Q_OBJECT

public:
    enum { Type = ItemType::Transform };

    /// Takes ownership of `transform`.
    explicit TransformNode(Transform *transform, int id = -1);
    ~TransformNode() override;

    int type() const override { return Type; }
    Transform *transform() const { return m_transform.get(); }
    int minInputs() const;
    /// Hands the inputs to the transform; with `connected`, lost columns may be looked up by name, here and downstream.
    void setInputsChanged(bool connected);
    /// Asks the transform whether the order of its inputs has changed, and rebinds them.
    bool updateInputOrder();

    QString name() const override;
    QString typeName() const override;
    QString description() const override;
    QString helpPage() const override;
    QString resultText() const override;
    QStringList warnings() const override;
    QStringList infos() const override;
    int maxInputs() const override;
    int maxOutputs() const override { return unlimited; }
    bool hasInputPreview() const override { return true; }
    bool canProcess() const override { return upstreamAllProcessed(); }
    void beforeProcess() override;
    void refreshColumnOptions() override;
    void takeColumnsAsText(const Node &original) override;
    void remapColumnIds(const QHash<ColumnId, ColumnId> &map) override;
    int columnOptionsInUse(const Node *source) const override;
    void removeConnection(Connection *connection) override;
    InfoRows kindRows() const override;
    InfoRows optionRows() const override;
    QVariantList summaryRow() const override;
    QString imageName() const override;
    QColor borderColor() const override;
    QColor boxColor() const override;
    QColor textColor() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    void allowReconnect() override;
    void prepareRun() override;
    bool produce() override;
    Node *cloneKind() const override;
    /// Too few or too many.
    void warnOfWrongInputs(int count);
    void paintChanges(QPainter *painter) const;

    std::unique_ptr<Transform> m_transform;
};
