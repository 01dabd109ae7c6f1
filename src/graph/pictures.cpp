#include "graph/pictures.h"

#include "graph/ionode.h"
#include "graph/node.h"

#include <QFile>
#include <QIcon>
#include <QImageReader>
#include <QPainter>
#include <QPixmapCache>

static void loadResources()
{
    // A static library's resources are linked only when somebody asks for them.
    Q_INIT_RESOURCE(pictures);
}

static QString pathOf(const QString &name, bool onDark)
{
    loadResources();
    return QStringLiteral(":/pictures/%1/%2.svg").arg(onDark ? QStringLiteral("dark") : QStringLiteral("light"), name);
}

/// Of `side` pixels, from the cache where it has been drawn before.
static QPixmap pixmapOf(const QString &path, int side)
{
    const QString key = QStringLiteral("%1@%2").arg(path).arg(side);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        QImageReader reader(path);
        reader.setScaledSize(QSize(side, side));
        pixmap = QPixmap::fromImageReader(&reader);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

QString Pictures::ofTransform(const QString &typeName)
{
    return typeName.toLower();
}

QString Pictures::ofNode(const Node &node)
{
    switch (node.type()) {
    case ItemType::Input:
        switch (static_cast<const IONode &>(node).medium()) {
        case Medium::Clipboard:
            return QStringLiteral("input_clipboard");
        case Medium::Folder:
            return QStringLiteral("input_folder");
        default:
            return QStringLiteral("input_file");
        }
    case ItemType::Transform:
        return ofTransform(node.typeName());
    case ItemType::Output:
        return QStringLiteral("output_file");
    case ItemType::Chart:
        return QStringLiteral("output_chart");
    default:
        return {};
    }
}

QIcon Pictures::icon(const QString &name, bool onDark)
{
    const QString path = pathOf(name, onDark);
    return QFile::exists(path) ? QIcon(path) : QIcon();
}

void Pictures::draw(QPainter &painter, const QRectF &square, const QString &name, bool onDark)
{
    constexpr int sideAtMost = 256; // a box zoomed in further is softer, and the cache small
    const double scale = painter.deviceTransform().map(QLineF(0, 0, 1, 0)).length();
    const int side = qMin(qRound(square.width() * scale), sideAtMost);
    const QString path = pathOf(name, onDark);
    if (side < 1 || !QFile::exists(path)) {
        return;
    }
    const QPixmap pixmap = pixmapOf(path, side);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(square, pixmap, pixmap.rect());
}

QIcon Pictures::programIcon()
{
    loadResources();
    return QIcon(QStringLiteral(":/quillmere.svg"));
}
