#include "spreadsheet/book.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/bookfile.h"
#include "spreadsheet/datesystem.h"

namespace spreadsheet {
namespace {

bool isNameValid(const QString &name)
{
    static const QString forbidden = QStringLiteral("\\/*?:[]");
    if (name.isEmpty() || name.size() > maxSheetNameLength || name.startsWith(QLatin1Char('\''))
        || name.endsWith(QLatin1Char('\'')) || name.toLower() == QLatin1String("history")) {
        return false;
    }
    for (const QChar c : name) {
        if (forbidden.contains(c) || c.unicode() < 0x20) {
            return false;
        }
    }
    return true;
}

/// What a format has that nobody has changed.
CellStyle usualStyle(const BookData &book)
{
    CellStyle style;
    if (const Format *first = book.format(0)) {
        style.font = first->style().font;
    } else if (book.kind == FileKind::Xls) {
        style.font.size = 10.0;
    }
    return style;
}

} // namespace

Book::Book(FileKind kind)
    : m_data(new BookData)
    , m_file(BookFile::create(kind))
{
    m_data->kind = kind;
    m_data->addFormat(usualStyle(*m_data));
}

Book::~Book() = default;

FileKind Book::kind() const
{
    return m_data->kind;
}

bool Book::load(const QString &path)
{
    const FileKind kind = m_data->kind;
    m_data.reset(new BookData);
    m_data->kind = kind;
    const bool loaded = m_file->load(path, *m_data);
    if (!loaded) {
        m_error = m_file->error();
        m_data.reset(new BookData);
        m_data->kind = kind;
        m_file = BookFile::create(kind);
    }
    if (m_data->formats.empty()) {
        m_data->addFormat(usualStyle(*m_data));
    }
    m_data->loadedFormats = loaded ? static_cast<quint32>(m_data->formats.size()) : 0;
    return loaded;
}

int Book::sheetCount() const
{
    return static_cast<int>(m_data->sheets.size());
}

int Book::sheetType(int index) const
{
    return index >= 0 && index < sheetCount() ? m_data->sheets[static_cast<size_t>(index)].type : -1;
}

QString Book::getSheetName(int index) const
{
    return index >= 0 && index < sheetCount() ? m_data->sheets[static_cast<size_t>(index)].name : QString();
}

Sheet *Book::getSheet(int index)
{
    if (sheetType(index) != SheetEntry::worksheet) {
        return nullptr;
    }
    SheetEntry &entry = m_data->sheets[static_cast<size_t>(index)];
    if (!entry.sheet) {
        auto sheet = std::make_unique<Sheet>(m_data.get(), entry.name);
        if (!m_file->readSheet(entry.source, *m_data, *sheet)) {
            m_error = m_file->error();
            return nullptr;
        }
        sheet->setChanged(false);
        entry.sheet = std::move(sheet);
    }
    return entry.sheet.get();
}

bool Book::sheetHasCells(int index)
{
    if (sheetType(index) != SheetEntry::worksheet) {
        return false;
    }
    const SheetEntry &entry = m_data->sheets[static_cast<size_t>(index)];
    return entry.sheet ? entry.sheet->lastRow() > 0 : m_file->hasCells(entry.source, *m_data);
}

void Book::releaseSheet(int index)
{
    if (index < 0 || index >= sheetCount()) {
        return;
    }
    SheetEntry &entry = m_data->sheets[static_cast<size_t>(index)];
    if (entry.source >= 0 && entry.sheet && !entry.sheet->isChanged()) {
        entry.sheet.reset();
    }
}

bool Book::isNameFree(const QString &name) const
{
    for (const SheetEntry &entry : m_data->sheets) {
        if (entry.name.compare(name, Qt::CaseInsensitive) == 0) {
            return false;
        }
    }
    return true;
}

Sheet *Book::addSheet(const QString &name)
{
    if (!isNameValid(name) || !isNameFree(name)) {
        return nullptr;
    }
    SheetEntry entry;
    entry.name = name;
    entry.sheet = std::make_unique<Sheet>(m_data.get(), name);
    entry.sheet->setChanged(true);
    m_data->sheets.push_back(std::move(entry));
    return m_data->sheets.back().sheet.get();
}

Font *Book::addFont()
{
    m_fonts.push_back(std::make_unique<Font>(usualStyle(*m_data).font));
    return m_fonts.back().get();
}

Format *Book::addFormat(const Format *like)
{
    return m_data->addFormat(like ? like->style() : usualStyle(*m_data));
}

bool Book::dateUnpack(double value, DateParts *parts) const
{
    return unpackDate(value, m_data->uses1904, parts);
}

double Book::datePack(int year, int month, int day, int hour, int minute, int second, int msec) const
{
    return packDate({year, month, day, hour, minute, second, msec}, m_data->uses1904);
}

const QString &Book::whyUnchangeable() const
{
    return m_data->whyUnchangeable;
}

bool Book::save(const QString &path)
{
    if (!m_data->whyUnchangeable.isEmpty()) {
        m_error = m_data->whyUnchangeable;
        return false;
    }
    const bool saved = m_file->save(path, *m_data);
    if (!saved) {
        m_error = m_file->error();
    }
    return saved;
}

const QStringList &Book::warnings() const
{
    return m_data->warnings;
}

std::string_view Book::text(quint32 id) const
{
    return m_data->texts.text(id);
}

const Format *Book::format(quint32 index) const
{
    return m_data->format(index);
}

bool Book::isDate(const CellRecord &cell) const
{
    return m_data->isDate(cell);
}

} // namespace spreadsheet
