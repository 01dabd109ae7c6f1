#include "inputs/sourcereader.h"

#include "data/dataset.h"
#include "graph/runcontrol.h"
#include "inputs/textsource.h"
#include "support/printers.h"

#include <QBuffer>
#include <gtest/gtest.h>
#include <new>

namespace {

/// Gives the beginning of a text and then an error.
class FailingDevice : public QIODevice
{
public:
    FailingDevice() { open(QIODevice::ReadOnly | QIODevice::Unbuffered); }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        if (m_given || maxSize < 4) {
            return -1;
        }
        m_given = true;
        std::memcpy(data, "a,b\n", 4);
        return 4;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    bool m_given = false;
};

} // namespace

TEST(SourceReader, MemoryThatRunsOutIsToldAndLeavesNothing)
{
    SourceReader reader{InputOptions()};
    reader.setProgress([](double) { throw std::bad_alloc(); });
    Dataset dataset;
    EXPECT_FALSE(reader.readText("a,b\n", &dataset));
    EXPECT_FALSE(dataset.hasColumns());
    EXPECT_EQ(reader.warnings(), QStringList("'Clipboard' is too big for Quillmere to read"));
}

TEST(SourceReader, TheMemoryCeilingIsNoFailureToRead)
{
    SourceReader reader{InputOptions()};
    reader.setProgress([](double) { throw MaxMemoryException(); });
    Dataset dataset;
    EXPECT_THROW(reader.readText("a,b\n", &dataset), MaxMemoryException);
}

TEST(SourceReader, ADeviceThatFailsInTheMiddleIsTold)
{
    FailingDevice device;
    TextSource source(&device, TextSource::automatic());
    char bytes[64];
    EXPECT_EQ(source.read(bytes, 64), 4);
    EXPECT_EQ(source.read(bytes, 64), 0);
    EXPECT_TRUE(source.failed());
}
