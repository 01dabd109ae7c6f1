#pragma once

#include <QRandomGenerator>
#include <QString>

/// Seeded random texts with few enough characters that they have much in common, some of them outside Latin.
class RandomText
{
public:
    explicit RandomText(quint32 seed)
        : m_random(seed)
    {
    }

    int below(int limit) { return static_cast<int>(m_random.bounded(limit)); }
    bool chance(int percent) { return below(100) < percent; }
    /// Up to `longest` units.
    QString text(int longest)
    {
        QString result;
        for (int left = below(longest + 1); left > 0; --left) {
            result.append(character());
        }
        return result;
    }
    /// `text` after up to `most` edits.
    QString edited(QString text, int most)
    {
        for (int left = below(most + 1); left > 0; --left) {
            const int at = below(text.size() + 1);
            switch (below(3)) {
            case 0:
                text.insert(at, character());
                break;
            case 1:
                text.remove(at, 1);
                break;
            default:
                text.replace(at, 1, character());
            }
        }
        return text;
    }

private:
    QChar character()
    {
        static const QString characters = QStringLiteral("aaaabbbcdeABé ñ-ж\u4E00\u20AC\U0001F600");
        return characters.at(below(characters.size()));
    }
    QRandomGenerator m_random;
};
