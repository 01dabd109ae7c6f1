#include "panes/table/characterprofile.h"

#include "data/dataset.h"

namespace {

constexpr const char *names[CharacterProfile::ClassCount] = {"Null", "Tab", "Line Feed", "Carriage Return", "Space",
    "Non-breaking Space", "Other whitespace", "Uppercase", "Lowercase", "Other letter", "Digit", "Dot", "Comma",
    "Semicolon", "Colon", "Quote", "Apostrophe", "Dash", "Underscore", "Back Slash", "Forward Slash",
    "Other punctuation", "Currency", "Other symbol", "Control", "Other"};

constexpr uint noBreakSpace = 0xa0;

/// Characters that are a class of their own; ClassCount for others.
CharacterProfile::Class singleClass(uint code)
{
    using P = CharacterProfile;
    switch (code) {
    case 0:
        return P::Null;
    case '\t':
        return P::Tab;
    case '\n':
        return P::LineFeed;
    case '\r':
        return P::CarriageReturn;
    case ' ':
        return P::Space;
    case noBreakSpace:
        return P::NonBreakingSpace;
    case '.':
        return P::Dot;
    case ',':
        return P::Comma;
    case ';':
        return P::Semicolon;
    case ':':
        return P::Colon;
    case '"':
        return P::Quote;
    case '\'':
        return P::Apostrophe;
    case '-':
        return P::Dash;
    case '_':
        return P::Underscore;
    case '\\':
        return P::BackSlash;
    case '/':
        return P::ForwardSlash;
    default:
        return P::ClassCount;
    }
}

} // namespace

QString CharacterProfile::name(int characterClass)
{
    return QLatin1String(names[characterClass]);
}

CharacterProfile::Class CharacterProfile::classOf(uint codePoint)
{
    const Class single = singleClass(codePoint);
    if (single != ClassCount) {
        return single;
    }
    if (QChar::isSpace(codePoint)) {
        return OtherWhitespace;
    }
    if (QChar::isUpper(codePoint)) {
        return Uppercase;
    }
    if (QChar::isLower(codePoint)) {
        return Lowercase;
    }
    if (QChar::isDigit(codePoint)) {
        return Digit;
    }
    if (QChar::isLetter(codePoint)) {
        return OtherLetter;
    }
    if (QChar::category(codePoint) == QChar::Symbol_Currency) {
        return Currency;
    }
    if (QChar::isPunct(codePoint)) {
        return OtherPunctuation;
    }
    if (QChar::isSymbol(codePoint)) {
        return OtherSymbol;
    }
    return QChar::category(codePoint) == QChar::Other_Control ? Control : Other;
}

CharacterProfile::CharacterProfile(const Dataset &dataset, const QVector<int> &rows)
    : m_rowCount(rows.size())
{
    m_columns.resize(dataset.columnCount());
    for (int index = 0; index < m_columns.size(); ++index) {
        Column &column = m_columns[index];
        column.counts.resize(ClassCount);
        for (const int row : rows) {
            const QString text = dataset.value(RowIndex(row), ColumnIndex(index));
            for (const uint code : text.toUcs4()) {
                Count &count = column.counts[classOf(code)];
                ++count.characters;
                ++column.total;
                if (count.rows.size() < mostExamples && !count.rows.endsWith(row)) {
                    count.rows.append(row);
                }
            }
        }
    }
}
