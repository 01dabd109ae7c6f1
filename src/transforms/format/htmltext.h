#pragma once

#include <QString>
#include <memory>

class QTextDocument;

/// Turns HTML fragments into the text that a reader would see. Nothing that a fragment names is loaded.
class HtmlText
{
public:
    HtmlText();
    ~HtmlText();
    Q_DISABLE_COPY(HtmlText)

    QString plainText(const QString &html) const;
    /// The same without the parser: for texts without markup whose only entities are those of the four characters that
    /// HTML must escape. False for any other text.
    static bool plainTextQuickly(const QString &html, QString &text);

private:
    std::unique_ptr<QTextDocument> m_resources;
};
