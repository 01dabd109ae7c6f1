#include "data/columnbuilder.h"
#include "transforms/column/nameparts.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <QRegularExpression>
#include <QSet>

/// Splits people's names into columns for their parts.
class TransformSplitName final : public Transform
{
    enum Part { Honorific, First, Middle, Last, Suffix, PartCount };

public:
    TransformSplitName()
        : Transform("Split_Name",
            "Split a column containing people's names into separate columns for first name, last name etc.",
            "last family people suffix honorifics middle surname first titles names separate splitting splitter "
            "splits")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::column("Column", "Column").tip("Select the column containing names to split."),
            Option::caption("Label", "Names may contain"),
            Option::flag("Title", "honorific(s)", true)
                .tip("Check if names may contain honorifics/titles (e.g. 'Mr' or 'Ms.')."),
            Option::text("Custom_Title", "Custom honorifics")
                .notRequired()
                .activeWhenFlag("Title")
                .tip("Add any custom honorifics, separated by commas. Case is not important."),
            Option::flag("First", "first name(s)", true).tip("Check if names may contain first names (e.g. 'John')."),
            Option::flag("Middle", "middle name(s)", true).tip("Check if names may contain middle names."),
            Option::flag("Last", "last name(s)", true)
                .tip("Check if names may contain last names/surnames (e.g. 'Smith'."),
            Option::integer("Num_Last", "Num last names", 1)
                .limits(1, 2)
                .activeWhenFlag("Last")
                .tip("The number of last names expected. E.g 2 is common for Spanish names."),
            Option::flag("Suffix", "suffix(es)", true)
                .tip("Check if names may contain suffixes/post-nominal titles (e.g. 'PhD' or 'Jr')."),
            Option::text("Custom_Suffix", "Custom suffixes")
                .notRequired()
                .activeWhenFlag("Suffix")
                .tip("Add any custom suffixes, separated by commas. Case is not important."),
        };
    }

    /// What the options ask for.
    struct Rules
    {
        explicit Rules(const OptionValues &values)
            : wanted{values.flag("Title"), values.flag("First"), values.flag("Middle"), values.flag("Last"),
                values.flag("Suffix")}
            , lastNames(values.integer("Num_Last"))
            , honorifics(custom(values.text("Custom_Title")))
            , suffixes(custom(values.text("Custom_Suffix")))
        {
        }
        static QSet<QString> custom(const QString &words)
        {
            QSet<QString> set;
            for (const QString &word : words.split(separators(), Qt::SkipEmptyParts)) {
                set.insert(word.toLower());
            }
            return set;
        }
        static const QRegularExpression &separators()
        {
            static const QRegularExpression expression(QStringLiteral("[\\s,]+"));
            return expression;
        }
        bool isHonorific(const QString &token) const
        {
            return honorifics.contains(token.toLower()) || NameParts::isHonorific(token);
        }
        bool isSuffix(const QString &token) const
        {
            return suffixes.contains(token.toLower()) || NameParts::isSuffix(token);
        }

        const bool wanted[PartCount];
        const int lastNames;
        const QSet<QString> honorifics;
        const QSet<QString> suffixes;
    };

    static QVector<QStringList> split(const QString &name, const Rules &rules)
    {
        QStringList tokens = name.split(Rules::separators(), Qt::SkipEmptyParts);
        QVector<QStringList> parts(PartCount);
        while (rules.wanted[Honorific] && !tokens.isEmpty() && rules.isHonorific(tokens.first())) {
            parts[Honorific].append(tokens.takeFirst());
        }
        while (rules.wanted[Suffix] && !tokens.isEmpty() && rules.isSuffix(tokens.last())) {
            parts[Suffix].prepend(tokens.takeLast());
        }
        if (rules.wanted[Last]) {
            for (int i = 0; i < rules.lastNames && !tokens.isEmpty(); ++i) {
                parts[Last].prepend(tokens.takeLast());
            }
            while (!tokens.isEmpty() && NameParts::isLastNamePrefix(tokens.last())) {
                parts[Last].prepend(tokens.takeLast());
            }
        }
        if (rules.wanted[First] && !tokens.isEmpty()) {
            parts[First].append(tokens.takeFirst());
        }
        parts[Middle] = tokens;
        return parts;
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        static const char *const names[PartCount] = {"Honorific", "First", "Middle", "Last", "Suffix"};
        const Dataset &input = *inputs.first();
        const ColumnIndex source = values.column("Column");
        const Rules rules(values);
        Dataset result = input;
        if (!source.isValid()) {
            setResultText(Messages::noChanges());
            return result;
        }
        const int rowCount = input.rowCount();
        std::vector<ColumnBuilder> columns;
        for (int part = 0; part < PartCount; ++part) {
            columns.emplace_back(rowCount);
        }
        int empty[PartCount] = {};
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            const QVector<QStringList> parts = split(input.value(RowIndex(row), source), rules);
            for (int part = 0; part < PartCount; ++part) {
                columns[static_cast<size_t>(part)].append(parts.at(part).join(QLatin1Char(' ')));
                empty[part] += parts.at(part).isEmpty();
            }
        }
        int added = 0;
        for (int part = 0; part < PartCount; ++part) {
            if (!rules.wanted[part]) {
                continue;
            }
            ++added;
            const QString name = QString::fromLatin1(names[part]);
            result.addNamedColumn(columns[static_cast<size_t>(part)].take(), name);
            if (empty[part] > 0) {
                addInfo(QStringLiteral("%1 empty %2 value(s)").arg(Messages::count(empty[part]), name));
            }
        }
        setResultText(Messages::colsAdded(added));
        return result;
    }
};

TRANSFORM_FACTORY(TransformSplitName)
