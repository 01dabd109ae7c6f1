#pragma once

#include "data/cell.h"

#include <QStringView>
#include <QVarLengthArray>

/// A cell with its text in UTF-16, which is made when a rule first asks for it, however many rules do.
class Utf16Cell
{
public:
    /// The cell must stay where it is until the next one is set.
    void set(const Cell &cell)
    {
        m_cell = &cell;
        m_hasUnits = false;
        m_hasString = false;
    }
    const Cell &cell() const { return *m_cell; }
    bool isEmpty() const { return m_cell->isEmpty(); }
    /// True when all characters are below 128.
    bool isAscii()
    {
        makeUnits();
        return m_isAscii;
    }
    /// Holds until the next cell is set.
    QStringView units()
    {
        makeUnits();
        return m_isAscii ? QStringView(m_ascii.constData(), m_ascii.size()) : QStringView(m_string);
    }
    const QString &string()
    {
        if (!m_hasString) {
            m_string = m_cell->text();
            m_hasString = true;
        }
        return m_string;
    }

private:
    void makeUnits()
    {
        if (m_hasUnits) {
            return;
        }
        m_hasUnits = true;
        const char *const bytes = m_cell->bytes();
        const int size = m_cell->size();
        m_isAscii = TextCoding::isAscii(bytes, size);
        if (!m_isAscii) {
            string();
            return;
        }
        m_ascii.resize(size);
        ushort *const out = m_ascii.data();
        for (int i = 0; i < size; ++i) {
            out[i] = static_cast<uchar>(bytes[i]);
        }
    }

    const Cell *m_cell = nullptr;
    QVarLengthArray<ushort, 256> m_ascii;
    QString m_string;
    bool m_hasUnits = false;
    bool m_hasString = false;
    bool m_isAscii = false;
};
