#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

// Draws an SVG picture as PNG files for the icon theme: pngicons PICTURE.svg FOLDER, which gives FOLDER/SIDE.png.

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QSvgRenderer picture(arguments.value(1));
    if (arguments.size() != 3 || !picture.isValid() || !QDir().mkpath(arguments.at(2))) {
        std::fputs("usage: pngicons PICTURE.svg FOLDER\n", stderr);
        return 1;
    }
    for (const int side : {16, 22, 24, 32, 48, 64, 128, 256}) {
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        picture.render(&painter);
        painter.end();
        if (!image.save(QDir(arguments.at(2)).filePath(QStringLiteral("%1.png").arg(side)))) {
            std::fprintf(stderr, "can't write the icon of %d\n", side);
            return 1;
        }
    }
    return 0;
}
