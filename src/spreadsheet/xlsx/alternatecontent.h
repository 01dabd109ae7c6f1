#pragma once

#include <vector>

namespace spreadsheet {

/// Follows the AlternateContent elements of a part, whose branches say the same in different ways: the first branch
/// stands for the element, as if its content stood there alone. Else what has numbers by its place, such as a cell
/// format, would be counted wrongly.
class AlternateContent
{
public:
    enum class Role {
        Element, ///< stands for itself
        Wrapper, ///< only its content counts
        LeftOut  ///< neither does, and neither do the calls for what it holds come
    };

    /// An element begins, which lies so deep, 0 for the root.
    Role begin(const char *name, int depth);
    /// An element ends that wasn't left out; true for a wrapper.
    bool end(int depth);

private:
    struct Alternatives
    {
        int depth;
        bool hasBranch;
    };
    std::vector<Alternatives> m_open;
};

} // namespace spreadsheet
