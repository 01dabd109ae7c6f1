#include "support/grid.h"
#include "support/runon.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

TEST(TransformHash, WritesDigests)
{
    struct HashCase
    {
        const char *algorithm;
        QString cell;
        const char *digest;
    };
    const HashCase cases[] = {
        {"SHA1", "abc", "a9993e364706816aba3e25717850c26c9cd0d89d"},
        {"SHA-256", "é", "4a99557e4033c3539de2eb65472017cad5f9557f7a0625a09f1c3f6e2ba69c4c"},
        {"SHA-512", "abc",
            "ddaf35a193617abacc417349ae20413112e6fa4e89a97ea20a9eeee64b55d39a2192992a274fc1a836ba3c23a3feebbd454d442364"
            "3ce80e2a9ac94fa54ca49f"},
        {"SHA3-256", "abc", "3a985da74fe225b2045c172d6bd390bd855f086e3e9d525b46bfe24511431532"},
        {"SHA3-512", "",
            "a69f73cca23a9ac5c8b567dc185a756e97c982164fe25859e0d1dcc1475c80a615b2123af1f5f94c11e3e9402c3ac558f500199d95"
            "b6d3e301758586281dcd26"},
        {"Keccak-256", "", "c5d2460186f7233c927e7db2dcc703c0e500b653ca82273b7bfad8045d85a470"},
        {"Keccak-512", "",
            "0eab42de4c3ceb9235fc91acffe746b29c29a8c366b7c60e4e67c466f36a4304c00fa9caf9d87976ba469bcbe06713b435f091ef27"
            "69fb160cdab33d3670680e"},
        {"MD5", "", "d41d8cd98f00b204e9800998ecf8427e"},
    };
    for (const HashCase &c : cases) {
        SCOPED_TRACE(c.algorithm);
        EXPECT_EQ(rows(runOn("Hash", {{"Columns", 1}, {"Hashing", c.algorithm}}, plainGrid({c.cell}))),
            QStringList(c.digest));
    }
}

TEST(TransformHash, SignsWithASecret)
{
    struct SecretCase
    {
        const char *what;
        QString secret;
        QString cell;
        const char *digest;
    };
    const SecretCase cases[] = {
        {"a published example", "Jefe", "what do ya want for nothing?", "750c783e6ab0b503eaa86e310a5db738"},
        {"an empty secret is an empty key", "", "abc", "dd2701993d29fdd0b032c233cec63403"},
        {"the secret is taken as Latin-1", "clé", "naïve", "d10c577ad6dc9d298cfcabb7e787a54d"},
        {"64 characters are a key", QString(64, 'k'), "x", "f38420ee2e6c7cd5d9977bffba49d984"},
        {"more are hashed first", QString(65, 'k'), "x", "35d6a3481580c58aab0efcc7f04c5e59"},
        {"by their UTF-8 bytes", QString(65, QChar(0xE9)), "x", "481909f6801c62dd17439333314c1a50"},
    };
    for (const SecretCase &c : cases) {
        SCOPED_TRACE(c.what);
        const OptionSettings options{{"Hashing", "HMAC-MD5"}, {"Secret", c.secret}};
        EXPECT_EQ(rows(runOn("Hash", options, column(c.cell))), QStringList(c.digest));
    }
}

TEST(TransformHash, TellsWhatHappened)
{
    using States = QList<QPair<QString, bool>>;
    const TransformRun unset = runTransform("Hash", {}, {column("a")});
    EXPECT_EQ(unset.resultText(), "No changes");
    EXPECT_EQ(unset.warnings(), QStringList("1 option not set ('Algorithm')"));
    EXPECT_EQ(unset.transform->parameterStates(), (States{{"Secret", false}}));
    const TransformRun run = runTransform("Hash", {{"Hashing", "HMAC-MD5"}}, {column({"a", ""})});
    EXPECT_EQ(run.resultText(), "2 changed, 0 unchanged") << "an empty cell has a digest too";
    EXPECT_EQ(run.transform->parameterStates(), (States{{"Secret", true}}));
}
