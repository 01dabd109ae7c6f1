#pragma once

#include <QRandomGenerator>

/// Draws from a seeded generator by fixed rules, so that a seed gives the same values on every machine.
class RandomNumbers
{
public:
    explicit RandomNumbers(int seed)
        : m_generator(static_cast<quint32>(seed))
    {
    }

    /// One 32-bit draw.
    quint32 draw() { return m_generator.generate(); }
    /// From 0 to below 1: the top 53 bits of two draws, the first the high word.
    double unit()
    {
        const quint64 high = draw();
        return static_cast<double>((high << 32 | draw()) >> 11) * 0x1p-53;
    }
    /// From 0 to below `count`, which is at most 2^32.
    qint64 below(qint64 count)
    {
        return static_cast<qint64>(static_cast<quint64>(draw()) * static_cast<quint64>(count) >> 32);
    }

private:
    QRandomGenerator m_generator;
};
