#pragma once

#include <QStringList>
#include <QVector>

class Dataset;

/// Finds out which column of each stacked table goes under which column of the result, and says so line by line.
class StackAlignment
{
public:
    enum By { HeaderName, ColumnNumber };

    StackAlignment(By by, bool onlyFirstColumns, const QVector<const Dataset *> &inputs);

    /// Where a column of the result takes its name and id from.
    struct Origin
    {
        int input;
        int column;
    };
    const QVector<Origin> &columns() const { return m_columns; }
    /// The column of input `input` that goes under column `column` of the result, or -1.
    int source(int input, int column) const { return m_sources.at(input).value(column, -1); }
    const QStringList &infos() const { return m_infos; }
    const QStringList &warnings() const { return m_warnings; }
    /// "Input 1 (3 rows, 2 cols)"
    QString inputText(int input) const;

private:
    void addInfo(const QString &text);
    QString nameOf(int column) const;
    void addColumn(int input, int column);
    void alignByNumber(int input);
    void alignByName(int input);
    void reportEqualNames();
    void reportMissingColumns();

    const By m_by;
    const bool m_onlyFirst;
    const QVector<const Dataset *> m_inputs;
    QVector<QStringList> m_names; ///< of each input
    QVector<Origin> m_columns;
    QVector<QVector<int>> m_sources;
    QStringList m_infos;
    QStringList m_warnings;
};
