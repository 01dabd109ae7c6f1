#include "data/datasource.h"
#include "data/similarkeys.h"
#include "data/values.h"
#include "data/variabletemplate.h"
#include "text/cappedlist.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/frame/twoinputs.h"
#include "transforms/keys/keyindex.h"
#include "transforms/keys/keyreports.h"
#include "transforms/keys/keysuggestion.h"
#include "transforms/merge/lookupmatcher.h"
#include "transforms/options/addedcolumn.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <QSet>

namespace {

const QString topKeyName = QStringLiteral("Top_Lookup_Column");
const QString bottomKeyName = QStringLiteral("Bottom_Lookup_Column");
const QString bottomValueName = QStringLiteral("Bottom_Value_Column");
const QString topKeyLabel = QStringLiteral("Top key column");
const QString bottomKeyLabel = QStringLiteral("Bottom key column");

QStringList matchTypes()
{
    return {QStringLiteral("Exact"), QStringLiteral("Fuzzy"), QStringLiteral("Equal"),
        QStringLiteral("Bottom contains top"), QStringLiteral("Bottom starts with top"),
        QStringLiteral("Bottom ends with top"), QStringLiteral("Bottom greater than top"),
        QStringLiteral("Bottom greater than equal to top"), QStringLiteral("Bottom matches top regex"),
        QStringLiteral("Top contains bottom"), QStringLiteral("Top starts with bottom"),
        QStringLiteral("Top ends with bottom"), QStringLiteral("Top greater than bottom"),
        QStringLiteral("Top greater than equal to bottom"), QStringLiteral("Top matches bottom regex"),
        QStringLiteral("Not exact"), QStringLiteral("Not equal"), QStringLiteral("Bottom doesn't contain top"),
        QStringLiteral("Bottom doesn't start with top"), QStringLiteral("Bottom doesn't end with top"),
        QStringLiteral("Top doesn't contain bottom"), QStringLiteral("Top doesn't start with bottom"),
        QStringLiteral("Top doesn't end with bottom")};
}

/// The values that matching rows give, in their order, each text once.
class ValueList
{
public:
    void clear()
    {
        m_values.clear();
        m_seen.clear();
    }
    void add(const QString &value)
    {
        if (!m_seen.contains(value)) {
            m_seen.insert(value);
            m_values.append(value);
        }
    }
    bool isEmpty() const { return m_values.isEmpty(); }
    QString joined(const QString &delimiter) const { return m_values.join(delimiter); }

private:
    QStringList m_values;
    QSet<QString> m_seen;
};

} // namespace

/// Adds a column with values that the bottom table holds for the keys of the top table.
class TransformLookup final : public Transform
{
public:
    TransformLookup()
        : Transform("Lookup", "Create a new column in the top dataset using values looked up in the bottom dataset.",
            "keys table xlookup vlookup replace matching matches lookup ids fuzzy")
    {
    }

    bool hasKeyColumns() const override { return true; }
    QString firstKeyParameterName() const override { return topKeyName; }
    QString secondKeyParameterName() const override { return bottomKeyName; }
    QString caseSensitiveParameterName() const override { return QStringLiteral("Case_Sensitive"); }

    bool updateInputOrder(const QList<DataSource *> &) override
    {
        Parameter *bottomKey = parameter(bottomKeyName);
        if (!TwoInputs::swapWhenCrossed(parameter(topKeyName), bottomKey)) {
            return false;
        }
        if (Parameter *value = parameter(bottomValueName)) {
            value->setNode(bottomKey->node());
            value->setValue(QVariant());
        }
        return true;
    }

protected:
    OptionTable options() const override;
    void adjustNewParameters(const QList<DataSource *> &inputs, bool isNew) override;
    Dataset computeIncomplete(const Inputs &inputs) override;
    Dataset compute(const OptionValues &values, const Inputs &inputs) override;

private:
    struct Task;
    /// The result for one top key: the cell, and whether anything matched.
    struct Found
    {
        Cell cell;
        bool matched = false;
    };

