#pragma once

#include "data/textbuffer.h"
#include "transforms/frame/columnwisetransform.h"

#include <functional>
#include <optional>
#include <vector>

/// What becomes of cells that don't read as the values that a conversion is for.
namespace NonValueAction {

enum Action { Leave, ChangeToZero, ChangeToEmpty, ChangeToNaN };

/// The choices of such an option, in their order.
QStringList choices();
/// Nothing when the cell stays.
std::optional<QString> replacement(Action action);

} // namespace NonValueAction

/// Frame of the transforms that read the cells of the selected columns as values and write these in another form. It
/// does what the frame for cells does and beyond that deals with cells that don't read: it gathers the first few, in
/// the order of the rows, for a list of warnings.
class ConversionTransform : public ColumnwiseTransform
{
protected:
    using ColumnwiseTransform::ColumnwiseTransform;

    /// Replaces what `out` holds by the new text, or returns false for a cell that doesn't read. A pure function of
    /// the cell's text; it is called once for texts that repeat.
    using Rule = std::function<bool(const Cell &cell, TextBuffer &out)>;

    struct Plan
    {
        std::vector<Rule> rules;           ///< one for each column; none when the options ask for nothing
        std::optional<QString> unreadText; ///< what cells that don't read become, if anything
    };

    struct Counts
    {
        qint64 changed = 0; ///< of those that read
        qint64 unchanged = 0;
        qint64 unread = 0;
        qint64 unreadChanged = 0; ///< of those, how many became another text
        bool isAnyChanged() const { return changed + unreadChanged > 0; }
    };

    virtual Plan plan(const OptionValues &values, const Dataset &input, const QVector<ColumnIndex> &columns) = 0;
    /// The line in front of the list of cells that didn't read.
    virtual QString unreadHeading(const OptionValues &values, qint64 count) const = 0;
    /// "%1 changed, %2 unchanged" with the cells that didn't read among them, unless the class knows better.
    virtual QString outcome(const Counts &counts) const;
    /// Called when all cells are done, before the list of those that didn't read.
    virtual void addOwnWarnings() {}

private:
    Dataset compute(const OptionValues &values, const Inputs &inputs) final;
};
