#pragma once

#include "data/variabletemplate.h"
#include "transforms/format/regexreplacer.h"
#include "transforms/options/records.h"

#include <QStringList>
#include <memory>
#include <vector>

/// The match types of a replace term, as they are stored.
namespace ReplaceMode {
enum {
    Text = 0,
    ExactText = 1,
    Regex = 2,
    Empty = 3,
    Letters = 4,
    Digits = 5,
    Punctuation = 6,
    Symbols = 7,
    Whitespace = 8,
    Currency = 9,
    NonAscii = 10
};
}

/// Replace terms made ready for many cells; each works on what the one before it left.
class ReplaceChain
{
public:
    ReplaceChain(const Dataset &input, const QList<ReplaceTerm> &terms, bool caseSensitive);

    /// True when no term can change a text.
    static bool isIdle(const QList<ReplaceTerm> &terms);
    /// True when every row is treated alike.
    bool isConstant() const;
    QString apply(const Dataset &input, RowIndex row, const QString &cell);
    /// What went wrong with regular expressions.
    QStringList warnings() const;

private:
    struct Step
    {
        Step(const Dataset &input, const ReplaceTerm &term);

        int mode;
        VariableTemplate find;
        VariableTemplate with;
        std::unique_ptr<RegexReplacer> expression;
        QString pattern; ///< of `expression`
        QString invalidText;
    };
    void applyStep(Step &step, const QString &find, const QString &with, const QString &cell, QString &text) const;
    void replaceByExpression(Step &step, const QString &pattern, const QString &with, QString &text) const;

    std::vector<Step> m_steps;
    bool m_caseSensitive;
};
