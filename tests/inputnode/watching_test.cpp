#include "graph/graphscene.h"
#include "graph/runcontrol.h"
#include "inputnode/inputnode.h"
#include "support/grid.h"
#include "support/waitfor.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class WatchingTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_scene.document()->watchDelays = {0, 0};
        m_scene.setAutoRunOn(false);
        write(path(), "a\n1\n");
        m_node = new InputNode(options());
        m_scene.insertNode(m_node, QPointF());
        m_node->process(false, false);
    }

    QString path() const { return m_dir.filePath("in.csv"); }

    InputOptions options() const
    {
        InputOptions options = InputOptions::forFile(path());
        options.watching = true;
        return options;
    }

    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    /// Whether the change makes the node stale; reads it again then.
    bool noticed()
    {
        if (!waitFor([this] { return m_node->state() == NodeState::NeedsProcessing; })) {
            return false;
        }
        m_node->process(false, false);
        return true;
    }

    QTemporaryDir m_dir;
    GraphScene m_scene;
    InputNode *m_node = nullptr;
};

} // namespace

TEST_F(WatchingTest, EachChangeMakesTheInputStale)
{
    write(path(), "a\n1\n2\n");
    ASSERT_TRUE(noticed()) << "written anew";
    EXPECT_EQ(m_node->rowCount(), 2);

    write(m_dir.filePath("next.csv"), "b\n7\n8\n9\n");
    ASSERT_EQ(std::rename(m_dir.filePath("next.csv").toLocal8Bit(), path().toLocal8Bit()), 0);
    ASSERT_TRUE(noticed()) << "replaced by another file";
    EXPECT_EQ(rows(m_node->datasetConst()), (QStringList{"7", "8", "9"}));

    write(path(), "b\n7\n");
    ASSERT_TRUE(noticed()) << "the one that came is watched as well";
    EXPECT_EQ(m_node->rowCount(), 1);

    QFile::remove(path());
    ASSERT_TRUE(noticed()) << "deleted";
    EXPECT_EQ(m_node->state(), NodeState::Failed);
    write(path(), "b\n5\n6\n");
    ASSERT_TRUE(noticed()) << "there again";
    EXPECT_EQ(m_node->rowCount(), 2);
}

TEST_F(WatchingTest, WithoutTheOptionNothingIsWatched)
{
    InputOptions unwatched = options();
    unwatched.watching = false;
    m_node->setOptions(unwatched);
    m_node->setState(NodeState::NeedsProcessing, false);
    m_node->process(false, false);
    InputNode watched(options());
    watched.process(false, false);
    QSignalSpy unwatchedSpy(m_node, &InputNode::sourceChanged);
    QSignalSpy watchedSpy(&watched, &InputNode::sourceChanged);
    write(path(), "a\n1\n2\n");
    ASSERT_TRUE(waitFor([&] { return watchedSpy.count() > 0; }));
    EXPECT_EQ(unwatchedSpy.count(), 0);
}

TEST_F(WatchingTest, AChangeDuringTheReadingIsNoticed)
{
    QSignalSpy spy(m_node, &InputNode::sourceChanged);
    QObject::connect(m_node, &Node::processed, m_node, [this] { QFile::resize(path(), 2); });
    m_node->setState(NodeState::NeedsProcessing, false);
    m_node->process(false, false);
    EXPECT_EQ(m_node->rowCount(), 1) << "what was there before";
    EXPECT_TRUE(waitFor([&] { return spy.count() > 0; }));
}

TEST_F(WatchingTest, ChangesWaitForTheEndOfARun)
{
    QSignalSpy spy(m_node, &InputNode::sourceChanged);
    int during = -1;
    RunControl::setKeepAlive([this, &spy, &during] {
        m_node->onWatchedChanged();
        QCoreApplication::processEvents();
        during = spy.count();
    });
    m_scene.runTransforms(RunMode::Everything, true);
    RunControl::reset();
    EXPECT_EQ(during, 0);
    EXPECT_TRUE(waitFor([&] { return spy.count() > 0; }));
}