    Dataset withoutValues(const OptionValues &values, const Dataset &top, const QString &resultText);
    void nameNewColumn(Dataset &result, const QString &name) const;
    void fillColumn(Task &task, Dataset &result);
    static Cell missedValue(Task &task, const VariableTemplate &missText, int topRow);
    Found valueFor(Task &task, int topRow);
    Found exactValue(Task &task, int topRow);
    Found fuzzyValue(Task &task, int topRow);
    Found comparedValue(Task &task, int topRow);
    void reportMisses(const CappedList &misses);
};

/// What one run works with.
struct TransformLookup::Task
{
    enum FuzzyUse { FirstBest, AllBest, AllMatches };

    Task(const OptionValues &values, const Dataset &topTable, const Dataset &bottomTable)
        : top(topTable)
        , bottom(bottomTable)
        , match(values.choiceAs<LookupMatch>(QStringLiteral("Match_Type")))
        , topKey(values.column(topKeyName))
        , bottomKey(values.column(bottomKeyName))
        , bottomValue(values.column(bottomValueName))
        , closeness(values.integer(QStringLiteral("Fuzziness")))
        , firstOnly(values.choice(QStringLiteral("Bottom_Values_Used")) == 0)
        , fuzzyUse(values.choice(QStringLiteral("Fuzzy_Bottom_Values_Used")))
        , ignoreEmpty(values.flag(QStringLiteral("Empty_Values")))
        , delimiter(values.text(QStringLiteral("Delim")))
        , useMissText(values.choice(QStringLiteral("If_No_Match")) == 0)
        , missText(values.text(QStringLiteral("Non_Matching_Value")))
        , caseSensitive(values.flag(QStringLiteral("Case_Sensitive")))
        , arena(new TextArena)
    {
    }
    bool isReady() const { return topKey.isValid() && bottomKey.isValid() && bottomValue.isValid(); }
    bool isSkipped(int bottomRow) const { return ignoreEmpty && bottomValues.at(bottomRow).isEmpty(); }
    void prepare()
    {
        topKeys = keyColumn(top.column(topKey), caseSensitive);
        bottomKeys = keyColumn(bottom.column(bottomKey), caseSensitive);
        bottomValues = bottom.column(bottomValue);
        if (match == LookupMatch::Exact) {
            index = std::make_unique<KeyIndex>(bottomKeys);
        } else if (match == LookupMatch::Fuzzy) {
            prepareSimilarKeys();
        } else {
            QString topFormat;
            QString bottomFormat;
            top.isColumnDate(topKey, dateFormats(), &topFormat);
            bottom.isColumnDate(bottomKey, dateFormats(), &bottomFormat);
            matcher = std::make_unique<LookupMatcher>(match, bottomKeys, bottomFormat, topFormat);
        }
    }
    /// The first bottom row with the key is all that is wanted.
    bool isOneLookUp() const { return match == LookupMatch::Exact && firstOnly && !ignoreEmpty; }
    /// The share of the work that reading the bottom keys was.
    qreal fractionBeforeRows() const
    {
        const qreal rows = static_cast<qreal>(top.rowCount()) + bottom.rowCount();
        return match == LookupMatch::Exact && rows > 0 ? bottom.rowCount() / rows : 0.0;
    }

    void prepareSimilarKeys()
    {
        similar = std::make_unique<SimilarKeys>(1, closeness);
        for (int row = 0; row < bottomKeys.size(); ++row) {
            if (!isSkipped(row)) {
                similar->append({bottomKeys.at(row).text()});
                similarRows.append(row);
            }
        }
    }

    const Dataset &top;
    const Dataset &bottom;
    const LookupMatch match;
    const ColumnIndex topKey;
    const ColumnIndex bottomKey;
    const ColumnIndex bottomValue;
    const int closeness;
    const bool firstOnly;
    const int fuzzyUse;
    const bool ignoreEmpty;
    const QString delimiter;
    const bool useMissText;
    const QString missText;
    const bool caseSensitive;
    CellColumn topKeys;
    CellColumn bottomKeys;
    CellColumn bottomValues;
    std::unique_ptr<KeyIndex> index;
    std::unique_ptr<LookupMatcher> matcher;
    std::unique_ptr<SimilarKeys> similar;
    QVector<int> similarRows; ///< bottom row of each key that is compared
    TextArenaPointer arena;
    int matched = 0;
    CappedList misses;
};

