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

    /// True when every row gives the same text.
    bool isConstant() const { return m_pieces.isEmpty(); }
    QString text(const Dataset &dataset, RowIndex row) const;
    /// Replaces what `out` holds by the text in storage form.
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
    void split();
    bool writeDirectly(const Dataset &dataset, RowIndex row, TextBuffer &out) const;
    QString replaceInTurn(const Dataset &dataset, RowIndex row) const;

    QVector<Variable> m_variables; ///< longest first
    QString m_text;
    QVector<Piece> m_pieces;
    QByteArray m_tail;
    bool m_sequential = false;
};
