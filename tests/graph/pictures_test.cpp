#include "graphfixture.h"

#include "graph/colors.h"
#include "graph/nodefactory.h"
#include "graph/pictures.h"
#include "graph/transformnode.h"
#include "transforms/catalogue.h"

#include <QIcon>
#include <QImage>
#include <QMap>
#include <QPainter>
#include <QTextDocument>

using PicturesTest = GraphTest;

namespace {

QImage drawn(const QString &name, bool onDark, int side, double scale = 1)
{
    QImage image(qRound(side * scale), qRound(side * scale), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(scale, scale);
    Pictures::draw(painter, QRectF(0, 0, side, side), name, onDark);
    return image;
}

/// How many pixels are mostly covered.
int coveredPixels(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += qAlpha(image.pixel(x, y)) > 100;
        }
    }
    return count;
}

double heightOf(const QString &html)
{
    QTextDocument document;
    document.setHtml(html);
    return document.size().height();
}

/// Those of all kinds of items.
QStringList names()
{
    QStringList names{QStringLiteral("input_file"), QStringLiteral("input_folder"), QStringLiteral("input_clipboard"),
        QStringLiteral("output_file"), QStringLiteral("output_chart"), QStringLiteral("note")};
    for (const CatalogueRow &row : Catalogue::rows()) {
        names.append(Pictures::ofTransform(QString::fromLatin1(row.typeName)));
    }
    return names;
}

} // namespace

TEST_F(PicturesTest, EveryKindHasOneOfItsOwnOnLightAndDarkGround)
{
    for (int side : {16, 24, 48}) {
        QMap<QByteArray, QString> seen;
        for (const QString &name : names()) {
            SCOPED_TRACE(qPrintable(QStringLiteral("%1 at %2").arg(name).arg(side)));
            QImage forms[] = {drawn(name, false, side), drawn(name, true, side)};
            EXPECT_NE(forms[0], forms[1]) << "dark ground has its own colours";
            for (const QImage &image : forms) {
                EXPECT_GT(coveredPixels(image), side * side / 20);
                const QByteArray pixels(reinterpret_cast<const char *>(image.constBits()), int(image.sizeInBytes()));
                EXPECT_FALSE(seen.contains(pixels)) << "is the same as " << qPrintable(seen.value(pixels));
                seen.insert(pixels, name);
            }
        }
    }
}

TEST_F(PicturesTest, AreDrawnAtTheScaleOfThePainter)
{
    const QString name = QStringLiteral("join");
    EXPECT_EQ(drawn(name, false, 24, 2), drawn(name, false, 48)) << "zoomed in as sharp as the larger one";
    EXPECT_EQ(coveredPixels(drawn(QStringLiteral("no_such"), false, 24)), 0);
    EXPECT_EQ(coveredPixels(drawn(QString(), false, 24)), 0);
    EXPECT_TRUE(Pictures::icon(QStringLiteral("no_such"), false).isNull());
    EXPECT_EQ(Pictures::icon(name, false).pixmap(48, 48).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied),
        drawn(name, false, 48));
}

TEST_F(PicturesTest, TransformsShowTheirIllustrationsInToolTips)
{
    const QString missing = QStringLiteral("<img src=':/images/missing.png'>");
    int illustrated = 0;
    for (const CatalogueRow &row : Catalogue::rows()) {
        const std::unique_ptr<Transform> transform(row.create());
        if (!transform->imageName().isEmpty()) {
            ++illustrated;
            EXPECT_GT(heightOf(transform->imageHtml()), heightOf(missing) + 20) << row.typeName;
        }
    }
    EXPECT_EQ(illustrated, 3);
    EXPECT_GT(coveredPixels(Pictures::programIcon().pixmap(16, 16).toImage()), 150);
}
