#include "app/help/helpstyle.h"

#include "app/help/helppages.h"

#include <QFontDatabase>
#include <QImage>
#include <QPalette>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <QUrl>

namespace {

constexpr double cellPadding = 5;
constexpr double paragraphGap = 8;
constexpr double headingGap = 16;
constexpr int lineHeightPercent = 120;

QColor mixed(const QColor &a, const QColor &b, double share)
{
    const auto mix = [share](int x, int y) { return qRound(x * (1 - share) + y * share); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

void styleTable(QTextTable &table, const QPalette &palette)
{
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    QTextTableFormat format = table.format();
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(mixed(base, text, 0.3));
    format.setBorderCollapse(true);
    format.setCellSpacing(0);
    format.setCellPadding(cellPadding);
    format.setTopMargin(paragraphGap / 2);
    format.setBottomMargin(paragraphGap);
    table.setFormat(format);
    for (int column = 0; column < table.columns(); ++column) {
        QTextTableCell cell = table.cellAt(0, column);
        QTextCharFormat cellFormat = cell.format();
        cellFormat.setBackground(mixed(base, text, 0.1));
        cell.setFormat(cellFormat);
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        QTextCursor cursor = cell.firstCursorPosition();
        cursor.setPosition(cell.lastPosition(), QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(bold);
    }
}

void styleFrames(QTextFrame &frame, const QPalette &palette)
{
    for (QTextFrame *child : frame.childFrames()) {
        if (auto *table = qobject_cast<QTextTable *>(child)) {
            styleTable(*table, palette);
        }
        styleFrames(*child, palette);
    }
}

bool isCode(const QTextCharFormat &format)
{
    static const QString family = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    return format.fontFixedPitch() || format.fontFamily() == family;
}

void styleFragments(const QTextBlock &block, const QPalette &palette)
{
    QVector<QPair<int, int>> code;
    for (auto part = block.begin(); !part.atEnd(); ++part) {
        if (isCode(part.fragment().charFormat())) {
            code.append({part.fragment().position(), part.fragment().length()});
        }
    }
    QTextCharFormat format;
    format.setFontFamily(QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
    format.setBackground(mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.1));
    for (const auto &range : code) {
        QTextCursor cursor(block);
        cursor.setPosition(range.first);
        cursor.setPosition(range.first + range.second, QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(format);
    }
}

/// Headings are reached by their text; all others get room round them.
void styleBlock(QTextBlock block, const QPalette &palette)
{
    QTextCursor cursor(block);
    QTextBlockFormat format = block.blockFormat();
    const bool inTable = cursor.currentTable();
    if (format.headingLevel() > 0) {
        format.setTopMargin(block.position() == 0 ? 0 : headingGap);
        format.setBottomMargin(paragraphGap);
        QTextCharFormat named;
        named.setAnchor(true);
        named.setAnchorNames({HelpPages::anchor(block.text())});
        cursor.setPosition(block.position());
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(named);
    } else if (!inTable) {
        const bool isLine = format.hasProperty(QTextFormat::BlockCodeFence) || isCode(block.charFormat());
        format.setTopMargin(0);
        format.setBottomMargin(isLine ? 0 : block.textList() ? paragraphGap / 2 : paragraphGap);
        if (!isLine) {
            format.setLineHeight(lineHeightPercent, QTextBlockFormat::ProportionalHeight);
        } else if (!block.text().isEmpty() || isCode(block.next().charFormat())) {
            format.setBackground(mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.1));
        }
    }
    QTextCursor(block).setBlockFormat(format);
    styleFragments(block, palette);
}

} // namespace

void HelpStyle::apply(QTextDocument &document, const QPalette &palette)
{
    QTextCursor edit(&document);
    edit.beginEditBlock();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        styleBlock(block, palette);
    }
    styleFrames(*document.rootFrame(), palette);
    edit.endEditBlock();
}

void HelpStyle::fitPictures(QTextDocument &document, int width, double pixelRatio, const Pictures &pictureOf)
{
    struct Picture
    {
        int position;
        int length;
        QTextImageFormat format;
    };
    QVector<Picture> pictures;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            if (format.isImageFormat()) {
                pictures.append({part.fragment().position(), part.fragment().length(), format.toImageFormat()});
            }
        }
    }
    for (Picture &picture : pictures) {
        const QImage image = pictureOf(picture.format.name());
        const int wanted = qMin(image.width(), qMax(1, width));
        if (image.isNull() || qRound(picture.format.width()) == wanted) {
            continue;
        }
        // Drawing would leave out lines of a picture that is to be smaller.
        document.addResource(QTextDocument::ImageResource, QUrl(picture.format.name()),
            image.scaledToWidth(qMin(image.width(), qRound(wanted * pixelRatio)), Qt::SmoothTransformation));
        picture.format.setWidth(wanted);
        picture.format.setHeight(double(image.height()) * wanted / image.width());
        QTextCursor cursor(&document);
        cursor.setPosition(picture.position);
        cursor.setPosition(picture.position + picture.length, QTextCursor::KeepAnchor);
        cursor.setCharFormat(picture.format);
    }
}
