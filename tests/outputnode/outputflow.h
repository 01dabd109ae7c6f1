#pragma once

#include "fixedinput.h"
#include "graph/graphscene.h"
#include "outputnode/outputnode.h"
#include "support/grid.h"
#include "support/scopedsettings.h"

#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

/// A scene of one input and one output that writes into a folder of its own.
class Flow
{
public:
    explicit Flow(const Dataset &table = grid({"a|b", "1|x,y"}))
        : input(new FixedInput(table, "in", "/from/source.csv"))
        , output(new OutputNode(path("out.csv")))
    {
        scene.insertNode(input, QPointF());
        scene.insertNode(output, QPointF(300, 0));
        scene.insertConnection(input, output);
        changeOptions([](OutputOptions &o) { o.writeBom = false; });
    }

    QString path(const QString &name) const { return folder.filePath(name); }
    void put(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    std::string bytes(const QString &name = "out.csv") const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "no file";
    }
    void changeOptions(const std::function<void(OutputOptions &)> &change)
    {
        OutputOptions options = output->options();
        change(options);
        output->setOptions(options);
    }
    NodeState run()
    {
        output->setState(NodeState::NeedsProcessing, false);
        output->process(true, false);
        return output->state();
    }

    ScopedSettings settings;
    QTemporaryDir folder;
    GraphScene scene;
    FixedInput *input;
    OutputNode *output;
};
