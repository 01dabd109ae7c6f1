#pragma once

#include "graph/ionode.h"
#include "transforms/frame/transform.h"

#include <functional>

/// An input with a fixed table, which can be told to fail.
class FakeInput final : public IONode
{
public:
    explicit FakeInput(const Dataset &table = Dataset(), int id = -1);

    int type() const override { return ItemType::Input; }
    void setTable(const Dataset &table) { m_table = table; }
    void setFailing(bool on) { m_failing = on; }
    int runs() const { return m_runs; }

    QString name() const override { return QStringLiteral("data.csv"); }
    QString description() const override { return QStringLiteral("Input from File."); }
    QString helpPage() const override { return QStringLiteral("Input_data"); }
    QString resultText() const override;
    int maxInputs() const override { return 0; }
    int maxOutputs() const override { return unlimited; }
    bool canProcess() const override { return true; }
    InfoRows kindRows() const override { return {}; }
    InfoRows optionRows() const override { return {}; }
    QColor borderColor() const override { return Qt::black; }
    QColor boxColor() const override { return Qt::white; }
    QColor textColor() const override { return Qt::black; }

private:
    bool produce() override;
    Node *cloneKind() const override;

    Dataset m_table;
    bool m_failing = false;
    int m_runs = 0;
};

/// An output that only takes the table of its input.
class FakeOutput final : public IONode
{
public:
    explicit FakeOutput(int id = -1)
        : IONode(id)
    {
    }

    int type() const override { return ItemType::Output; }
    using IONode::warnOfDuplicateHeaderNames;

    QString name() const override { return QStringLiteral("out.csv"); }
    QString description() const override { return QStringLiteral("Output to File."); }
    QString helpPage() const override { return QStringLiteral("Output_data"); }
    QString resultText() const override { return QStringLiteral("Written"); }
    int maxInputs() const override { return 1; }
    int maxOutputs() const override { return 0; }
    bool canProcess() const override { return upstreamAllProcessed(); }
    void refreshColumnOptions() override { ++m_refreshes; }
    int refreshes() const { return m_refreshes; }
    InfoRows kindRows() const override { return {}; }
    InfoRows optionRows() const override { return {}; }
    QColor borderColor() const override { return Qt::black; }
    QColor boxColor() const override { return Qt::white; }
    QColor textColor() const override { return Qt::black; }

private:
    bool produce() override;
    Node *cloneKind() const override { return new FakeOutput(id()); }

    int m_refreshes = 0;
};

/// A transform that hands on its first input's table and does what a test wants meanwhile. `typeName` decides how many
/// inputs it takes.
class ProbeTransform final : public Transform
{
public:
    explicit ProbeTransform(const char *typeName = "Transpose")
        : Transform(typeName)
    {
    }

    Dataset run(const QList<DataSource *> &inputs, bool *hasIssues) override;

    std::function<void()> during;
    bool failing = false;
    bool addsColumn = false;
    int runs = 0;
    QList<int> inputIds;
    using Transform::addWarning;
};
