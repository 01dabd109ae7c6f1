#include "data/similarkeys.h"

#include "data/textsimilarity.h"
#include "support/randomtext.h"

#include <gtest/gtest.h>

namespace {

/// What SimilarKeys finds, by asking keyCloseness() about every key.
struct PlainSearch
{
    explicit PlainSearch(const QVector<QStringList> &keys, const QStringList &key, int threshold)
    {
        for (int i = 0; i < keys.size(); ++i) {
            const int closeness = keyCloseness(keys.at(i), key, threshold);
            if (closeness >= threshold) {
                all.append({i, closeness});
                if (closeness > best.closeness) {
                    best = {i, closeness};
                }
            }
        }
    }
    QVector<SimilarKeys::Match> all;
    SimilarKeys::Match best;
};

void expectSame(const SimilarKeys::Match &found, const SimilarKeys::Match &expected)
{
    EXPECT_EQ(found.index, expected.index);
    EXPECT_EQ(found.closeness, expected.closeness);
}

TEST(SimilarKeys, FindsWhatAskingEachKeyFinds)
{
    for (const int textsPerKey : {1, 2, 3}) {
        for (const int threshold : {0, 40, 66, 80, 99, 100}) {
            SCOPED_TRACE(testing::Message() << textsPerKey << " texts at " << threshold << " %");
            RandomText texts(static_cast<quint32>(threshold));
            SimilarKeys keys(textsPerKey, threshold);
            QVector<QStringList> plain;
            for (int i = 0; i < 250; ++i) {
                QStringList key;
                for (int text = 0; text < textsPerKey; ++text) {
                    const bool fresh = plain.isEmpty() || texts.below(3) == 0;
                    key.append(fresh ? texts.text(i % 50 == 0 ? 300 : 14)
                                     : texts.edited(plain.at(texts.below(plain.size())).at(text), 4));
                }
                const PlainSearch expected(plain, key, threshold);
                EXPECT_EQ(keys.hasSimilar(key), !expected.all.isEmpty());
                expectSame(keys.closest(key), expected.best);
                const QVector<SimilarKeys::Match> all = keys.all(key);
                ASSERT_EQ(all.size(), expected.all.size());
                for (int match = 0; match < all.size(); ++match) {
                    expectSame(all.at(match), expected.all.at(match));
                }
                keys.append(key);
                plain.append(key);
            }
        }
    }
}

TEST(SimilarKeys, PrefersTheFirstOfEquallyCloseKeys)
{
    SimilarKeys keys(1, 50);
    keys.append({"abcdef"}); // longer, so found in another place than the next
    keys.append({"abxx"});
    keys.append({"abcy"});
    keys.append({"abcx"});
    expectSame(keys.closest({"abcd"}), {2, 75});
    expectSame(keys.closest({"zzzz"}), {});
    expectSame(keys.closest({"abcx"}), {3, 100});
}

TEST(SimilarKeys, TakesManyOfOneCharacter)
{
    SimilarKeys keys(1, 80);
    keys.append({QString(1000, 'a')});
    expectSame(keys.closest({QString(900, 'a')}), {0, 90});
    expectSame(keys.closest({QString(900, 'a') + QString(100, 'b')}), {0, 90});
}

} // namespace
