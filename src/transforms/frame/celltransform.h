#pragma once

#include "data/textbuffer.h"
#include "transforms/frame/columnwisetransform.h"

#include <functional>

/// What the text of a cell becomes. A rule without any function asks for nothing: the run gives "No changes".
struct CellRule
{
    /// A pure function of the text; it is called once for texts that repeat.
    using Text = std::function<QString(const QString &)>;
    /// Optional short cut for cells of ASCII only: rewrites `size` characters in place, never to more, and returns how
    /// many are left. Its result is that of Text.
    using Ascii = std::function<int(char *text, int size)>;
    /// For a result that depends on other cells of the row too: appends the new text, in WTF-8, to the empty
    /// `out`.
    using Row = std::function<void(int row, const Cell &cell, TextBuffer &out)>;

    CellRule() = default;
    CellRule(Text textRule, Ascii asciiRule = Ascii())
        : text(std::move(textRule))
        , ascii(std::move(asciiRule))
    {
    }
    static CellRule byRow(Row rowRule);
    /// A rule that never lengthens the text: `edit(characters, size)` rewrites QChar or char in place and returns the
    /// size left, so that one function serves both forms.
    template<class Edit>
    static CellRule inPlace(Edit edit)
    {
        return CellRule(
            [edit](const QString &text) {
                QString result = text;
                result.truncate(edit(result.data(), result.size()));
                return result;
            },
            [edit](char *text, int size) { return edit(text, size); });
    }
    bool isNothing() const { return !text && !row; }

    Text text;
    Ascii ascii;
    Row row;
    /// Optional: what there is to warn of, asked for when all cells are done.
    std::function<QStringList()> warnings;
};

/// Frame of the transforms that change cells of the selected columns in place: it copies the table, walks rows and
/// columns, counts, reports progress and sets the result text. A class adds its options and its rule.
class CellTransform : public ColumnwiseTransform
{
protected:
    using ColumnwiseTransform::ColumnwiseTransform;

    /// The rule for these options. Everything that doesn't depend on the cell is done here.
    virtual CellRule rule(const OptionValues &values, const Dataset &input) const = 0;
    /// Key of the option that names the columns.
    virtual QString columnsKey() const { return QStringLiteral("Columns"); }
    virtual QString outcome(qint64 changed, qint64 unchanged) const;
    Dataset compute(const OptionValues &values, const Inputs &inputs) override;
};