OptionTable TransformLookup::options() const
{
    const QString matchType = QStringLiteral("Match_Type");
    const QString used = QStringLiteral("Bottom_Values_Used");
    const QString fuzzyUsed = QStringLiteral("Fuzzy_Bottom_Values_Used");
    const QString usedLabel = QStringLiteral("Bottom values used");
    const QString noMatchLabel = QStringLiteral("If no match");
    const QString all = QStringLiteral("All");
    const QString firstBest = QStringLiteral("First best");
    const QString allBest = QStringLiteral("All best");
    const QString useNoMatchValue = QStringLiteral("Use no match value");
    const auto isFuzzy = [matchType](const OptionValues &values) { return values.choice(matchType) == 1; };
    const auto isNotFuzzy = [isFuzzy](const OptionValues &values) { return !isFuzzy(values); };
    return AddedColumn::withNameOptions(
        {
            Option::column(topKeyName, topKeyLabel)
                .ofInput(0)
                .tip(QStringLiteral("Select the column in the top input dataset that you want to lookup in the bottom "
                                    "input dataset.")),
            Option::column(bottomKeyName, bottomKeyLabel)
                .ofInput(1)
                .tip(QStringLiteral("Select a column in the bottom dataset matching '%1'.").arg(topKeyLabel)),
            Option::column(bottomValueName, QStringLiteral("Bottom value column"))
                .ofInput(1)
                .tip(QStringLiteral("Select a column in the bottom dataset containing the values you want to lookup.")),
            Option::selection(matchType, QStringLiteral("Matching"), matchTypes())
                .tip(QStringLiteral(
                    "How to match keys.\nExact matches as text.\nFuzzy matching allows matching of rows that are "
                    "close, "
                    "but not identical.\nRegex matches values in the top dataset with regular expressions in the "
                    "bottom "
                    "dataset.\nEqual matches dates and numeric as dates and numeric.\nExact matching is fastest. Other "
                    "matches types may be much slower.\nClick the ? button for more details.")),
            Option::integer(QStringLiteral("Fuzziness"), QStringLiteral("Closeness"), 80)
                .limits(40, 99)
                .suffix(QStringLiteral("%"))
                .activeWhen(isFuzzy)
                .tip(QStringLiteral("How close the match has to be as a percentage to be considered a match.")),
            Option::selection(used, usedLabel, {QStringLiteral("First"), all})
                .activeWhen(isNotFuzzy)
                .tip(
                    QStringLiteral("If '%1' has duplicates, select whether to use the first lookup value or all unique "
                                   "lookup values.")
                        .arg(bottomKeyLabel)),
            Option::selection(fuzzyUsed, usedLabel, {firstBest, allBest, all})
                .activeWhen(isFuzzy)
                .tip(QStringLiteral(
                    "If '%1' has more than one fuzzy match, select whether to use:\n'%2': The best match. If there are "
                    "multiple values that are an equally good match, use the first one.\n'%3': The best matches. If "
                    "there "
                    "are multiple values that are equally good, use all of them. Duplicate values are only shown "
                    "once.\n'%4': All matches. Duplicate values are only shown once.")
                         .arg(usedLabel, firstBest, allBest, all)),
            Option::flag(QStringLiteral("Empty_Values"), QStringLiteral("ignore empty values"))
                .tip(QStringLiteral("Check to ignore bottom dataset rows with empty values.")),
            Option::text(QStringLiteral("Delim"), QStringLiteral("Delimiter"), QStringLiteral(","))
                .activeWhen(
                    [=](const OptionValues &values) { return values.choice(isFuzzy(values) ? fuzzyUsed : used) != 0; })
                .tip(QStringLiteral("The delimiter to use between concatenated terms for '%1'='%2' or '%1'='%3'.")
                         .arg(usedLabel, all, allBest)),
            Option::selection(
                QStringLiteral("If_No_Match"), noMatchLabel, {useNoMatchValue, QStringLiteral("Leave unchanged")})
                .tip(QStringLiteral("What to do if there is of no match amongst lookup values.")),
            Option::text(QStringLiteral("Non_Matching_Value"), QStringLiteral("No match value"))
                .notRequired()
                .activeWhen(QStringLiteral("If_No_Match"), {useNoMatchValue})
                .tip(QStringLiteral("The value to set for any value in '%1' not found in '%2' when '%3' set to "
                                    "'%4'.\nYou can use column "
                                    "variables. e.g. $(1) to reference the first column value in the top dataset.\nSee "
                                    "'Column variables' "
                                    "in the help.")
                         .arg(topKeyLabel, bottomKeyLabel, noMatchLabel, useNoMatchValue)),
            Option::flag(QStringLiteral("Case_Sensitive"), QStringLiteral("case sensitive"), true)
                .tip(QStringLiteral("Check for case sensitive text matching.")),
        },
        displayName());
}

