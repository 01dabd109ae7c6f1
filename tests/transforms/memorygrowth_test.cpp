#include "support/printers.h"
#include "support/runon.h"

#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

// What a run takes is counted where operator new gives it; cells themselves come from elsewhere, as Qt's containers do.

static std::atomic<qint64> bytesTaken{0};

#ifdef __SANITIZE_ADDRESS__
constexpr bool isCounting = false; // the sanitizer has operators of its own, which must stay paired
#else
constexpr bool isCounting = true;

void *operator new(std::size_t size)
{
    bytesTaken += static_cast<qint64>(size);
    if (void *memory = std::malloc(size > 0 ? size : 1)) {
        return memory;
    }
    throw std::bad_alloc();
}

void *operator new[](std::size_t size)
{
    return operator new(size);
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory, std::size_t) noexcept
{
    std::free(memory);
}
#endif

namespace {

Dataset shortColumns(int count, const QString &text)
{
    Dataset dataset;
    dataset.setColumnCount(count);
    for (int row = 0; row < 3; ++row) {
        QStringList cells;
        for (int column = 0; column < count; ++column) {
            cells.append(text + QString::number(row));
        }
        dataset.appendRow(cells);
    }
    return dataset;
}

} // namespace

TEST(MemoryGrowth, ShortColumnsCostLittleOfTheirOwn)
{
    if (!isCounting) {
        GTEST_SKIP() << "nothing is counted under a sanitizer";
    }
    const struct
    {
        const char *what;
        const char *kind;
        const char *text;
    } cases[] = {
        {"a rule for texts, with its memo", "Case", "A Text That No Cell Can Hold "},
        {"a rule whose results are longer than what cells hold", "Pad", "1234567"},
        {"a conversion of numbers, with its memo", "Num_Format", "1234567.1"},
    };
    constexpr int columnCount = 1000;
    QVariantList all;
    for (int column = 1; column <= columnCount; ++column) {
        all.append(column);
    }
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const Dataset input = shortColumns(columnCount, QString::fromLatin1(c.text));
        const qint64 before = bytesTaken;
        const TransformRun run = runTransform(QString::fromLatin1(c.kind), {{"Columns", all}}, {input});
        EXPECT_LT((bytesTaken - before) / columnCount, 4000) << "bytes a column of three cells";
        EXPECT_NE(run.resultText(), "No changes");
    }
}
