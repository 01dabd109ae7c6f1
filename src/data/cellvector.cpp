#include "data/cellvector.h"

#include <QtGlobal>
#include <algorithm>
#include <cstdlib>
#include <new>

CellVector::Buffer::Buffer(const Buffer &other)
    : QSharedData(other)
    , size(other.size)
    , capacity(other.size)
{
    if (size == 0) {
        return;
    }
    const size_t bytes = static_cast<size_t>(size) * sizeof(Cell);
    cells = static_cast<Cell *>(std::malloc(bytes));
    if (!cells) {
        throw std::bad_alloc();
    }
    std::memcpy(static_cast<void *>(cells), other.cells, bytes);
}

CellVector::Buffer::~Buffer()
{
    std::free(cells);
}

Cell *CellVector::data()
{
    if (!d) {
        return nullptr;
    }
    d.detach();
    return d->cells;
}

void CellVector::setCapacity(int capacity)
{
    void *grown = std::realloc(static_cast<void *>(d->cells), static_cast<size_t>(capacity) * sizeof(Cell));
    if (!grown) {
        throw std::bad_alloc();
    }
    d->cells = static_cast<Cell *>(grown);
    d->capacity = capacity;
}

void CellVector::makeRoom()
{
    if (!d) {
        d = new Buffer;
    }
    d.detach();
    if (d->size == d->capacity) {
        setCapacity(static_cast<int>(qMin<qint64>(qMax<qint64>(8, d->capacity * 2LL), INT_MAX - 8)));
    }
}

void CellVector::reserve(int capacity)
{
    if (!d) {
        d = new Buffer;
    }
    d.detach();
    if (capacity > d->capacity) {
        setCapacity(capacity);
    }
}

Cell *CellVector::extend(int count)
{
    const int before = size();
    if (!d || before + count > d->capacity) {
        reserve(static_cast<int>(qMax<qint64>(before + count, qMin<qint64>(before * 2LL, INT_MAX - 8))));
    }
    d.detach();
    d->size = before + count;
    return d->cells + before;
}

void CellVector::resize(int size)
{
    if (size == this->size()) {
        return;
    }
    reserve(size);
    if (size > d->size) {
        std::fill(d->cells + d->size, d->cells + size, Cell());
    }
    d->size = size;
}

void CellVector::insert(int at, Cell cell)
{
    append(Cell());
    std::memmove(
        static_cast<void *>(d->cells + at + 1), d->cells + at, static_cast<size_t>(d->size - 1 - at) * sizeof(Cell));
    d->cells[at] = cell;
}

void CellVector::remove(int at)
{
    d.detach();
    std::memmove(
        static_cast<void *>(d->cells + at), d->cells + at + 1, static_cast<size_t>(d->size - 1 - at) * sizeof(Cell));
    --d->size;
}
