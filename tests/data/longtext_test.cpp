#include "data/longtext.h"

#include <climits>
#include <gtest/gtest.h>
#include <stdexcept>

TEST(LongText, RefusesWhatNoCellHolds)
{
    TextBuffer bytes;
    LongText::append(bytes, "abc", 3);
    EXPECT_THROW(LongText::append(bytes, "x", INT_MAX), std::length_error);
    EXPECT_THROW(LongText::append(bytes, "x", LongText::mostBytes - 2), std::length_error);
    EXPECT_EQ(QByteArray(bytes.constData(), bytes.size()), "abc");

    QString text(1 << 20, 'a');
    EXPECT_THROW(LongText::replace(text, "A", QString(1100, 'b'), Qt::CaseInsensitive), std::length_error);
    EXPECT_EQ(text.size(), 1 << 20);
    // Most places could hold what is looked for, but few do.
    text[7] = 'x';
    LongText::replace(text, "x", QString(1100, 'b'), Qt::CaseSensitive);
    EXPECT_EQ(text.size(), (1 << 20) + 1099);
}
