#include "transforms/format/htmltext.h"
#include "transforms/frame/celltransform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <QRegularExpression>
#include <QUrl>

namespace {

struct Escape
{
    QLatin1String character;
    QLatin1String text;
};

QString fromXml(const QString &text)
{
    // The ampersand comes last, so that an escaped escape isn't taken for one.
    static const Escape escapes[] = {{QLatin1String("\""), QLatin1String("&quot;")},
        {QLatin1String("'"), QLatin1String("&apos;")}, {QLatin1String("<"), QLatin1String("&lt;")},
        {QLatin1String(">"), QLatin1String("&gt;")}, {QLatin1String("&"), QLatin1String("&amp;")}};
    QString result = text;
    for (const Escape &escape : escapes) {
        result.replace(escape.text, escape.character);
    }
    return result;
}

QString toXml(const QString &text)
{
    QString result = text.toHtmlEscaped();
    return result.replace(QLatin1Char('\''), QLatin1String("&apos;"));
}

/// A percent sign that begins no code stands for itself.
QString fromUrl(const QString &text)
{
    static const QRegularExpression stray(QStringLiteral("%(?![0-9A-Fa-f]{2})"));
    QString escaped = text;
    if (text.contains(QLatin1Char('%'))) {
        escaped.replace(stray, QStringLiteral("%25"));
    }
    return QUrl::fromPercentEncoding(escaped.toUtf8());
}

} // namespace

/// Decodes or encodes the selected cells.
class TransformDecode final : public CellTransform
{
    enum Change { Unset, FromBase64, ToBase64, FromUrl, ToUrl, FromHtml, ToHtml, FromXml, ToXml };

public:
    TransformDecode()
        : CellTransform("Decode", "Convert to/from Base64 encoding, URL encoding, escaped HTML or escaped XML.",
            "decodes base64 urls escaped escaping html encodes encodings decodings")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::columns("Columns"),
            Option::selection("Decode", "Change",
                {"<select>", "From Base64 encoding", "To Base64 encoding", "From URL encoding", "To URL encoding",
                    "From escaped HTML", "To escaped HTML", "From escaped XML", "To escaped XML"})
                .firstChoiceIsUnset()
                .tip("Select how to decode/encode the data."),
        };
    }

    CellRule rule(const OptionValues &values, const Dataset &) const override
    {
        switch (values.choice("Decode")) {
        case FromBase64:
            return CellRule(
                [](const QString &text) { return QString::fromUtf8(QByteArray::fromBase64(text.toUtf8())); });
        case ToBase64:
            return CellRule([](const QString &text) { return QString::fromLatin1(text.toUtf8().toBase64()); });
        case FromUrl:
            return CellRule(fromUrl);
        case ToUrl:
            return CellRule([](const QString &text) { return QString::fromLatin1(QUrl::toPercentEncoding(text)); });
        case FromHtml:
            return CellRule(
                [html = std::make_shared<HtmlText>()](const QString &text) { return html->plainText(text); });
        case ToHtml:
            return CellRule([](const QString &text) { return text.toHtmlEscaped(); });
        case FromXml:
            return CellRule(fromXml);
        case ToXml:
            return CellRule(toXml);
        default:
            return {};
        }
    }
};

TRANSFORM_FACTORY(TransformDecode)
