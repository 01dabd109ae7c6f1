#include "spreadsheet/sheet.h"

#include "spreadsheet/bookdata.h"

namespace spreadsheet {
namespace {

bool isInside(const CellRange &range, FileKind kind)
{
    return range.rowFirst >= 0 && range.columnFirst >= 0 && range.rowFirst <= range.rowLast
           && range.columnFirst <= range.columnLast && range.rowLast < maxRows(kind)
           && range.columnLast < maxColumns(kind);
}

} // namespace

Sheet::Sheet(BookData *book, const QString &name)
    : m_book(book)
    , m_name(name)
{
}

// Reading

CellType Sheet::cellType(int row, int column) const
{
    const CellRecord *cell = m_cells.cell(row, column);
    return cell ? cell->type : CellType::Empty;
}

bool Sheet::isFormula(int row, int column) const
{
    const CellRecord *cell = m_cells.cell(row, column);
    return cell && cell->isFormula;
}

double Sheet::readNum(int row, int column) const
{
    const CellRecord *cell = m_cells.cell(row, column);
    const bool hasNumber = cell
                           && (cell->type == CellType::Number || cell->type == CellType::Boolean
                               || cell->type == CellType::StrictDate);
    return hasNumber ? cell->number : 0.0;
}

QString Sheet::readStr(int row, int column) const
{
    const CellRecord *cell = m_cells.cell(row, column);
    if (!cell || cell->type != CellType::String) {
        return {};
    }
    const std::string_view text = m_book->texts.text(cell->textId());
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

bool Sheet::isDate(int row, int column) const
{
    const CellRecord *cell = m_cells.cell(row, column);
    return cell && m_book->isDate(*cell);
}

bool Sheet::rowHidden(int row) const
{
    const GridRow *found = m_cells.row(row);
    return found ? found->hidden : m_layout.otherRowsHidden;
}

bool Sheet::colHidden(int column) const
{
    const ColumnRecord *found = m_layout.column(column);
    return found && found->hidden;
}

double Sheet::rowHeight(int row) const
{
    const GridRow *found = m_cells.row(row);
    return found && !found->hasFittedHeight ? static_cast<double>(found->height) : -1.0;
}

double Sheet::colWidth(int column) const
{
    const ColumnRecord *found = m_layout.column(column);
    return found ? found->width : -1.0;
}

const Format *Sheet::cellFormat(int row, int column) const
{
    const CellRecord *cell = m_cells.cell(row, column);
    return cell ? m_book->format(cell->format) : nullptr;
}

// Writing

CellRecord *Sheet::cellForWriting(int row, int column, const Format *format)
{
    if (row < 0 || column < 0 || row >= maxRows(m_book->kind) || column >= maxColumns(m_book->kind)) {
        return nullptr;
    }
    CellRecord &cell = m_cells.cellFor(row, column);
    m_cells.rowFor(row).dropFittedHeight();
    cell.format = format ? format->index() : 0;
    m_changed = true;
    return &cell;
}

bool Sheet::writeStr(int row, int column, const QString &text, const Format *format)
{
    const QByteArray bytes = text.toUtf8();
    return writeText(row, column, {bytes.constData(), static_cast<size_t>(bytes.size())}, format);
}

bool Sheet::writeText(int row, int column, std::string_view text, const Format *format)
{
    CellRecord *cell = cellForWriting(row, column, format);
    if (cell) {
        cell->setTextId(m_book->texts.add(text));
    }
    return cell;
}

bool Sheet::writeNum(int row, int column, double value, const Format *format)
{
    CellRecord *cell = qIsFinite(value) ? cellForWriting(row, column, format) : nullptr;
    if (cell) {
        cell->number = value;
        cell->type = CellType::Number;
    }
    return cell;
}

bool Sheet::writeBool(int row, int column, bool value, const Format *format)
{
    CellRecord *cell = cellForWriting(row, column, format);
    if (cell) {
        cell->number = value ? 1.0 : 0.0;
        cell->type = CellType::Boolean;
    }
    return cell;
}

bool Sheet::writeFormula(int row, int column, const QString &text, const Format *format)
{
    const QString trimmed = text.trimmed();
    const QString formula = trimmed.startsWith(QLatin1Char('=')) ? trimmed.mid(1) : trimmed;
    CellRecord *cell = formula.isEmpty() ? nullptr : cellForWriting(row, column, format);
    if (cell) {
        cell->number = 0.0;
        cell->type = CellType::Number;
        m_cells.setFormula(row, column, {formula.toUtf8(), QByteArray()});
    }
    return cell;
}

bool Sheet::setCellFormat(int row, int column, const Format *format)
{
    const CellRecord *present = m_cells.cell(row, column);
    if (present) {
        // Looked up anew by row, since cellFor() would drop a formula.
        GridRow &cells = m_cells.rowFor(row);
        const auto place = static_cast<size_t>(present - cells.cells.data());
        cells.cells[place].format = format ? format->index() : 0;
        cells.dropFittedHeight();
        m_changed = true;
        return true;
    }
    CellRecord *cell = cellForWriting(row, column, format);
    if (cell) {
        cell->type = CellType::Blank;
    }
    return cell;
}

void Sheet::clear(int rowFirst, int rowLast, int columnFirst, int columnLast)
{
    m_cells.clear(rowFirst, rowLast, columnFirst, columnLast);
    m_changed = true;
}

void Sheet::delHyperlink(int index)
{
    if (index < 0 || index >= hyperlinkSize()) {
        return;
    }
    m_layout.hyperlinks.erase(m_layout.hyperlinks.begin() + index);
    m_layout.hyperlinksChanged = true;
    m_changed = true;
}

bool Sheet::addHyperlink(const QString &target, int rowFirst, int rowLast, int columnFirst, int columnLast)
{
    const CellRange range{rowFirst, rowLast, columnFirst, columnLast};
    if (target.isEmpty() || target.size() > maxHyperlinkLength || hyperlinkSize() >= maxHyperlinks
        || !isInside(range, m_book->kind)) {
        return false;
    }
    m_layout.hyperlinks.push_back({range, target, QByteArray()});
    m_layout.hyperlinksChanged = true;
    m_changed = true;
    return true;
}

bool Sheet::setCol(int column, double width, bool hidden)
{
    if (column < 0 || column >= maxColumns(m_book->kind)) {
        return false;
    }
    m_layout.setColumn(column, width, hidden);
    m_changed = true;
    return true;
}

bool Sheet::setRow(int row, double height, bool hidden)
{
    if (row < 0 || row >= maxRows(m_book->kind)) {
        return false;
    }
    GridRow &changed = m_cells.rowFor(row);
    changed.height = static_cast<float>(height);
    changed.hasFittedHeight = false;
    changed.hidden = hidden;
    m_changed = true;
    return true;
}

bool Sheet::setMerge(const CellRange &range)
{
    if (!isInside(range, m_book->kind)) {
        return false;
    }
    for (const CellRange &other : m_layout.merges) {
        if (range.rowFirst <= other.rowLast && other.rowFirst <= range.rowLast && range.columnFirst <= other.columnLast
            && other.columnFirst <= range.columnLast) {
            return false;
        }
    }
    m_layout.merges.push_back(range);
    m_layout.mergesChanged = true;
    m_changed = true;
    return true;
}

void Sheet::delMerge(int index)
{
    m_layout.merges.erase(m_layout.merges.begin() + index);
    m_layout.mergesChanged = true;
    m_changed = true;
}

} // namespace spreadsheet
