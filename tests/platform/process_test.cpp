#include "platform/console.h"
#include "platform/display.h"
#include "platform/instances.h"
#include "platform/memory.h"

#include <QCoreApplication>
#include <QProcess>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/mman.h>

namespace {

constexpr size_t megabyte = 1024 * 1024;

TEST(Memory, FollowsWhatTheProcessTouches)
{
    const double before = platform::privateMemoryGiB();
    ASSERT_GT(before, 0.0);
    EXPECT_LT(before, 8.0);
    const size_t size = 256 * megabyte;
    void *block = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(block, MAP_FAILED);
    EXPECT_LT(platform::privateMemoryGiB() - before, 0.05) << "reserved memory isn't in use yet";
    std::memset(block, 1, size);
    EXPECT_NEAR(platform::privateMemoryGiB() - before, 0.25, 0.05);
    ASSERT_EQ(::munmap(block, size), 0);
    EXPECT_NEAR(platform::privateMemoryGiB(), before, 0.05);
}

TEST(Instances, CountsProcessesOfThisProgram)
{
    const int before = platform::runningInstances();
    ASSERT_GE(before, 1);
    QProcess other;
    // A second run of this test program that waits in its first line of output for us to read on.
    other.start(QCoreApplication::applicationFilePath(),
        {QStringLiteral("--gtest_filter=Instances.DISABLED_Waits"), QStringLiteral("--gtest_also_run_disabled_tests")});
    ASSERT_TRUE(other.waitForStarted());
    ASSERT_TRUE(other.waitForReadyRead());
    EXPECT_EQ(platform::runningInstances(), before + 1);
    other.closeWriteChannel();
    ASSERT_TRUE(other.waitForFinished());
    EXPECT_EQ(platform::runningInstances(), before);
}

// Helper of the test above: lives until its standard input ends.
TEST(Instances, DISABLED_Waits)
{
    char c;
    while (std::fread(&c, 1, 1, stdin) == 1) {
    }
}

TEST(Console, WritesUtf8WhateverTheLocale)
{
    testing::internal::CaptureStderr();
    platform::writeConsoleLine(QStringLiteral("caf\u00e9 \u4e2d"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "caf\xc3\xa9 \xe4\xb8\xad\n");
}

} // namespace

TEST(Display, IsOneThatAnswers)
{
    const QByteArray before = qgetenv("DISPLAY");
    const QByteArray waylandBefore = qgetenv("WAYLAND_DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
    for (const char *none : {"", ":987654", "nonsense", "unix:987654.0"}) {
        qputenv("DISPLAY", none);
        EXPECT_FALSE(platform::hasDisplay()) << none;
    }
    qputenv("DISPLAY", "other-host:0");
    EXPECT_TRUE(platform::hasDisplay()) << "only opening it tells";
    qputenv("DISPLAY", before);
    qputenv("WAYLAND_DISPLAY", waylandBefore);
}
