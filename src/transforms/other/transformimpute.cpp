#include "text/cappedlist.h"
#include "transforms/frame/columnedit.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/other/columnimputer.h"
#include "transforms/other/matchingrows.h"

/// Fills the empty cells of columns from the column's other values.
class TransformImpute final : public Transform
{
    enum Of { AllRows, MatchingValues }; // the choices of Of

public:
    TransformImpute()
        : Transform("Impute", "Infer values of missing data.", "completes empty missing fill guess imputation impute")
    {
    }

private:
    OptionTable options() const override
    {
        const QStringList of{"All rows", "Rows with matching values for:"};
        const QStringList matches{"Exact match", "Best match"};
        const QStringList matching{of.at(MatchingValues)};
        return {
            Option::columns("Columns"),
            Option::selection("Using", "Using", {"Average", "Median", "Mode"})
                .tip("Whether to use the average (mean), median or mode of other non-empty values in the column.\n"
                     "Average and median only work on numerical values."),
            Option::selection("Of", "Of", of)
                .tip(QStringLiteral(
                    "What rows to use when imputing values.\n"
                    "'%1' uses all non-empty values in the same column.\n"
                    "'%2' uses values in the same column which have matching values for the columns selected below. It "
                    "can be slow for large datasets.\n"
                    "Click the ? button for more details.")
                         .arg(of.at(AllRows), of.at(MatchingValues))),
            Option::columns("Matching_Columns", "Matching columns").activeWhen("Of", matching),
            Option::selection("Match_Type", "Matching", matches)
                .activeWhen("Of", matching)
                .tip(QStringLiteral(
                    "What matches to accept.\n"
                    "'%1' only uses matches where all values in the columns above match.\n"
                    "'%2' uses the best matches. If there are no matches then it uses all non-empty values in the same "
                    "column.\n"
                    "Click the ? button for more details.")
                         .arg(matches.at(MatchingRows::Exact), matches.at(MatchingRows::Best))),
            Option::flag("Case_Sensitive", "case sensitive", true)
                .activeWhen("Of", matching)
                .tip("Check for case sensitive matching."),
        };
    }

    /// One column to fill. Values always come from the table as it was, so that the order of columns is no matter.
    struct Target
    {
        Target(const Dataset &dataset, ColumnIndex index)
            : input(dataset)
            , column(index)
            , name(dataset.columnName(index))
            , edit(dataset.column(index))
        {
            for (int row = 0; row < dataset.rowCount(); ++row) {
                (edit.source()[row].isEmpty() ? emptyRows : filledRows).push_back(row);
            }
        }
        QString emptyCount() const { return Messages::count(static_cast<qint64>(emptyRows.size())); }
        QString text(const ColumnImputer::Value &value) const
        {
            return value.sourceRow < 0 ? value.text : edit.source()[value.sourceRow].text();
        }
        void fill(int row, const ColumnImputer::Value &value)
        {
            edit.set(row, value.sourceRow < 0 ? edit.store(value.text) : edit.source()[value.sourceRow]);
            ++filled;
        }

