#include "inputs/clipboardtext.h"

#include "data/textcoding.h"

#include <QMimeData>

namespace {

/// Programs that don't put UTF-8 there use the system's encoding; some end the text with a null character.
QString decoded(const QByteArray &bytes)
{
    int size = bytes.size();
    while (size > 0 && bytes.at(size - 1) == '\0') {
        --size;
    }
    return TextCoding::isValidUtf8(bytes.constData(), size) ? QString::fromUtf8(bytes.constData(), size)
                                                            : QString::fromLocal8Bit(bytes.constData(), size);
}

} // namespace

QString clipboardText(const QMimeData *mimeData)
{
    if (!mimeData) {
        return QString();
    }
    const QString csv = QStringLiteral("application/x-qt-windows-mime;value=\"Csv\"");
    if (mimeData->hasFormat(csv)) {
        return decoded(mimeData->data(csv));
    }
    return mimeData->hasText() ? mimeData->text() : QString();
}
