#include "inputs/delimiterguess.h"

#include "data/values.h"
#include "files/delimiters.h"

#include <QStringList>
#include <array>

namespace {

struct Sample
{
    std::array<int, 128> counts{};
    int characters = 0;
};

Sample takeSample(const char *text, int size)
{
    Sample sample;
    for (int i = 0; i < size && sample.characters < DelimiterGuess::sampleSize; ++i) {
        const auto c = static_cast<uchar>(text[i]);
        if (c < 0x80) {
            ++sample.counts[c];
        }
        // A character of four bytes counts as two, as in a QString.
        sample.characters += ((c & 0xC0) != 0x80) + (c >= 0xF0);
    }
    sample.characters = qMin(sample.characters, DelimiterGuess::sampleSize);
    return sample;
}

} // namespace

DelimiterGuess DelimiterGuess::fromText(const char *text, int size)
{
    const Sample sample = takeSample(text, size);
    QStringList found;
    int kind = DelimiterKind::Comma;
    int most = 0;
    for (int candidate : delimiterChoices(false, false, false)) {
        const int count = sample.counts[DelimiterKind::character(candidate, QChar()).unicode()];
        found.append(formatInteger(count, true) + QLatin1Char(' ') + DelimiterKind::label(candidate));
        if (count > most) {
            most = count;
            kind = candidate;
        }
    }
    const QString guess = QStringLiteral("Delimiter=Automatic guesses '%1', set 'Delimiter' option to change");
    const QString reason = QStringLiteral("First %1 characters contain: %2");
    return {kind, guess.arg(DelimiterKind::label(kind))
                      + reason.arg(formatInteger(sample.characters, true), found.join(QLatin1String(", ")))};
}

QList<int> delimiterChoices(bool withAutomatic, bool withColonAndSpace, bool withCustom)
{
    QList<int> choices;
    if (withAutomatic) {
        choices.append(DelimiterKind::Automatic);
    }
    choices << DelimiterKind::Comma << DelimiterKind::SemiColon;
    if (withColonAndSpace) {
        choices.append(DelimiterKind::Colon);
    }
    choices << DelimiterKind::Pipe << DelimiterKind::Caret << DelimiterKind::Tab << DelimiterKind::UnitSeparator;
    if (withColonAndSpace) {
        choices.append(DelimiterKind::Space);
    }
    if (withCustom) {
        choices.append(DelimiterKind::Custom);
    }
    return choices;
}
