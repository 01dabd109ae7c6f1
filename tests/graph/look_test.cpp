#include "graphfixture.h"

#include "files/delimiters.h"
#include "graph/arrowhead.h"
#include "graph/colors.h"
#include "graph/nodelook.h"
#include "graph/nodepainter.h"
#include "graph/nodeplacement.h"
#include "graph/notenode.h"
#include "graph/timingbar.h"

#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <algorithm>

using LookTest = GraphTest;

TEST_F(LookTest, ColoursOfSchemes)
{
    struct Case
    {
        const char *what;
        ColorScheme scheme;
        Colors::Role role;
        QColor color;
    };
    const Case cases[] = {
        {"Modern, box of an input", ColorScheme::Modern, Colors::InputBox, QColor(255, 224, 234)},
        {"box text serves all kinds", ColorScheme::Vivid, Colors::OutputText, QColor(220, 220, 220)},
        {"Obsidian looks like Dark", ColorScheme::Obsidian, Colors::TransformBorder, QColor(85, 170, 255)},
        {"Quartzite has a colour for the selection", ColorScheme::Quartzite, Colors::Selection, QColor(246, 161, 2)},
        {"others haven't", ColorScheme::TheBlues, Colors::Selection, QColor()},
        {"Candy has no shadow", ColorScheme::Candy, Colors::Shadow, QColor()},
        {"black is a colour", ColorScheme::Sapphire, Colors::Shadow, QColor(0, 0, 0)},
        {"the custom scheme asks the settings", ColorScheme::Custom, Colors::Arrow, QColor(1, 2, 3)},
    };
    settings->setCustomColor(Colors::Arrow, QColor(1, 2, 3));
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(Colors(c.scheme).color(c.role), c.color);
    }
    EXPECT_EQ(Colors::schemeNames().at(int(ColorScheme::Sapphire)), "Sapphire");
    EXPECT_EQ(Colors::schemeNames().size(), 11);
    EXPECT_EQ(Colors::roleName(Colors::Shadow), "shadow");
}

TEST_F(LookTest, WidthAndGradientOfSchemes)
{
    settings->setCustomConnectionThickness(3.5);
    settings->setCustomGradientEffect(7);
    const QList<double> widths{3.5, 2, 2, 2, 4, 2, 2, 4, 2, 4, 4};
    const QList<int> gradients{7, 0, 0, 0, 0, 0, 0, 0, 5, 9, 6};
    for (int scheme = 0; scheme < Colors::schemeCount; ++scheme) {
        SCOPED_TRACE(scheme);
        EXPECT_EQ(Colors(ColorScheme(scheme)).connectionThickness(), widths.at(scheme));
        EXPECT_EQ(Colors(ColorScheme(scheme)).gradientEffect(), gradients.at(scheme));
    }
}

TEST_F(LookTest, TimingBarsGoFromGreenToRed)
{
    EXPECT_EQ(TimingBar::color(0).hue(), 120);
    EXPECT_EQ(TimingBar::color(1).hue(), 0);
    EXPECT_EQ(TimingBar::color(0.5).hue(), 21);
    Node *in = input("in", 0, 0);
    in->look().showTimingBar(0.2);
    in->look().showTimingBar(0.4);
    ASSERT_EQ(in->childItems().size(), 1) << "one bar, however often";
    EXPECT_EQ(in->childItems().first()->boundingRect().center().x() + in->childItems().first()->x(),
        in->boxRect().center().x());
    in->look().hideTimingBar();
    EXPECT_TRUE(in->childItems().isEmpty());
}

TEST_F(LookTest, ConnectionsSpreadOverTheEdgeByHeight)
{
    Node *in = input("in", 0, 0);
    Node *low = probe("low", 1, 2, {in});
    Node *high = probe("high", 1, -2, {in});
    scene.layOutConnections();
    Connection *toLow = low->connections(Direction::Incoming).first();
    Connection *toHigh = high->connections(Direction::Incoming).first();
    EXPECT_LT(toHigh->fromOffset(), toLow->fromOffset());
    EXPECT_EQ(toLow->toOffset(), 0.5);
    EXPECT_EQ(toLow->path().elementAt(0).y, in->y() + Node::boxHeight * toLow->fromOffset());
    low->setX(600);
    EXPECT_GT(toLow->path().boundingRect().right(), 580) << "a line follows its node";
}

