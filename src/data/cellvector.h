#pragma once

#include "data/cell.h"

#include <QSharedData>
#include <QSharedDataPointer>

/// An implicitly shared array of cells. Unlike the general vector it grows in place through realloc, without touching
/// the room that isn't used, so a column of a million cells costs eight megabytes and not sixteen.
class CellVector
{
public:
    CellVector() = default;
    explicit CellVector(int size) { resize(size); }

    int size() const { return d ? d->size : 0; }
    const Cell *constData() const { return d ? d->cells : nullptr; }
    const Cell &at(int i) const { return d->cells[i]; }
    /// Detaches; the pointer holds until the next change of size.
    Cell *data();
    void append(Cell cell)
    {
        if (Q_UNLIKELY(!d || d->ref.loadRelaxed() != 1 || d->size == d->capacity)) {
            makeRoom();
        }
        d->cells[d->size++] = cell;
    }
    /// Room for `count` more cells at the end, which the caller fills; the pointer holds until the next change of size.
    Cell *extend(int count);
    /// New cells are empty.
    void resize(int size);
    void reserve(int capacity);
    void insert(int at, Cell cell);
    void remove(int at);
    bool sharesWith(const CellVector &other) const { return d.constData() == other.d.constData(); }

private:
    struct Buffer : QSharedData
    {
        Buffer() = default;
        Buffer(const Buffer &other);
        Buffer &operator=(const Buffer &) = delete;
        ~Buffer();
        Cell *cells = nullptr;
        int size = 0;
        int capacity = 0;
    };
    void makeRoom();
    void setCapacity(int capacity);

    QExplicitlySharedDataPointer<Buffer> d;
};
