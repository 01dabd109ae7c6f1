#include "data/values.h"
#include "data/verifyrulenames.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/verify/columnverifier.h"
#include "transforms/verify/datasetrules.h"
#include "transforms/verify/ruletable.h"

#include <limits>

/// Checks the table and its columns against rules, marks what fails and can keep or remove rows by that.
class TransformVerify final : public Transform
{
    enum Filter { KeepAll, Keep, Remove }; // the choices of Keep_Remove_rows, in their order

public:
    TransformVerify()
        : Transform("Verify", "Verify that values in the dataset are as expected.",
            "checks expects asserts validates verifies verify")
    {
    }

private:
    OptionTable options() const override
    {
        const QStringList filters{"Keep all rows", "Keep rows with:", "Remove rows with:"};
        const QStringList filtering = filters.mid(Keep);
        return {
            Option::verifyRules("Rules", "Verify rules").tip("The verification rules."),
            Option::flag("Case_Sensitive", "case sensitive", true)
                .tip("Check for case sensitive text matching.\nOnly applies to some rules. Hover over a rule or see "
                     "the documentation for more details."),
            Option::selection("Keep_Remove_rows", "Filter", filters)
                .tip("Whether to keep or remove rows based on fail severity."),
            Option::flag("No_Fail", "no fails", true)
                .activeWhen("Keep_Remove_rows", filtering)
                .tip("Check to keep or remove rows with no verification fails."),
            Option::flag("No_Info", "Information fails", true)
                .activeWhen("Keep_Remove_rows", filtering)
                .tip("Check to keep or remove rows with no 'Information' verification fails."),
            Option::flag("No_Warning", "Warning fails", true)
                .activeWhen("Keep_Remove_rows", filtering)
                .tip("Check to keep or remove rows with no 'Warning' verification fails."),
            Option::flag("No_Error", "Error fails", true)
                .activeWhen("Keep_Remove_rows", filtering)
                .tip("Check to keep or remove rows with no 'Error' verification fails."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const VerifyRuleSet rules = values.verifyRules("Rules");
        const bool caseSensitive = values.flag("Case_Sensitive");
        VerifyTotals totals(input.rowCount());
        std::vector<RuleOutcome> failed;
        const auto collect = [&](RuleOutcome &outcome) {
            totals.add(outcome);
            if (outcome.fails.count > 0) {
                failed.push_back(std::move(outcome));
            }
        };
        checkDataset(rules, input, caseSensitive, collect);
        checkColumns(rules, input, caseSensitive, collect);
        infoList().prepend(totals.summary());
        const QVector<int> kept = keptRows(values, totals.rowSeverities());
        Dataset result = kept.size() == input.rowCount() ? input : input.withRows(kept);
        mark(result, failed, kept, input.rowCount());
        report(totals.counts(), input.rowCount() - kept.size());
        return result;
    }

    template<class Collect>
    void checkDataset(const VerifyRuleSet &rules, const Dataset &input, bool caseSensitive, Collect collect)
    {
        addInfo(QStringLiteral("Dataset [%1 rule(s) active]").arg(Messages::count(rules.activeDatasetRules())));
        for (VerifyRule rule : rules.datasetRules) {
            if (rule.active && rule.ruleId >= 0 && rule.ruleId < VerifyRule::datasetRuleCount) {
                rule.severity = qBound<int>(VerifyRule::Information, rule.severity, VerifyRule::Error);
                RuleOutcome outcome = checkDatasetRule(rule, input, caseSensitive);
                addInfo(VerifyReport::datasetRuleLine(outcome));
                collect(outcome);
            }
        }
    }

    template<class Collect>
    void checkColumns(const VerifyRuleSet &rules, const Dataset &input, bool caseSensitive, Collect collect)
    {
        const int count = input.columnCount();
        for (int column = 0; column < count; ++column) {
            emit processed(static_cast<qreal>(column) / count);
            const auto entry = rules.columns.constFind(input.columnId(ColumnIndex(column)));
            if (entry == rules.columns.constEnd()) {
                continue;
            }
            const RuleContext context{
                input.columnName(ColumnIndex(column)), dateFormatOf(*entry, input, ColumnIndex(column)), caseSensitive};
            ColumnVerifier verifier(entry->rules, context, column, input.column(ColumnIndex(column)));
            const ProgressSpan run;
            const ProgressSpan ofColumn{run.at(column, count), run.at(column + 1, count)};
            verifier.run([&](int row) { reportRow(row, input.rowCount(), ofColumn); });
            if (verifier.hasRules()) {
                addInfo(VerifyReport::columnLine(column, context.columnName, entry->type, verifier.outcomes()));
            }
            for (RuleOutcome &outcome : verifier.outcomes()) {
                addInfo(VerifyReport::columnRuleLine(outcome));
                collect(outcome);
            }
        }
    }

    /// The format that the column's dates are read in; one is looked for when a column of dates has none. Empty when
    /// there is none.
    QString dateFormatOf(const VerifyColumn &rules, const Dataset &input, ColumnIndex column)
    {
        constexpr int formatRule = 3;
        QVariant stated = VerifyRuleTable::columnRuleDefault(formatRule);
        for (const VerifyRule &rule : rules.rules) {
            if (rule.ruleId == formatRule) {
                stated = rule.value;
                break;
            }
        }
        QString format = stated.toString().trimmed();
        if (!format.isEmpty() || rules.type != VerifyColumn::Date) {
            return format;
        }
        addWarning(QStringLiteral("No date format set for '%1'").arg(verifyColumnRuleName(formatRule)));
        const int number = toNumber(column).toInt();
        if (!input.isColumnDate(column, dateFormats(), &format)) {
            addWarning(QStringLiteral("Unable to infer date format for column %1").arg(number));
            return QString();
        }
        addWarning(QStringLiteral("Inferred date format for column %1 as '%2'").arg(QString::number(number), format));
        return format;
    }

    /// The rows that the filter leaves, ascending.
    static QVector<int> keptRows(const OptionValues &values, const std::vector<uchar> &severities)
    {
        const int filter = values.choice("Keep_Remove_rows");
        const bool noFails = values.flag("No_Fail");
        const int wanted = (values.flag("No_Info") ? 1 << VerifyRule::Information : 0)
                           | (values.flag("No_Warning") ? 1 << VerifyRule::Warning : 0)
                           | (values.flag("No_Error") ? 1 << VerifyRule::Error : 0);
        QVector<int> kept;
        kept.reserve(static_cast<int>(severities.size()));
        for (size_t row = 0; row < severities.size(); ++row) {
            const bool isMeant = severities[row] == 0 ? noFails : (severities[row] & wanted) != 0;
            if (filter == KeepAll || isMeant == (filter == Keep)) {
                kept.append(static_cast<int>(row));
            }
        }
        return kept;
    }

    /// Writes the fails into `result`, which has the rows `kept` of the table that was checked.
    static void mark(Dataset &result, const std::vector<RuleOutcome> &failed, const QVector<int> &kept, int checkedRows)
    {
        result.clearIssues(); // an item upstream has its own
        std::vector<int> places(static_cast<size_t>(checkedRows), -1);
        for (int place = 0; place < kept.size(); ++place) {
            places[static_cast<size_t>(kept.at(place))] = place;
        }
        for (const RuleOutcome &outcome : failed) {
            const VerifyRule &rule = outcome.rule;
            QVector<int> rows;
            rows.reserve(outcome.fails.rows.size());
            for (int row : outcome.fails.rows) {
                if (places[static_cast<size_t>(row)] >= 0) {
                    rows.append(places[static_cast<size_t>(row)]);
                }
            }
            if (outcome.column < 0) {
                for (int row : rows) {
                    result.addDatasetRowIssue(RowIndex(row), rule.severity, rule.ruleId);
                }
                for (int column : outcome.columns) {
                    result.addDatasetColumnIssue(ColumnIndex(column), rule.severity, rule.ruleId);
                }
            } else if (outcome.fails.rows.isEmpty()) {
                const auto count = static_cast<int>(qMin<qint64>(outcome.fails.count, std::numeric_limits<int>::max()));
                result.issues().addColumnIssue(ColumnIndex(outcome.column), rule.severity, rule.ruleId, count);
            } else {
                result.issues().addCellIssues(rows, ColumnIndex(outcome.column), rule.severity, rule.ruleId);
            }
        }
    }

    void report(const SeverityCounts &counts, int removedRows)
    {
        QString text = QStringLiteral("No verifications fails");
        if (counts.total() > 0) {
            text = Messages::count(counts.total()) + QLatin1Char(' ') + Messages::word(counts.total(), "fail", "fails")
                   + QLatin1String(" (") + counts.list() + QLatin1Char(')');
        }
        if (removedRows > 0) {
            text += QLatin1String(", ") + Messages::count(removedRows) + QLatin1String(" row(s) removed");
        }
        setResultText(text);
        if (counts.of(VerifyRule::Error) > 0) {
            setHasIssues();
        }
    }
};

TRANSFORM_FACTORY(TransformVerify)