TEST_F(LookTest, LinesKeepClearOfBoxesBetweenTheirEnds)
{
    struct Case
    {
        const char *what;
        double endColumn, endRow;
        QVector<QPointF> between; ///< columns and rows
        bool isFree;              ///< whether there is a way
    };
    const Case cases[] = {
        {"one box in the same row", 2, 0, {{1, 0}}, true},
        {"several in the same row", 4, 0, {{1, 0}, {2, 0}, {3, 0}}, true},
        {"the row above is full too", 2, 0, {{1, 0}, {1, -1}}, true},
        {"three rows are full, with lanes between them", 3, 0, {{1, 0}, {1, -1}, {1, 1}, {2, 0}}, true},
        {"the box lies below the end's row but in the way", 2, 1, {{1, 0.5}}, true},
        {"a box that lies on the end leaves no room", 1, 0, {{0.9, 0}}, false},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        scene.clearAll();
        Node *from = input("from", 0, 0);
        QList<Node *> boxes;
        for (const QPointF &place : c.between) {
            boxes.append(input("between", place.x(), place.y()));
        }
        Node *to = probe("to", c.endColumn, c.endRow, {from});
        scene.layOutConnections();
        const Connection *line = to->connections(Direction::Incoming).first();
        bool isFree = true;
        for (const Node *box : qAsConst(boxes)) {
            for (int i = 0; i <= 400; ++i) {
                isFree = isFree
                         && !box->mapRectToScene(box->boxRect()).contains(line->path().pointAtPercent(i / 400.0));
            }
        }
        EXPECT_EQ(isFree, c.isFree);
        EXPECT_EQ(line->path().elementAt(0).y, from->connectionPoint(Direction::Outgoing, line->fromOffset()).y());
        EXPECT_EQ(line->path().currentPosition().y(), to->connectionPoint(Direction::Incoming, line->toOffset()).y());
    }
}

TEST_F(LookTest, ABoxThatIsPutOnALineIsGoneRound)
{
    Node *from = input("from", 0, 0);
    Node *to = probe("to", 2, 0, {from});
    Node *other = input("other", 1, 3);
    scene.layOutConnections();
    const Connection *line = to->connections(Direction::Incoming).first();
    EXPECT_LT(line->path().boundingRect().height(), 1) << "it is level while nothing is in the way";
    other->setY(0);
    scene.onPosChanged({other});
    EXPECT_LT(line->path().boundingRect().top(), other->y());
    other->setY(3 * NodePlacement::gridHeight);
    scene.onPosChanged({other});
    EXPECT_LT(line->path().boundingRect().height(), 1);
}

TEST_F(LookTest, BoxesAreFoundByPlaceHoweverTheyMove)
{
    QList<Node *> nodes;
    QRandomGenerator random(20260101);
    const auto someRow = [&] { return random.bounded(40.0) - 20; };
    for (int i = 0; i < 60; ++i) {
        nodes.append(input("n", someRow(), someRow()));
    }
    nodes.append(input("far", 1e9, -1e9));
    nodes.append(new NoteNode(NoteNode::Left));
    place(nodes.last(), "note", 0, 0);
    for (int step = 0; step < 200; ++step) {
        Node *moved = nodes.at(random.bounded(nodes.size() - 1));
        moved->setPos(someRow() * NodePlacement::gridWidth, someRow() * NodePlacement::gridHeight);
        if (step == 100) {
            delete nodes.takeFirst();
            Node *taken = nodes.takeFirst();
            scene.removeItem(taken);
            delete taken;
        }
        const QRectF area(someRow() * 200, someRow() * 100, random.bounded(6000.0), random.bounded(3000.0));
        QVector<QRectF> expected;
        for (int i = 1; i + 1 < nodes.size(); ++i) {
            const QRectF box = nodes.at(i)->mapRectToScene(nodes.at(i)->boxRect());
            if (box.intersects(area)) {
                expected.append(box);
            }
        }
        QVector<QRectF> found = scene.boxes().boxesIn(area, nodes.first(), nullptr);
        const auto byPlace = [](const QRectF &a, const QRectF &b) {
            return qMakePair(a.x(), a.y()) < qMakePair(b.x(), b.y());
        };
        std::sort(found.begin(), found.end(), byPlace);
        std::sort(expected.begin(), expected.end(), byPlace);
        ASSERT_EQ(found, expected) << "at step " << step;
    }
}

