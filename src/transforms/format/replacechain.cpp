#include "transforms/format/replacechain.h"

#include "data/dataset.h"
#include "data/longtext.h"
#include "transforms/frame/messages.h"

#include <algorithm>

namespace {

bool usesFindText(int mode)
{
    return mode == ReplaceMode::Text || mode == ReplaceMode::ExactText || mode == ReplaceMode::Regex;
}

bool isOfClass(int mode, uint c)
{
    switch (mode) {
    case ReplaceMode::Letters:
        return QChar::isLetter(c);
    case ReplaceMode::Digits:
        return QChar::isDigit(c);
    case ReplaceMode::Punctuation:
        return QChar::isPunct(c);
    case ReplaceMode::Symbols:
        return QChar::isSymbol(c);
    case ReplaceMode::Whitespace:
        return QChar::isSpace(c);
    case ReplaceMode::Currency:
        return QChar::category(c) == QChar::Symbol_Currency;
    default:
        return c > 255;
    }
}

/// Quick for the same text, which is what terms without variables give.
bool isSameText(const QString &a, const QString &b)
{
    return a.constData() == b.constData() || a == b;
}

/// Puts `with` in the place of each character of the class; a character outside the basic plane counts as one.
void replaceCharacters(int mode, const QString &with, QString &text)
{
    QString result;
    int kept = 0;
    for (int i = 0; i < text.size();) {
        const bool isPair = text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        const uint c = isPair ? QChar::surrogateToUcs4(text.at(i), text.at(i + 1)) : text.at(i).unicode();
        const int next = i + (isPair ? 2 : 1);
        if (isOfClass(mode, c)) {
            result.append(text.constData() + kept, i - kept);
            result.append(with);
            kept = next;
        }
        i = next;
    }
    if (kept > 0) {
        result.append(text.constData() + kept, text.size() - kept);
        text = result;
    }
}

} // namespace

ReplaceChain::Step::Step(const Dataset &input, const ReplaceTerm &term)
    : mode(term.mode)
    , find(input, usesFindText(term.mode) ? term.find : QString())
    , with(input, term.replace)
{
}

ReplaceChain::ReplaceChain(const Dataset &input, const QList<ReplaceTerm> &terms, bool caseSensitive)
    : m_caseSensitive(caseSensitive)
{
    for (const ReplaceTerm &term : terms) {
        const bool isKnown = term.mode >= ReplaceMode::Text && term.mode <= ReplaceMode::NonAscii;
        const ReplaceTerm known{isKnown ? term.mode : ReplaceMode::Text, term.find, term.replace};
        if (!usesFindText(known.mode) || !known.find.isEmpty()) {
            m_steps.emplace_back(input, known);
        }
    }
}

bool ReplaceChain::isIdle(const QList<ReplaceTerm> &terms)
{
    return std::all_of(terms.cbegin(), terms.cend(), [](const ReplaceTerm &term) {
        const bool isText = term.mode == ReplaceMode::Text || term.mode == ReplaceMode::ExactText;
        return (usesFindText(term.mode) && term.find.isEmpty()) || (isText && term.find == term.replace);
    });
}

bool ReplaceChain::isConstant() const
{
    return std::all_of(m_steps.cbegin(), m_steps.cend(),
        [](const Step &step) { return step.find.isConstant() && step.with.isConstant(); });
}

QString ReplaceChain::apply(const Dataset &input, RowIndex row, const QString &cell)
{
    QString text = cell;
    for (Step &step : m_steps) {
        applyStep(step, step.find.text(input, row), step.with.text(input, row), cell, text);
    }
    return text;
}

void ReplaceChain::applyStep(
    Step &step, const QString &find, const QString &with, const QString &cell, QString &text) const
{
    const Qt::CaseSensitivity sensitivity = m_caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    switch (step.mode) {
    case ReplaceMode::Text:
        // A variable may have left nothing to look for, and that occurs nowhere rather than between all characters.
        if (!find.isEmpty()) {
            LongText::replace(text, find, with, sensitivity);
        }
        break;
    case ReplaceMode::ExactText:
        if (cell.compare(find, sensitivity) == 0) {
            text = with;
        }
        break;
    case ReplaceMode::Regex:
        if (!find.isEmpty()) {
            replaceByExpression(step, find, with, text);
        }
        break;
    case ReplaceMode::Empty:
        if (text.isEmpty()) {
            text = with;
        }
        break;
    default:
        replaceCharacters(step.mode, with, text);
    }
}

void ReplaceChain::replaceByExpression(Step &step, const QString &pattern, const QString &with, QString &text) const
{
    if (!step.expression || !isSameText(step.pattern, pattern)) {
        step.expression = std::make_unique<RegexReplacer>(pattern, m_caseSensitive);
        step.pattern = pattern;
        if (!step.expression->isValid() && step.invalidText.isEmpty()) {
            step.invalidText = Messages::invalidExpression(pattern, step.expression->errorString());
        }
    }
    if (step.expression->isValid()) {
        step.expression->replace(text, with);
    }
}

QStringList ReplaceChain::warnings() const
{
    QStringList texts;
    for (const Step &step : m_steps) {
        if (!step.invalidText.isEmpty()) {
            texts.append(step.invalidText);
        }
    }
    return texts;
}
