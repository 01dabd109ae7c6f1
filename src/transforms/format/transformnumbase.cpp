#include "transforms/frame/conversiontransform.h"
#include "transforms/frame/messages.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <array>
#include <memory>

/// Rewrites the whole numbers of the selected columns in another number base.
class TransformNumBase final : public ConversionTransform
{
public:
    TransformNumBase()
        : ConversionTransform("Num_Base", "Change the number base of integer values, e.g. decimal to hexadecimal.",
            "base decimal octal binary hexadecimal")
    {
    }

private:
    static constexpr int guessBase = 1;
    static constexpr int largestBase = 32;
    static constexpr int sampleSize = 25;

    static QString fromLabel() { return QStringLiteral("Base from"); }
    static QString toLabel() { return QStringLiteral("Base to"); }

    OptionTable options() const override
    {
        return {
            Option::columns("Columns"),
            Option::integer("From", fromLabel(), guessBase)
                .limits(guessBase, largestBase)
                .leastText("Guess")
                .tip("The current base. E.g. 2 for binary and 10 for denary.\n'Guess' interprets each column based on "
                     "the values in that column. \nValues starting with 0x (e.g. 0x123) are interpreted as "
                     "hexadecimal (base 16)."),
            Option::integer("To", toLabel(), 16)
                .limits(2, largestBase)
                .tip("The required base. E.g. 16 for hexadecimal."),
            Option::selection("Non_Numeric", "Non-integer", NonValueAction::choices())
                .tip(QStringLiteral("What to do with non-integer values.\n(%1=not a number).")
                         .arg(QStringLiteral("NaN"))),
        };
    }

    /// What cells were seen to hold that deserves a warning.
    struct Sightings
    {
        bool negative = false;
        bool separators = false;
    };

    Plan plan(const OptionValues &values, const Dataset &input, const QVector<ColumnIndex> &columns) override
    {
        const int from = values.integer("From");
        m_to = values.integer("To");
        m_seen = std::make_shared<Sightings>();
        if (from == m_to) {
            addWarning(QStringLiteral("'%1' and '%2' values are the same").arg(fromLabel(), toLabel()));
            return {};
        }
        Plan plan;
        plan.unreadText = NonValueAction::replacement(values.choiceAs<NonValueAction::Action>("Non_Numeric"));
        for (ColumnIndex column : columns) {
            plan.rules.push_back(rule(from == guessBase ? guessedBase(input, column) : from));
        }
        return plan;
    }

    Rule rule(int from) const
    {
        return [from, to = m_to, seen = m_seen](const Cell &cell, TextBuffer &out) {
            const QString text = cell.text();
            bool ok = false;
            const qlonglong value = text.toLongLong(&ok, from);
            if (!ok) {
                seen->separators |= text.contains(QLatin1Char(',')) || text.contains(QLatin1Char('.'));
                return false;
            }
            seen->negative |= value < 0;
            setText(out, QString::number(value, to));
            return true;
        };
    }

    int guessedBase(const Dataset &input, ColumnIndex column)
    {
        const int base = likelyBase(input.column(column));
        addInfo(QStringLiteral("Guessing base %1 for column %2 ('%3')")
                    .arg(QString::number(base), QString::number(toNumber(column).toInt()), input.columnName(column)));
        return base;
    }

    static int likelyBase(const CellColumn &column)
    {
        static constexpr std::array<int, 4> bases{2, 8, 10, 16};
        std::array<int, 4> votes{};
        for (int row = 0; row < qMin(column.size(), sampleSize); ++row) {
            const QString text = column.at(row).text().trimmed().toLower();
            if (text.isEmpty()) {
                continue;
            }
            bool isHexadecimal = false;
            text.toLongLong(&isHexadecimal, 16);
            if (isHexadecimal && text.startsWith(QLatin1String("0x"))) {
                ++votes.back();
                continue;
            }
            for (size_t i = 0; i < bases.size(); ++i) {
                bool ok = false;
                text.toLongLong(&ok, bases[i]);
                votes[i] += ok;
            }
        }
        int best = 10;
        int bestVotes = 0;
        for (size_t i = 0; i < bases.size(); ++i) {
            if (votes[i] > bestVotes) {
                bestVotes = votes[i];
                best = bases[i];
            }
        }
        return best;
    }

    void addOwnWarnings() override
    {
        if (m_seen->negative && m_to != 10) {
            addWarning(QStringLiteral("Negative input values are shown as unsigned when converted to base %1")
                           .arg(QString::number(m_to)));
        }
        if (m_seen->separators) {
            addWarning(QStringLiteral("Input values should not contain ',' or '.' characters"));
        }
    }

    QString unreadHeading(const OptionValues &, qint64 count) const override
    {
        return QStringLiteral("%1 non-integer %2:")
            .arg(Messages::count(count), Messages::word(count, "value", "values"));
    }

    QString outcome(const Counts &counts) const override
    {
        return counts.isAnyChanged() ? QStringLiteral("%1 changed, %2 unchanged, %3 non-integer")
                                           .arg(Messages::count(counts.changed), Messages::count(counts.unchanged),
                                               Messages::count(counts.unread))
                                     : Messages::noChanges();
    }

    int m_to = 0;
    std::shared_ptr<Sightings> m_seen;
};

TRANSFORM_FACTORY(TransformNumBase)
