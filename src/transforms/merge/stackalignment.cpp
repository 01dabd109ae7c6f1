#include "transforms/merge/stackalignment.h"

#include "data/dataset.h"
#include "text/cappedlist.h"
#include "transforms/frame/messages.h"
#include "transforms/merge/loosenames.h"

#include <QHash>

namespace {

constexpr int mostInfos = 1000;

/// The warnings of one kind; that there are more is said behind the last.
QStringList linesOf(const CappedList &warnings)
{
    QStringList lines = warnings.texts();
    if (warnings.others() > 0) {
        lines.last().append(QStringLiteral("\n...etc"));
    }
    return lines;
}

} // namespace

StackAlignment::StackAlignment(By by, bool onlyFirstColumns, const QVector<const Dataset *> &inputs)
    : m_by(by)
    , m_onlyFirst(onlyFirstColumns)
    , m_inputs(inputs)
{
    for (int input = 0; input < inputs.size(); ++input) {
        m_names.append(inputs.at(input)->columnNames());
        m_sources.append(QVector<int>(m_columns.size(), -1));
        addInfo(inputText(input) + QLatin1Char(':'));
        if (input == 0) {
            for (int column = 0; column < inputs.first()->columnCount(); ++column) {
                addColumn(0, column);
                addInfo(QStringLiteral("Added '%1' (column %2)").arg(nameOf(column), QString::number(column + 1)));
            }
        } else if (by == ColumnNumber) {
            alignByNumber(input);
        } else {
            alignByName(input);
        }
    }
    reportEqualNames();
    reportMissingColumns();
}

void StackAlignment::addInfo(const QString &text)
{
    if (m_infos.size() < mostInfos) {
        m_infos.append(text);
    }
}

QString StackAlignment::nameOf(int column) const
{
    const Origin &origin = m_columns.at(column);
    return m_names.at(origin.input).at(origin.column);
}

QString StackAlignment::inputText(int input) const
{
    const Dataset &dataset = *m_inputs.at(input);
    return QStringLiteral("Input %1 (%2 %3, %4 %5)")
        .arg(QString::number(input + 1), Messages::count(dataset.rowCount()), Messages::rows(dataset.rowCount()),
            Messages::count(dataset.columnCount()), Messages::cols(dataset.columnCount()));
}

void StackAlignment::addColumn(int input, int column)
{
    m_columns.append({input, column});
    QVector<int> &sources = m_sources[input];
    while (sources.size() < m_columns.size()) {
        sources.append(-1);
    }
    sources.last() = column;
}

void StackAlignment::alignByNumber(int input)
{
    const QStringList &names = m_names.at(input);
    const QString dataset = QString::number(input + 1);
    const int before = m_columns.size();
    for (int column = 0; column < qMin(before, names.size()); ++column) {
        m_sources[input][column] = column;
        const QString under = nameOf(column);
        if (names.at(column) != under) {
            const QString number = QString::number(column + 1);
            addInfo(QStringLiteral("Aligned '%1' under '%2' (column %3)").arg(names.at(column), under, number));
            m_warnings.append(QStringLiteral("%1 aligned '%2' under '%3' (column %4)")
                                  .arg(inputText(input), names.at(column), under, number));
        }
    }
    for (int column = names.size(); column < before; ++column) {
        addInfo(
            QStringLiteral("Not enough columns for '%1' (column %2)").arg(nameOf(column), QString::number(column + 1)));
    }
    for (int column = before; column < names.size(); ++column) {
        const QString what = m_onlyFirst ? QStringLiteral("Ignored") : QStringLiteral("Added");
        addInfo(QStringLiteral("%1 '%2' (column %3) from dataset %4")
                    .arg(what, names.at(column), QString::number(column + 1), dataset));
        if (!m_onlyFirst) {
            addColumn(input, column);
        }
    }
    if (m_onlyFirst && names.size() > before) {
        addInfo(QStringLiteral("Ignore last %1 columns in dataset %2")
                    .arg(Messages::count(names.size() - before), dataset));
    }
}

void StackAlignment::alignByName(int input)
{
    const QStringList &names = m_names.at(input);
    const QString dataset = QString::number(input + 1);
    // Columns that this input adds aren't among those that its later columns can go under.
    QStringList targets;
    for (int column = 0; column < m_columns.size(); ++column) {
        targets.append(nameOf(column));
    }
    LooseNames left(targets);
    for (int column = 0; column < names.size(); ++column) {
        const QString number = QString::number(column + 1);
        const int target = left.take(names.at(column));
        if (target >= 0) {
            m_sources[input][target] = column;
            addInfo(QStringLiteral("Aligned '%1' (column %2) under '%3' (column %4)")
                        .arg(names.at(column), number, nameOf(target), QString::number(target + 1)));
            continue;
        }
        const QString what = m_onlyFirst ? QStringLiteral("Ignored") : QStringLiteral("Added");
        addInfo(QStringLiteral("%1 '%2' (column %3) from dataset %4").arg(what, names.at(column), number, dataset));
        if (!m_onlyFirst) {
            addColumn(input, column);
        }
    }
    for (int column = 0; column < targets.size(); ++column) {
        if (!left.isTaken(column)) {
            addInfo(
                QStringLiteral("No match for '%1' (column %2)").arg(targets.at(column), QString::number(column + 1)));
        }
    }
}

void StackAlignment::reportEqualNames()
{
    CappedList warnings;
    for (int input = 0; input < m_inputs.size(); ++input) {
        QHash<QString, int> counts;
        for (const QString &name : m_names.at(input)) {
            ++counts[name];
        }
        for (const QString &name : m_names.at(input)) {
            const int count = counts.take(name); // 0 where the name has been told of
            if (count > 1) {
                warnings.add(QStringLiteral("%1 column(s) named '%2' in input datatset %3")
                                 .arg(Messages::count(count), name, QString::number(input + 1)));
            }
        }
    }
    m_warnings += linesOf(warnings);
}

void StackAlignment::reportMissingColumns()
{
    CappedList warnings;
    for (int input = 0; input < m_inputs.size(); ++input) {
        QStringList missing;
        for (int column = 0; column < m_columns.size(); ++column) {
            if (source(input, column) < 0) {
                missing.append(nameOf(column));
            }
        }
        if (missing.isEmpty()) {
            continue;
        }
        if (m_by == ColumnNumber) {
            warnings.add(QStringLiteral("%1 has %2 column(s) less than the final dataset")
                             .arg(inputText(input), Messages::count(missing.size())));
        } else {
            warnings.add(QStringLiteral("%1 missing %2 column(s) in the final dataset:\n%3")
                             .arg(inputText(input), Messages::count(missing.size()), missing.join(QLatin1Char('\n'))));
        }
    }
    m_warnings += linesOf(warnings);
}
