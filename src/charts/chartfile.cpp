#include "charts/chartfile.h"

#include "charts/chartwidget.h"
#include "platform/filereplacement.h"
#include "settings/product.h"
#include "settings/version.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>

namespace {

QPageSize pageSize(int choice)
{
    static const QPageSize::PageSizeId sizes[] = {QPageSize::A0, QPageSize::A1, QPageSize::A2, QPageSize::A3,
        QPageSize::A4, QPageSize::A5, QPageSize::A6, QPageSize::Ledger, QPageSize::Legal, QPageSize::Letter,
        QPageSize::Tabloid};
    return QPageSize(sizes[std::clamp(choice, 0, ChartChoice::pdfSizeCount - 1)]);
}

bool fits(const QString &extension, int imageType)
{
    switch (imageType) {
    case ChartChoice::Png:
        return extension == QLatin1String("png");
    case ChartChoice::Jpeg:
        return extension == QLatin1String("jpg") || extension == QLatin1String("jpeg");
    default:
        return extension == QLatin1String("pdf");
    }
}

} // namespace

ChartFile::ChartFile(const ChartModel &model, const ChartOptions &options)
    : m_model(model)
    , m_options(options)
{
}

bool ChartFile::write(const QString &path, QStringList &warnings, QStringList &infos) const
{
    const QString shown = QDir::toNativeSeparators(path);
    const bool existed = QFileInfo::exists(path);
    platform::FileReplacement replacement(path);
    const bool isPdf = m_options.imageType == ChartChoice::Pdf;
    if (!replacement.open() || !(isPdf ? writePdf(replacement.file()) : writeImage(replacement.file()))
        || !replacement.commit()) {
        warnings.append(QStringLiteral("Unable to write to file '%1'").arg(shown));
        return false;
    }
    infos.append((existed ? QStringLiteral("Overwrote file '%1'") : QStringLiteral("Created file '%1'")).arg(shown));
    warnOfOtherType(path, warnings);
    return true;
}

bool ChartFile::writeImage(QIODevice &device) const
{
    constexpr qint64 mostPixels = 1 << 28; // a picture of one gigabyte
    constexpr int jpegQuality = 92;
    const qint64 pixels = qint64(m_options.imageWidth) * m_options.imageHeight;
    if (m_options.imageWidth < 1 || m_options.imageHeight < 1 || pixels > mostPixels) {
        return false;
    }
    QImage image(m_options.imageWidth, m_options.imageHeight, QImage::Format_RGB32);
    if (image.isNull()) {
        return false;
    }
    image.fill(Qt::white);
    ChartWidget widget;
    widget.rebuild(m_model, m_options);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    widget.drawInto(painter, image.size());
    painter.end();
    return m_options.imageType == ChartChoice::Jpeg ? image.save(&device, "JPG", jpegQuality)
                                                    : image.save(&device, "PNG");
}

bool ChartFile::writePdf(QIODevice &device) const
{
    QPdfWriter writer(&device);
    writer.setResolution(std::max(1, m_options.pdfResolution));
    writer.setPageSize(pageSize(m_options.pdfSize));
    writer.setPageOrientation(m_options.pdfOrientation == 0 ? QPageLayout::Portrait : QPageLayout::Landscape);
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    writer.setCreator(QStringLiteral("%1 %2").arg(QLatin1String(Product::name), QLatin1String(Version::text)));
    ChartWidget widget;
    widget.rebuild(m_model, m_options);
    QPainter painter;
    if (!painter.begin(&writer)) {
        return false;
    }
    // Letters keep their size on paper at every resolution.
    constexpr double pixelsPerInch = 96.0;
    const double scale = writer.logicalDpiX() / pixelsPerInch;
    painter.scale(scale, scale);
    widget.drawInto(painter, QSizeF(writer.width(), writer.height()) / scale);
    return painter.end();
}

void ChartFile::warnOfOtherType(const QString &path, QStringList &warnings) const
{
    const QString extension = QFileInfo(path).suffix();
    if (!fits(extension.toLower(), m_options.imageType)) {
        warnings.append(
            QStringLiteral("'%1' extension is '%2' but image type is %3")
                .arg(QDir::toNativeSeparators(path), extension, ChartChoice::imageTypeLabel(m_options.imageType)));
    }
}
