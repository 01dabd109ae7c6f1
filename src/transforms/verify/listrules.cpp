#include "transforms/verify/rulechecks.h"
#include "transforms/verify/ruletable.h"
#include "transforms/verify/textset.h"

namespace {

RuleCheckPointer listedCheck(const QStringList &entries, bool mustBeListed, const RuleContext &context)
{
    const TextSet list(entries, context.caseSensitive);
    if (list.isEmpty()) {
        return nullptr;
    }
    return cellCheck([list, mustBeListed](Utf16Cell &text) { return list.contains(text) != mustBeListed; });
}

QByteArray storedForm(const QString &text)
{
    QByteArray bytes;
    TextCoding::appendEncoded(bytes, text.constData(), text.size());
    return bytes;
}

/// Takes off its list what it sees.
class RequiredTexts final : public RuleCheck
{
public:
    explicit RequiredTexts(const QStringList &entries)
        : m_entries(entries)
    {
        for (const QString &entry : entries) {
            m_missing.insert(storedForm(entry));
        }
    }

    bool fails(Utf16Cell &text) override
    {
        if (!m_missing.isEmpty()) {
            m_missing.remove(QByteArray::fromRawData(text.cell().bytes(), text.cell().size()));
        }
        return false;
    }

    void finish(const CellColumn &, RuleFails &fails) override
    {
        if (m_missing.isEmpty()) {
            return;
        }
        QStringList missing;
        for (const QString &entry : m_entries) {
            if (m_missing.contains(storedForm(entry))) {
                missing.append(entry);
            }
        }
        fails.count = 1;
        fails.detail = QStringLiteral("required value(s) not found=") + missing.join(QLatin1Char(','));
    }

private:
    const QStringList m_entries;
    QSet<QByteArray> m_missing; ///< in WTF-8
};

} // namespace

RuleCheckPointer makeListCheck(const VerifyRule &rule, const RuleContext &context)
{
    if (rule.ruleId < 17 || rule.ruleId > 19) {
        return nullptr;
    }
    const QStringList entries = VerifyRuleTable::listEntries(rule.value);
    if (rule.ruleId == 19) {
        return std::make_unique<RequiredTexts>(entries);
    }
    return listedCheck(entries, rule.ruleId == 17, context);
}
