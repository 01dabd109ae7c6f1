#include "document/markup.h"

#include "document/markupguard.h"

#include "settings/product.h"

#include <QDomDocument>
#include <QRegularExpression>
#include <QTextCodec>

namespace {

QTextCodec *codecOf(const QByteArray &bytes)
{
    constexpr int declarationLength = 200;
    static const QRegularExpression encoding(QStringLiteral("<\\?xml[^>]*encoding\\s*=\\s*[\"']([\\w.:-]+)[\"']"));
    const QRegularExpressionMatch match = encoding.match(QString::fromLatin1(bytes.left(declarationLength)));
    QTextCodec *declared = QTextCodec::codecForName(match.captured(1).toLatin1());
    return QTextCodec::codecForUtfText(bytes, declared ? declared : QTextCodec::codecForName("UTF-8"));
}

} // namespace

QString documentTypeName()
{
    return QString::fromLatin1(Product::name);
}

bool parseMarkup(const QByteArray &bytes, QDomDocument &document, MarkupError &error)
{
    const QString text = codecOf(bytes)->toUnicode(bytes);
    MarkupGuard guard(text);
    if (!guard.accepts()) {
        error = {guard.message(), guard.line(), guard.column()};
        return false;
    }
    return document.setContent(text, false, &error.text, &error.line, &error.column);
}
