#pragma once

#include "spreadsheet/xlsx/xlsxwritepackage.h"

/// A workbook of another program with all that a sheet can bring along: two worksheets and a chart sheet, a table, a
/// chart, a comment, links, conditional formats, validation, a filter, defined names, rich texts, a shared formula and
/// an order of calculation.
TestPackage foreignWorkbook();
