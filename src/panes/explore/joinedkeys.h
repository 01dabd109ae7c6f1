#pragma once

class Dataset;
struct CellColumn;

/// A table of one column: the keys of one table with those of another under them, so that both are numbered together.
Dataset joinedKeys(const CellColumn &top, const CellColumn &bottom);