TEST_F(LookTest, TextsTooSmallToReadBecomeBars)
{
    Node *in = input("a name", 0, 0);
    const auto picture = [&](double scale) {
        QImage image((QSizeF(Node::boxWidth, Node::boxHeight) * scale).toSize(), QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        scene.render(&painter, image.rect(), in->mapRectToScene(in->boxRect()));
        return image;
    };
    const QRectF line = NodeLayout::textLine(1);
    const auto colorsAlong = [&](double scale) {
        const QImage image = picture(scale);
        QSet<QRgb> colors;
        for (double x = line.left() + 4; x < line.left() + 24; x += 1) {
            colors.insert(image.pixel(int(x * scale), int(line.center().y() * scale)));
        }
        return colors;
    };
    EXPECT_GT(colorsAlong(1).size(), 2) << "letters";
    const QSet<QRgb> small = colorsAlong(0.25);
    ASSERT_EQ(small.size(), 1) << "one even bar";
    EXPECT_NE(QColor(*small.cbegin()), in->boxColor());
}

TEST_F(LookTest, BoxesThrowAShadowWhereTheSchemeHasAColourForIt)
{
    Node *in = input("in", 0, 0);
    const auto paintedBelow = [&](ColorScheme scheme) {
        const Colors colors{scheme};
        scene.setColorsOverride(&colors);
        QImage image(300, 200, QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        const QRectF area = in->mapRectToScene(in->boxRect()).adjusted(-60, -55, 60, 55);
        scene.render(&painter, image.rect(), area);
        painter.end();
        scene.setColorsOverride(nullptr);
        return image.pixelColor(150, 200 - 55 + 12).lightness();
    };
    const auto ground = [](ColorScheme scheme) { return Colors{scheme}.color(Colors::Background).lightness(); };
    EXPECT_LT(paintedBelow(ColorScheme::Modern), ground(ColorScheme::Modern) - 5);
    EXPECT_EQ(paintedBelow(ColorScheme::Candy), ground(ColorScheme::Candy)) << "it has none";
}

TEST_F(LookTest, EveryKindPaints)
{
    Node *in = input("in", 0, 0);
    TransformNode *a = probe("a", 1, 0, {in});
    a->setComment("why");
    in->setSelected(true);
    in->look().showTimingBar(0.5);
    in->look().showConnectFromOverlay();
    auto *note = new NoteNode(NoteNode::Left);
    place(note, "note", 2, 0);
    note->setComment("text\nover lines");
    settings->setShowChanges(true);
    scene.layOutConnections();
    scene.updateSceneRect();
    for (int scheme = 0; scheme < Colors::schemeCount; ++scheme) {
        for (NodeState state :
            {NodeState::NeedsProcessing, NodeState::Processing, NodeState::Processed, NodeState::Failed}) {
            SCOPED_TRACE(scheme);
            const Colors colors{ColorScheme(scheme)};
            scene.setColorsOverride(&colors);
            a->setState(state, false);
            QImage image(800, 200, QImage::Format_ARGB32);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            scene.render(&painter);
            painter.end();
            EXPECT_NE(image.pixelColor(400, 100), QColor(Qt::transparent));
            scene.setColorsOverride(nullptr);
        }
    }
}

TEST_F(LookTest, DelimiterCharacters)
{
    struct Case
    {
        const char *what;
        int kind;
        const char *label;
        QChar character;
    };
    const Case cases[] = {
        {"automatic has none", DelimiterKind::Automatic, "Automatic", QChar()},
        {"comma", DelimiterKind::Comma, "Comma (,)", ','},
        {"tab, its label with a backslash", DelimiterKind::Tab, "Tab (\\t)", '\t'},
        {"the user's own", DelimiterKind::Custom, "Custom", '#'},
        {"unit separator", DelimiterKind::UnitSeparator, "Unit separator (0x1F)", QChar(0x1F)},
        {"a number outside the table", 12, "", QChar()},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(DelimiterKind::label(c.kind), c.label);
        EXPECT_EQ(DelimiterKind::character(c.kind, '#'), c.character);
    }
}

TEST_F(LookTest, ArrowHeadsPointAlongTheLine)
{
    const QPolygonF head = arrowHead({0, 0}, {10, 0}, 8);
    ASSERT_EQ(head.size(), 3);
    EXPECT_EQ(head.first(), QPointF(10, 0));
    EXPECT_NEAR(head.at(1).x(), 10 - 8 * 0.866, 0.01);
    EXPECT_NEAR(head.at(1).y(), -head.at(2).y(), 1e-9);
}
