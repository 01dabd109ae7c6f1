#include "spreadsheet/texttable.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>
#include <string>
#include <unordered_map>

using namespace spreadsheet;

namespace {

TEST(TextTable, GivesEqualTextsOneNumber)
{
    TextTable table;
    EXPECT_EQ(table.append("a"), 0u);
    EXPECT_EQ(table.append("b"), 1u);
    EXPECT_EQ(table.append("a"), 2u) << "what a file repeats keeps its number";
    EXPECT_EQ(table.add("a"), 0u);
    EXPECT_EQ(table.add(""), 3u);
    EXPECT_EQ(table.append("c"), 4u);
    EXPECT_EQ(table.add("c"), 4u) << "one that was appended since then";
    EXPECT_EQ(table.add(std::string_view("a\0", 2)), 5u) << "a NUL is a character";
    EXPECT_EQ(table.add(""), 3u);
    EXPECT_EQ(table.size(), 6u);
    EXPECT_EQ(table.byteCount(), 6);
    table.clear();
    EXPECT_EQ(table.size(), 0u);
    EXPECT_EQ(table.add("b"), 0u);
}

TEST(TextTable, KeepsTextsOfAllSizesApart)
{
    // Chunks fill up, and long texts get chunks of their own, first, last and in between.
    QRandomGenerator random(3);
    TextTable table;
    std::vector<std::string> texts;
    std::unordered_map<std::string, quint32> numbers;
    for (int i = 0; i < 3000; ++i) {
        const int longest = i < 2 || random.bounded(100) == 0 ? 300000 : 400;
        const std::string text(
            static_cast<size_t>(random.bounded(longest)), static_cast<char>('a' + random.bounded(26)));
        if (random.bounded(2) == 0) {
            ASSERT_EQ(table.append(text), texts.size());
            numbers.emplace(text, texts.size());
            texts.push_back(text);
            continue;
        }
        const auto known = numbers.find(text);
        const quint32 number = table.add(text);
        ASSERT_EQ(number, known == numbers.end() ? texts.size() : known->second);
        if (known == numbers.end()) {
            numbers.emplace(text, number);
            texts.push_back(text);
        }
    }
    for (size_t i = 0; i < texts.size(); ++i) {
        ASSERT_EQ(table.text(static_cast<quint32>(i)), texts[i]);
    }
}

} // namespace
