#include "document/sampledocument.h"
#include "graph/graphscene.h"

#include <gtest/gtest.h>

namespace {

/// A document as an old version wrote it, and what is in the file when this version opens and saves it.
struct OldDocument
{
    const char *what;
    int version;
    QByteArray body;
    std::vector<QByteArray> saved;
    std::vector<QByteArray> gone;
};

QByteArray transform(const char *name, const QByteArray &parameters)
{
    return QByteArray("<transforms><transform id=\"3\" name=\"") + name + "\" pos=\"-239.4^119.7\"><parameters>"
           + parameters + "</parameters></transform></transforms>";
}

QByteArray parameter(const char *name, const QByteArray &value)
{
    return QByteArray("<parameter name=\"") + name + "\" type=\"0\" value=\"" + value + "\"/>";
}

const QByteArray input =
    "<inputs><input id=\"1\" path=\"%2Fd%2Fa.csv\" pos=\"10^20\" fixed_widths=\"3^4^5\"/></inputs>";
const QByteArray joined = "<connections><connection start_id=\"1\" end_id=\"3\"/></connections>";

} // namespace

TEST(OldDocuments, AreSavedInTheFormOfToday)
{
    const OldDocument documents[] = {
        {"version 40: carets part lists, places have one form, operators had other numbers", 40,
            input + transform("Filter", parameter("Columns", "1^1^2^14^cancelled^0^15^x")) + joined
                + "<outputs><output id=\"4\" path=\"%2Fd%2Fa.tsv\"/></outputs>",
            {"version value=\"86\"", "pos_v12=\"10|20\"", "fixed_widths=\"3|4|5\"",
                "value=\"1|1|2|19|cancelled|0|20|x\"", "alias=\"a\"", "alias=\"a1\"",
                "file_comment=\"%20File%20created%20by%20Quillmere%20%7Bversion%7D%20at%20%7Bdate%7D%20%7Btime%7D%"
                "20\""},
            {"value=\"40\""}},
        {"version 57: operators have the numbers of today", 57,
            input + transform("Filter", parameter("Columns", "1|0|2|14|x")) + joined, {"1|0|2|14|x\""}, {}},
        {"version 60: one switch for hidden columns and rows", 60,
            "<inputs><input id=\"1\" ignore_excel_hidden=\"1\"/></inputs>",
            {"ignore_excel_hidden_cols=\"1\"", "ignore_excel_hidden_rows=\"1\""}, {"ignore_excel_hidden=\""}},
        {"version 71: its last document", 71,
            "<inputs><input id=\"1\" ignore_excel_hidden=\"0\" ignore_excel_hidden_cols=\"1\"/></inputs>",
            {"ignore_excel_hidden_cols=\"0\"", "ignore_excel_hidden_rows=\"0\""}, {}},
        {"version 77: the largest random number is excluded", 77,
            input + transform("Random", parameter("Maximum_Int", "100")) + joined, {"value=\"99\""}, {"value=\"100\""}},
        {"version 86: today's", 86, input + transform("Random", parameter("Maximum_Int", "100")) + joined,
            {"value=\"100\""}, {}},
        {"version 87: what isn't known is left out", 87,
            "<inputs><input id=\"1\" colour=\"red\"/></inputs><sounds><sound id=\"2\"/></sounds>", {"<input "},
            {"colour", "sound", "value=\"87\""}},
    };
    for (const OldDocument &document : documents) {
        SCOPED_TRACE(document.what);
        GraphScene scene;
        readText(documentText(document.body, document.version), scene);
        const QByteArray saved = savedText(scene);
        for (const QByteArray &part : document.saved) {
            EXPECT_TRUE(saved.contains(withSeparators(part))) << part.toStdString() << "\nin\n" << saved.toStdString();
        }
        for (const QByteArray &part : document.gone) {
            EXPECT_FALSE(saved.contains(part)) << part.toStdString();
        }
    }
}
