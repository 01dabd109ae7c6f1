#include "inputs/vcardreader.h"

#include "inputs/textsource.h"
#include "support/grid.h"

#include <gtest/gtest.h>

namespace {

struct Reading
{
    QStringList header;
    QStringList rows;
    QStringList infos;
    QStringList warnings;
};

Reading read(const QString &text, const RowRules &rules)
{
    TextSource source(text);
    VCardReader reader(rules, &source);
    Dataset dataset;
    reader.read(&dataset);
    return {dataset.header(), rows(dataset), reader.infos(), reader.warnings()};
}

} // namespace

TEST(VCardReader, MakesARowOfEachRecord)
{
    const RowRules usual;
    const RowRules raw{false, false, false, 0};
    const RowRules skipping{true, true, true, 5};
    struct CardCase
    {
        const char *what;
        QString text;
        RowRules rules;
        QStringList header;
        QStringList rows;
        QStringList infos;
        QStringList warnings;
    };
    const CardCase cases[] = {
        {"keys become columns in order of first sight",
            "BEGIN:VCARD\nVERSION:3.0\nFN:Ann\nTEL:1\nEND:VCARD\nBEGIN:VCARD\nEMAIL:b@c\nFN:Bob\nEND:VCARD\n", usual,
            {"FN", "TEL", "EMAIL"}, {"Ann|1|", "Bob||b@c"}, {}, {}},
        {"any line end", "BEGIN:VCARD\r\nFN:Ann\rTEL:1\r\nEND:VCARD", usual, {"FN", "TEL"}, {"Ann|1"}, {}, {}},
        {"folded lines are one", "BEGIN:VCARD\nNOTE:one\n  two\n\tthree\nEND:VCARD", usual, {"NOTE"}, {"one twothree"},
            {}, {}},
        {"with carriage returns too", "BEGIN:VCARD\r\nNOTE:one\r\n  two\r\nEND:VCARD\r\n", usual, {"NOTE"}, {"one two"},
            {}, {}},
        {"a key may be folded", "BEGIN:VCARD\nNO\n TE:x\nEND:VCARD", usual, {"NOTE"}, {"x"}, {}, {}},
        {"the value begins behind the first colon", "BEGIN:VCARD\n URL : http://x \nEND:VCARD", usual, {}, {}, {},
            {"vCard parsing error: 0 'BEGIN:VCARD' and 1 'END:VCARD'"}},
        {"keys are trimmed, values on request", "BEGIN:VCARD\nURL : http://x \t\nEND:VCARD", raw, {"URL"},
            {" http://x \t"}, {}, {}},
        {"lines without a colon and outside records are passed over", "FN:no\nBEGIN:VCARD\nFN\nN:x\nEND:VCARD\nN:y\n",
            usual, {"N"}, {"x"}, {}, {}},
        {"the last of equal keys counts", "BEGIN:VCARD\nN:a\nN:b\nEND:VCARD", usual, {"N"}, {"b"}, {}, {}},
        {"a record without an end stays, and is told", "BEGIN:VCARD\nN:a\nBEGIN:VCARD\nN:b", usual, {"N"}, {"a", "b"},
            {}, {"vCard parsing error: 2 'BEGIN:VCARD' and 0 'END:VCARD'"}},
        {"records without values go and are counted", "BEGIN:VCARD\nEND:VCARD\nBEGIN:VCARD\nN: \nEND:VCARD", usual,
            {"N"}, {}, {"2 empty row(s) ignored"}, {}},
        {"or stay", "BEGIN:VCARD\nEND:VCARD\nBEGIN:VCARD\nN: \nEND:VCARD", raw, {"N"}, {"", " "}, {}, {}},
        {"rows to ignore don't count", "BEGIN:VCARD\nN:a\nEND:VCARD", skipping, {"N"}, {"a"}, {}, {}},
        {"nothing is no table", "", usual, {}, {}, {}, {}},
        {"nor is any other text", QString::fromLatin1("\0:\n\n:::\r\r", 9), usual, {}, {}, {}, {}},
    };
    for (const CardCase &c : cases) {
        SCOPED_TRACE(c.what);
        const Reading reading = read(c.text, c.rules);
        EXPECT_EQ(reading.header, c.header);
        EXPECT_EQ(reading.rows, c.rows);
        EXPECT_EQ(reading.infos, c.infos);
        EXPECT_EQ(reading.warnings, c.warnings);
    }
}

TEST(VCardReader, ATableThatCannotBeHeldIsRefused)
{
    QString text;
    for (int i = 0; i < 70000; ++i) {
        text += "BEGIN:VCARD\nEND:VCARD\n";
    }
    text += "BEGIN:VCARD\n";
    for (int i = 0; i < 70000; ++i) {
        text += QStringLiteral("K%1:x\n").arg(i);
    }
    EXPECT_THROW(read(text, {true, true, false, 0}), std::bad_alloc);
}
