#include "document/documentparser.h"
#include "document/markup.h"
#include "document/sampledocument.h"
#include "graph/graphscene.h"
#include "graph/node.h"

#include <QDomDocument>
#include <gtest/gtest.h>
#include <random>

namespace {

/// `text` with one to four random faults: bytes changed, pieces lost, doubled or moved, an end cut off.
QByteArray damaged(QByteArray text, std::mt19937 &random)
{
    const auto below = [&random](int limit) {
        return limit > 0 ? static_cast<int>(random() % static_cast<unsigned>(limit)) : 0;
    };
    for (int faults = 1 + below(4); faults > 0; --faults) {
        const int from = below(text.size());
        const int length = below(60);
        switch (below(6)) {
        case 0:
            text[from] = static_cast<char>(below(256));
            break;
        case 1:
            text.remove(from, length);
            break;
        case 2:
            text.insert(below(text.size()), text.mid(from, length));
            break;
        case 3:
            text.insert(from, QByteArray::number(static_cast<int>(random())));
            break;
        case 4:
            text.replace(from, 1, "-");
            break;
        default:
            text.truncate(qMax(1, text.size() - below(40)));
            break;
        }
    }
    return text;
}

} // namespace

TEST(HostileDocuments, DamagedOnesAreRefusedOrRead)
{
    std::mt19937 random(20240501);
    int read = 0;
    const QByteArray whole = fullDocument();
    for (int i = 0; i < 400; ++i) {
        SCOPED_TRACE(i);
        QDomDocument document;
        MarkupError error;
        if (!parseMarkup(damaged(whole, random), document, error)) {
            EXPECT_FALSE(error.text.isEmpty());
            continue;
        }
        ++read;
        GraphScene scene;
        const DocumentContents contents = readDocument(document, scene, QString());
        parseBatchSettings(document.documentElement(), contents.version);
        EXPECT_EQ(contents.nodes.size(), scene.nodes().size());
        GraphScene again;
        EXPECT_EQ(readText(savedText(scene), again).nodes.size(), contents.nodes.size());
    }
    EXPECT_GT(read, 20) << "the faults are too coarse to test more than the markup";
}

TEST(HostileDocuments, ARunEndsWhateverTheConnectionsSay)
{
    const auto connection = [](int start, int end) {
        return "<connection start_id=\"" + QByteArray::number(start) + "\" end_id=\"" + QByteArray::number(end)
               + "\"/>";
    };
    const QByteArray items =
        "<inputs><input id=\"1\" medium=\"1\" text=\"a%0A1\"/></inputs>"
        "<transforms><transform id=\"2\" name=\"Pad\"/><transform id=\"3\" name=\"Stack\"/>"
        "<transform id=\"4\" name=\"Pad\"/></transforms>"
        "<outputs><output id=\"5\" enable_output=\"0\"/></outputs><charts><chart id=\"6\"/></charts>";
    const struct
    {
        const char *what;
        QByteArray connections;
    } cases[] = {
        {"a circle behind an input", connection(1, 2) + connection(2, 3) + connection(3, 4) + connection(4, 2)},
        {"a circle without an input", connection(2, 4) + connection(4, 2)},
        {"everything to everything",
            [&connection]() {
                QByteArray all;
                for (int start = 1; start <= 6; ++start) {
                    for (int end = 1; end <= 6; ++end) {
                        all += connection(start, end) + connection(start, end);
                    }
                }
                return all;
            }()},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        GraphScene scene;
        readText(documentText(items + "<connections>" + c.connections + "</connections>"), scene);
        scene.runTransforms(RunMode::Everything, true);
        EXPECT_EQ(scene.nodeById(1)->state(), NodeState::Processed);
        EXPECT_FALSE(scene.isProcessing());
    }
}

TEST(HostileDocuments, AnEnormousAttributeIsRead)
{
    const QByteArray huge(20 * 1000 * 1000, '7');
    GraphScene scene;
    const DocumentContents contents = readText(
        documentText("<notes><note id=\"1\" comment=\"" + huge + "\" pos_v12=\"" + huge + "\"/></notes>"), scene);
    ASSERT_EQ(contents.nodes.size(), 1);
    EXPECT_EQ(contents.nodes.first()->pos(), QPointF());
    EXPECT_EQ(contents.nodes.first()->comment().size(), huge.size());
}
