#include "transforms/verify/checkdigits.h"
#include "transforms/verify/contacts.h"
#include "transforms/verify/rulechecks.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// The system takes a 0 character for the end of a path.
bool isPath(const QString &text)
{
    return !text.trimmed().isEmpty() && !text.contains(QChar(0));
}

bool isFolder(Utf16Cell &text)
{
    return isPath(text.string()) && QDir(text.string()).exists();
}

bool isFile(Utf16Cell &text)
{
    return isPath(text.string()) && !QDir(text.string()).exists() && QFileInfo::exists(text.string());
}

/// A rule that `isValid` must hold for the text.
template<class IsValid>
RuleCheckPointer mustBe(IsValid isValid)
{
    return cellCheck([isValid](Utf16Cell &text) { return !isValid(text.units()); });
}

} // namespace

RuleCheckPointer makeIdentifierCheck(const VerifyRule &rule, const RuleContext &context)
{
    const bool caseSensitive = context.caseSensitive;
    switch (rule.ruleId) {
    case 28:
        return rememberedCheck([](Utf16Cell &text) { return !isFolder(text); });
    case 29:
        return rememberedCheck([](Utf16Cell &text) { return !isFile(text); });
    case 30:
        return cellCheck([](Utf16Cell &text) { return !Contacts::holdsEmail(text); });
    case 31:
        return rememberedCheck([](Utf16Cell &text) { return !Contacts::isTelephone(text); });
    case 32:
        return mustBe(CheckDigits::isEan13);
    case 33:
        return mustBe(CheckDigits::isUpcA);
    case 49:
        return mustBe(CheckDigits::isIsbn);
    case 50:
        return mustBe([caseSensitive](QStringView text) { return CheckDigits::isIban(text, caseSensitive); });
    case 51:
        return mustBe(CheckDigits::isGtin);
    case 52:
        return mustBe([caseSensitive](QStringView text) { return CheckDigits::isAsin(text, caseSensitive); });
    default:
        return nullptr;
    }
}