void TransformLookup::adjustNewParameters(const QList<DataSource *> &inputs, bool isNew)
{
    if (!isNew) {
        return;
    }
    Parameter *key = parameter(bottomKeyName);
    suggestKeyColumns(parameter(topKeyName), key, false);
    if (inputs.size() < 2 || inputs.at(1)->datasetConst().columnCount() != 2) {
        return;
    }
    const Dataset &bottom = inputs.at(1)->datasetConst();
    if (!key->toColumnNumber().isValid()) {
        key->setValue(QVariant::fromValue(bottom.columnId(ColumnIndex(0))));
    }
    const ColumnIndex other(key->toColumnNumber() == ColumnNumber(1) ? 1 : 0);
    parameter(bottomValueName)->setValue(QVariant::fromValue(bottom.columnId(other)));
}

Dataset TransformLookup::computeIncomplete(const Inputs &inputs)
{
    return inputs.isEmpty() ? Dataset()
                            : withoutValues(OptionValues(parameters()), *inputs.first(), TwoInputs::connectSecond());
}

Dataset TransformLookup::withoutValues(const OptionValues &values, const Dataset &top, const QString &resultText)
{
    Dataset result = top;
    result.appendEmptyColumn();
    setResultText(resultText);
    nameNewColumn(result, AddedColumn::name(values, displayName()));
    return result;
}

void TransformLookup::nameNewColumn(Dataset &result, const QString &name) const
{
    QStringList names = result.columnNames();
    names.last() = name;
    result.setHeader(names);
}

Dataset TransformLookup::compute(const OptionValues &values, const Inputs &inputs)
{
    Task task(values, *inputs.at(0), *inputs.at(1));
    if (!task.isReady()) {
        return withoutValues(values, task.top, Messages::noChanges());
    }
    task.prepare();
    Dataset result = task.top;
    result.appendEmptyColumn();
    fillColumn(task, result);
    if (task.match == LookupMatch::Exact) {
        reportDuplicateKeys(warningList(), task.bottom, task.bottomKey, task.caseSensitive, bottomKeyLabel);
    }
    reportMisses(task.misses);
    reportKeyWhitespace(infoList(), task.top, task.topKey, task.caseSensitive, topKeyLabel);
    reportKeyWhitespace(infoList(), task.bottom, task.bottomKey, task.caseSensitive, bottomKeyLabel);
    nameNewColumn(result, AddedColumn::name(values,
                              QStringLiteral("%1 %2").arg(displayName(), task.bottom.columnName(task.bottomValue))));
    setResultText(QStringLiteral("%1 matched, %2 unmatched")
                      .arg(Messages::count(task.matched), Messages::count(task.misses.count())));
    return result;
}

void TransformLookup::fillColumn(Task &task, Dataset &result)
{
    const int rowCount = task.top.rowCount();
    CellColumn column;
    column.keepAllOf(task.bottomValues);
    column.keepAllOf(task.top.column(task.topKey));
    column.keep(task.arena);
    column.cells.resize(rowCount);
    Cell *cells = column.cells.data();

    // What a key finds depends on nothing but the key, so rows with equal keys share it where finding it takes longer
    // than one look-up.
    const bool shared = !task.isOneLookUp();
    const KeyIndex sameKeys(shared ? task.topKeys : CellColumn());
    std::vector<Found> known(shared ? static_cast<size_t>(rowCount) : 0U);
    const VariableTemplate missText(task.top, task.missText);
    const int step = task.match == LookupMatch::Fuzzy ? 10 : progressStep;
    const qreal begun = task.fractionBeforeRows();
    for (int row = 0; row < rowCount; ++row) {
        if (row % step == 0) {
            emit processed(begun + (1 - begun) * row / rowCount);
        }
        const int first = shared ? sameKeys.firstRow(task.topKeys.at(row)) : row;
        Found found;
        if (first != row) {
            found = known[static_cast<size_t>(first)];
        } else {
            found = valueFor(task, row);
            if (shared) {
                known[static_cast<size_t>(row)] = found;
            }
        }
        task.matched += found.matched;
        cells[row] = found.matched ? found.cell : missedValue(task, missText, row);
    }
    result.setColumn(result.lastColumn(), column);
}

