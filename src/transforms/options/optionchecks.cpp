#include "transforms/options/optionchecks.h"

#include "data/textregex.h"
#include "transforms/frame/messages.h"

#include <algorithm>

QString OptionChecks::expression(const QString &text)
{
    const TextRegex expression(text);
    return expression.isValid() ? QString() : Messages::invalidExpression(text, expression.errorString());
}

QString OptionChecks::dateFormat(const QString &text)
{
    // Text in single quotes stands for itself.
    bool isQuoted = false;
    const bool hasPart = std::any_of(text.begin(), text.end(), [&](QChar c) {
        isQuoted = isQuoted != (c == QLatin1Char('\''));
        return !isQuoted && QStringLiteral("dMyHhmszaAt").contains(c);
    });
    return hasPart || text.isEmpty() ? QString() : QStringLiteral("'%1' shows no part of a date or a time").arg(text);
}
