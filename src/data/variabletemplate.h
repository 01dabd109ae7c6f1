#pragma once

#include "data/indexes.h"
#include "data/textbuffer.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

class Dataset;

/// A text with "$(name)" variables, prepared once for a loop over rows; gives what Dataset::substituteVariables gives.
/// Values are taken from the table handed to each call, which has the columns of the one it was made for.
class VariableTemplate
{
public:
    VariableTemplate(const Dataset &dataset, const QString &text);
    VariableTemplate(const QHash<QString, ColumnIndex> &variables, int columnCount, const QString &text);

    /// A text in which `tokens`, such as "$(1)", are replaced by the values of their columns in the given order.
    static VariableTemplate inOrder(const QVector<QPair<QString, ColumnIndex>> &tokens, const QString &text);

    /// True when every row gives the same text.
    bool isConstant() const { return m_pieces.isEmpty(); }
    QString text(const Dataset &dataset, RowIndex row) const;
    /// Replaces what `out` holds by the text in WTF-8.
    void write(const Dataset &dataset, RowIndex row, TextBuffer &out) const;

private:
    struct Variable
    {
        QString token;
        ColumnIndex column;
        int nameSize;
    };
    /// A text that stands as it is, or the value of a column.
    struct Part
    {
        QString text;
        ColumnIndex column;
    };
    struct Piece
    {
        QByteArray literal; ///< in front of the value
        ColumnIndex column;
    };
    VariableTemplate() = default;
    void split();
    bool writeDirectly(const Dataset &dataset, RowIndex row, TextBuffer &out) const;
    QString replaceInTurn(const Dataset &dataset, RowIndex row) const;

    QVector<Variable> m_variables; ///< in the order of their replacement
    QString m_text;
    QVector<Piece> m_pieces;
    QByteArray m_tail;
    bool m_sequential = false;
};
