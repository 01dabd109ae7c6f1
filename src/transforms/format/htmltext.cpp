#include "transforms/format/htmltext.h"

#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QUrl>

namespace {

/// The parser asks this for style sheets and images; from a cell it may get neither files nor anything else.
class NoResources final : public QTextDocument
{
    QVariant loadResource(int, const QUrl &) override { return QByteArray(); }
};

struct NamedCharacter
{
    QLatin1String text;
    char character;
};

const NamedCharacter entities[] = {{QLatin1String("&amp;"), '&'}, {QLatin1String("&lt;"), '<'},
    {QLatin1String("&gt;"), '>'}, {QLatin1String("&quot;"), '"'}};

const NamedCharacter *entityAt(const QString &text, int position)
{
    for (const NamedCharacter &entity : entities) {
        if (text.midRef(position, entity.text.size()) == entity.text) {
            return &entity;
        }
    }
    return nullptr;
}

} // namespace

HtmlText::HtmlText()
    : m_resources(new NoResources)
{
}

HtmlText::~HtmlText() = default;

bool HtmlText::plainTextQuickly(const QString &html, QString &text)
{
    QString result;
    QChar before(' ');
    for (int i = 0; i < html.size(); ++i) {
        const QChar c = html.at(i);
        const bool isPlain = c.unicode() > 0x7E ? c.isLetterOrNumber() : c.unicode() >= ' ' && c != QLatin1Char('<');
        if (!isPlain || (c == QLatin1Char(' ') && before == QLatin1Char(' '))) {
            return false;
        }
        before = c;
        if (c != QLatin1Char('&')) {
            result.append(c);
            continue;
        }
        const NamedCharacter *entity = entityAt(html, i);
        if (!entity) {
            return false;
        }
        result.append(QLatin1Char(entity->character));
        i += entity->text.size() - 1;
    }
    if (before == QLatin1Char(' ')) {
        return html.isEmpty();
    }
    text = result;
    return true;
}

QString HtmlText::plainText(const QString &html) const
{
    QString text;
    if (html.isEmpty() || plainTextQuickly(html, text)) {
        return text;
    }
    return QTextDocumentFragment::fromHtml(html, m_resources.get()).toPlainText();
}
