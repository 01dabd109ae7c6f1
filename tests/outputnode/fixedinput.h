#pragma once

#include "graph/ionode.h"

/// An input with a table that a test gives it.
class FixedInput final : public IONode
{
public:
    explicit FixedInput(const Dataset &table, const QString &alias = QString(), const QString &path = QString(),
        const QString &sheet = QString(), int medium = Medium::File)
    {
        setAlias(alias);
        setPath(path, sheet);
        setMedium(medium);
        setTable(table);
    }

    void setTable(const Dataset &table)
    {
        m_table = table;
        m_dataset = table;
        m_dataset.assignColumnIds(id());
        setState(NodeState::Processed, true);
    }

    int type() const override { return ItemType::Input; }
    QString name() const override { return QString(); }
    QString description() const override { return QString(); }
    QString helpPage() const override { return QString(); }
    QString resultText() const override { return QString(); }
    int maxInputs() const override { return 0; }
    int maxOutputs() const override { return unlimited; }
    bool canProcess() const override { return true; }
    InfoRows kindRows() const override { return {}; }
    InfoRows optionRows() const override { return {}; }
    QColor borderColor() const override { return QColor(); }
    QColor boxColor() const override { return QColor(); }
    QColor textColor() const override { return QColor(); }

private:
    bool produce() override
    {
        m_dataset = m_table;
        return true;
    }
    Node *cloneKind() const override { return new FixedInput(m_table); }

    Dataset m_table;
};