Cell TransformLookup::missedValue(Task &task, const VariableTemplate &missText, int topRow)
{
    const Cell &key = task.top.column(task.topKey).at(topRow);
    task.misses.add([&] { return QStringLiteral("'%1' at row %2").arg(key.text(), QString::number(topRow + 1)); });
    if (!task.useMissText) {
        return key;
    }
    return task.missText.isEmpty() ? Cell() : task.arena->store(missText.text(task.top, RowIndex(topRow)));
}

TransformLookup::Found TransformLookup::valueFor(Task &task, int topRow)
{
    switch (task.match) {
    case LookupMatch::Exact:
        return exactValue(task, topRow);
    case LookupMatch::Fuzzy:
        return fuzzyValue(task, topRow);
    default:
        return comparedValue(task, topRow);
    }
}

TransformLookup::Found TransformLookup::exactValue(Task &task, int topRow)
{
    int row = task.index->firstRow(task.topKeys.at(topRow));
    while (row >= 0 && task.isSkipped(row)) {
        row = task.index->nextRow(row);
    }
    if (row < 0) {
        return Found();
    }
    const int next = task.index->nextRow(row);
    if (task.firstOnly || next < 0) {
        return {task.bottomValues.at(row), true};
    }
    ValueList list;
    for (; row >= 0; row = task.index->nextRow(row)) {
        if (!task.isSkipped(row)) {
            list.add(task.bottomValues.at(row).text());
        }
    }
    return {task.arena->store(list.joined(task.delimiter)), true};
}

TransformLookup::Found TransformLookup::fuzzyValue(Task &task, int topRow)
{
    const QStringList key{task.topKeys.at(topRow).text()};
    if (task.fuzzyUse == Task::FirstBest) {
        const SimilarKeys::Match match = task.similar->closest(key);
        return match.index < 0 ? Found() : Found{task.bottomValues.at(task.similarRows.at(match.index)), true};
    }
    const QVector<SimilarKeys::Match> matches = task.similar->all(key);
    int best = -1;
    for (const SimilarKeys::Match &match : matches) {
        best = qMax(best, match.closeness);
    }
    ValueList list;
    for (const SimilarKeys::Match &match : matches) {
        if (task.fuzzyUse == Task::AllMatches || match.closeness == best) {
            list.add(task.bottomValues.at(task.similarRows.at(match.index)).text());
        }
    }
    return list.isEmpty() ? Found() : Found{task.arena->store(list.joined(task.delimiter)), true};
}

TransformLookup::Found TransformLookup::comparedValue(Task &task, int topRow)
{
    ValueList list;
    bool matched = false;
    task.matcher->match(task.topKeys.at(topRow).text(), [&](int row) {
        matched = true;
        if (task.isSkipped(row)) {
            return true;
        }
        list.add(task.bottomValues.at(row).text());
        return !task.firstOnly;
    });
    return {task.arena->store(list.joined(task.delimiter)), matched};
}

void TransformLookup::reportMisses(const CappedList &misses)
{
    if (misses.count() == 0) {
        return;
    }
    QStringList lines{
        QStringLiteral("%1 %2 in the %3:")
            .arg(Messages::count(misses.count()), Messages::word(misses.count(), "miss", "misses"), bottomKeyLabel)};
    lines += misses.lines("other miss", "other misses");
    addInfo(lines.join(QLatin1Char('\n')));
}

TRANSFORM_FACTORY(TransformLookup)
