#pragma once

#include <QString>
#include <QVector>
#include <random>

/// Texts of up to `longest` pieces, drawn from what writers must look at closely and from plain letters.
class HostileText
{
public:
    HostileText(uint seed, const QString &special)
        : m_random(seed)
    {
        m_pieces = {QStringLiteral("a"), QStringLiteral("bc"), QStringLiteral("12.50"), QStringLiteral(" "),
            QString::fromUtf8("é"), QString::fromUtf8("漢"), QString::fromUtf8("😀"), QString::fromUtf8("\uFEFF"),
            QString(QChar(0xD83D)), QString(QChar(0xDE00)), QString(QChar(0)), special};
    }

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }

    QString next(int longest)
    {
        QString text;
        for (int pieces = below(longest + 1); pieces > 0; --pieces) {
            // Mostly letters, so that texts without anything special come often enough.
            text += m_pieces.at(below(3) == 0 ? below(m_pieces.size()) : below(3));
        }
        return text;
    }

    void add(const QString &piece) { m_pieces.append(piece); }

private:
    std::mt19937 m_random;
    QVector<QString> m_pieces;
};
