#pragma once

#include "data/dataset.h"
#include "hostiletext.h"

/// Tables whose column names nest in all ways: shared beginnings, names twice, a name and names below it in either
/// order, empty parts, underscores and exclamation marks.
class NestedTables
{
public:
    explicit NestedTables(uint seed)
        : m_texts(seed, QStringLiteral("\"\\/\b\f\n\r\t<>&'!"))
    {
    }

    int below(int limit) { return m_texts.below(limit); }

    Dataset next()
    {
        Dataset table;
        const int columns = 1 + below(9);
        table.setSize(below(5), columns);
        QStringList names;
        for (int i = 0; i < columns; ++i) {
            names.append(name());
        }
        if (below(20) > 0) {
            table.setHeader(names);
        }
        for (const RowIndex row : table.allRows()) {
            for (const ColumnIndex column : table.allColumns()) {
                table.setValue(row, column, value());
            }
        }
        return table;
    }

private:
    QString name()
    {
        static const char *const parts[] = {"a", "b", "_a", "_b", "", "_", "!a", "_!b", "value", "_value", "__value",
            "a b", "\xC3\xA9", "_\xEF\xBD\x81", "_\xF0\x9D\x92\x9C", "<&>", "a\"b"};
        // Mostly few names, so that they meet.
        const int count = below(3) == 0 ? int(std::size(parts)) : 4;
        QStringList name;
        for (int left = 1 + below(below(3) + 1); left > 0; --left) {
            name.append(QString::fromUtf8(parts[below(count)]));
        }
        return name.join('.');
    }

    QString value()
    {
        static const char *const values[] = {"true", "0", " 1.5 ", "-7", "FALSE", "007", "1e5"};
        switch (below(4)) {
        case 0:
            return m_texts.next(6);
        case 1:
            return QString::fromLatin1(values[below(int(std::size(values)))]);
        case 2:
            return QString::number(below(10));
        default:
            return QString();
        }
    }

    HostileText m_texts;
};
