#pragma once

#include "spreadsheet/book.h"

#include <QStringList>
#include <gtest/gtest.h>

// Sheets as texts that tests compare.

/// A cell as kind and value, with its number format behind a slash where that isn't 0: "12", "'abc/49", "true",
/// "=A1", or empty.
inline QString shown(const spreadsheet::Sheet &sheet, int row, int column)
{
    using spreadsheet::CellType;
    const spreadsheet::Format *format = sheet.cellFormat(row, column);
    const int number = format ? format->style().numberFormat : 0;
    const QString suffix = number == 0 ? QString() : QStringLiteral("/%1").arg(number);
    if (sheet.isFormula(row, column)) {
        return "=" + suffix;
    }
    switch (sheet.cellType(row, column)) {
    case CellType::Number:
        return QString::number(sheet.readNum(row, column), 'g', 17) + suffix;
    case CellType::String:
        return "'" + sheet.readStr(row, column) + suffix;
    case CellType::Boolean:
        return (sheet.readBool(row, column) ? "true" : "false") + suffix;
    case CellType::Empty:
        return QString();
    default:
        return "blank" + suffix;
    }
}

/// The used rows from the first on, cells separated by '|'.
inline QStringList shown(const spreadsheet::Sheet &sheet)
{
    QStringList rows;
    for (int row = 0; row < sheet.lastRow(); ++row) {
        QStringList cells;
        for (int column = 0; column < sheet.lastCol(); ++column) {
            cells.append(shown(sheet, row, column));
        }
        rows.append(cells.join('|'));
    }
    return rows;
}

inline spreadsheet::FileKind kindOfPath(const QString &path)
{
    return path.endsWith(".xls") ? spreadsheet::FileKind::Xls : spreadsheet::FileKind::Xlsx;
}

/// What a file holds: for each sheet its name and, with `cells`, its rows.
inline QStringList shownBook(const QString &path, bool cells = true)
{
    spreadsheet::Book book(kindOfPath(path));
    if (!book.load(path)) {
        return {"no workbook: " + book.errorMessage()};
    }
    QStringList result;
    for (int i = 0; i < book.sheetCount(); ++i) {
        result.append(book.getSheetName(i));
        if (cells) {
            result += shown(*book.getSheet(i));
        }
    }
    return result;
}