        const Dataset &input;
        const ColumnIndex column;
        const QString name;
        ColumnEdit edit;
        std::vector<int> emptyRows;
        std::vector<int> filledRows;
        int filled = 0;
    };

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const bool byMatches = values.choice("Of") == MatchingValues;
        setResultText(Messages::noChanges());
        if (byMatches && values.columns("Matching_Columns").isEmpty()) {
            addWarning(QStringLiteral("No columns checked to match against"));
            return input;
        }
        Dataset result = input;
        qint64 filled = 0;
        for (const ColumnIndex column : values.columns("Columns")) {
            Target target(input, column);
            if (target.emptyRows.empty()) {
                addInfo(QStringLiteral("Column '%1' has no empty values to impute").arg(target.name));
                continue;
            }
            if (byMatches) {
                imputeByMatches(values, target);
            } else {
                imputeFromAll(target, values.choiceAs<ColumnImputer::Using>("Using"));
            }
            result.setColumn(column, target.edit.take());
            filled += target.filled;
        }
        setResultText(Messages::changed(filled));
        return result;
    }

    void imputeFromAll(Target &target, ColumnImputer::Using what)
    {
        ColumnImputer imputer(target.input.column(target.column), what);
        const std::vector<int> &rows = target.filledRows;
        const ColumnImputer::Value value = imputer.value(rows.data(), rows.data() + rows.size());
        if (what == ColumnImputer::Mode) {
            reportMode(target, value);
        } else {
            reportFigure(target, value, QLatin1String(what == ColumnImputer::Average ? "average" : "median"));
        }
        if (!value.isKnown) {
            return;
        }
        const int count = static_cast<int>(target.emptyRows.size());
        for (int i = 0; i < count; ++i) {
            reportRow(i, count);
            target.fill(target.emptyRows[static_cast<size_t>(i)], value);
        }
    }

    void reportFigure(const Target &target, const ColumnImputer::Value &value, const QString &figure)
    {
        if (value.isKnown) {
            addInfo(QStringLiteral("%2 empty value(s) set to column '%1' %4 of %3")
                        .arg(target.name, target.emptyCount(), value.text, figure));
        } else {
            addWarning(QStringLiteral("No numeric values in column '%1' to set %3 of %2 empty value(s)")
                           .arg(target.name, target.emptyCount(), figure));
        }
    }

    void reportMode(const Target &target, const ColumnImputer::Value &value)
    {
        if (!value.isKnown) {
            addWarning(QStringLiteral("No non-empty values in column '%1' to set mode of %2 empty values")
                           .arg(target.name, target.emptyCount()));
            return;
        }
        addInfo(QStringLiteral("In column '%1' %2 empty value(s) set to mode of '%3', which occurs %4 time(s) in %5 "
                               "row(s)")
                    .arg(target.name, target.emptyCount(), target.text(value), Messages::count(value.times),
                        Messages::count(target.input.rowCount())));
        if (value.tiedRows.size() > 1) {
            addWarning(tieText(target, value, QString()));
        }
    }

    /// `ofRow` stands behind "value" where the mode is that of one row.
    static QString tieText(const Target &target, const ColumnImputer::Value &value, const QString &ofRow)
    {
        CappedList candidates;
        for (const int row : value.tiedRows) {
            candidates.add([&] { return QStringLiteral("'%1'").arg(target.edit.source()[row].text()); });
        }
        return QStringLiteral("%1 values occur %2 time(s) in column '%3' and could be used as the mode value%4:\n%5\n"
                              "Just '%6' was used as the mode value")
            .arg(Messages::count(value.tiedRows.size()), Messages::count(value.times), target.name, ofRow,
                candidates.lines("more", "more").join(QLatin1Char('\n')), target.text(value));
    }

    void imputeByMatches(const OptionValues &values, Target &target)
    {
        if (target.filledRows.empty()) {
            addWarning(QStringLiteral("No non-empty values in column '%1' to impute %2 empty values")
                           .arg(target.name, target.emptyCount()));
            return;
        }
        const QVector<ColumnIndex> keyColumns = values.columns("Matching_Columns");
        MatchingRows matches(target.input, keyColumns, values.flag("Case_Sensitive"), target.filledRows,
            values.choiceAs<MatchingRows::Match>("Match_Type"));
        ColumnImputer imputer(target.input.column(target.column), values.choiceAs<ColumnImputer::Using>("Using"));
        CappedList ties;
        CappedList unmatched;
        QHash<int, Found> foundByMatch;
        const int count = static_cast<int>(target.emptyRows.size());
        for (int i = 0; i < count; ++i) {
            reportRow(i, count);
            const int row = target.emptyRows[static_cast<size_t>(i)];
            const Found found = foundFor(row, matches, imputer, foundByMatch);
            if (!found.hasRows) {
                unmatched.add([&] { return unmatchedText(target.input, keyColumns, row); });
            } else if (found.value.isKnown) {
                target.fill(row, found.value);
                if (found.value.tiedRows.size() > 1) {
                    ties.add([&] { return tieText(target, found.value, QStringLiteral(" for row %1").arg(row + 1)); });
                }
            }
        }
        warningList() += ties.lines();
        warningList() += unmatched.lines();
        if (target.filled < count) {
            addWarning(QStringLiteral("%1 empty value(s) not imputed in column '%2'")
                           .arg(Messages::count(count - target.filled), target.name));
        }
    }

    /// What the rows that match a row lead to.
    struct Found
    {
        bool hasRows = false;
        ColumnImputer::Value value;
    };

    static Found foundFor(int row, MatchingRows &matches, ColumnImputer &imputer, QHash<int, Found> &foundByMatch)
    {
        const int match = matches.matchOf(row);
        const auto known = foundByMatch.constFind(match);
        if (known != foundByMatch.constEnd()) {
            return *known;
        }
        const std::vector<int> rows = matches.rowsFor(row);
        const Found found{!rows.empty(), imputer.value(rows.data(), rows.data() + rows.size())};
        foundByMatch.insert(match, found);
        return found;
    }

    static QString unmatchedText(const Dataset &input, const QVector<ColumnIndex> &keyColumns, int row)
    {
        const QStringList values = input.rowValues(RowIndex(row), keyColumns.toList());
        return QStringLiteral("No matches for row %1, value(s)=%2")
            .arg(QString::number(row + 1), values.join(QStringLiteral(", ")));
    }
};

TRANSFORM_FACTORY(TransformImpute)
