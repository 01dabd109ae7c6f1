#pragma once

#include <QString>
#include <QVector>

class Dataset;

/// How many characters of each class the cells of each column have.
class CharacterProfile
{
public:
    enum Class {
        Null,
        Tab,
        LineFeed,
        CarriageReturn,
        Space,
        NonBreakingSpace,
        OtherWhitespace,
        Uppercase,
        Lowercase,
        OtherLetter,
        Digit,
        Dot,
        Comma,
        Semicolon,
        Colon,
        Quote,
        Apostrophe,
        Dash,
        Underscore,
        BackSlash,
        ForwardSlash,
        OtherPunctuation,
        Currency,
        OtherSymbol,
        Control,
        Other,
        ClassCount
    };
    static constexpr int mostExamples = 3;

    struct Count
    {
        qint64 characters = 0;
        QVector<int> rows; ///< the first ones with such characters, from 0
    };

    CharacterProfile() = default;
    /// Looks at `rows` of the table.
    CharacterProfile(const Dataset &dataset, const QVector<int> &rows);

    static QString name(int characterClass);
    static Class classOf(uint codePoint);

    int columnCount() const { return m_columns.size(); }
    int rowCount() const { return m_rowCount; }
    const Count &count(int characterClass, int column) const { return m_columns.at(column).counts.at(characterClass); }
    /// All characters of the column.
    qint64 total(int column) const { return m_columns.at(column).total; }

private:
    struct Column
    {
        QVector<Count> counts;
        qint64 total = 0;
    };

    QVector<Column> m_columns;
    int m_rowCount = 0;
};
