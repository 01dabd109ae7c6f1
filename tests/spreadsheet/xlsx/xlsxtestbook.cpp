#include "spreadsheet/xlsx/xlsxtestbook.h"

#include "spreadsheet/cellerror.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <zip.h>

using namespace spreadsheet;

const QByteArray XlsxTestBook::sheetName = "xl/worksheets/data.xml";
const QByteArray XlsxTestBook::officeRelations = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

namespace {

const QByteArray mainNamespace = "\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";
const QByteArray relationsNamespace = "\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"";

QByteArray rooted(const QByteArray &root, const QByteArray &content)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><" + root + " xmlns=" + mainNamespace
           + " xmlns:r=" + relationsNamespace + ">" + content + "</" + root + ">";
}

QByteArray relation(const QByteArray &id, const QByteArray &kind, const QByteArray &target)
{
    return "<Relationship Id=\"" + id + "\" Type=\"" + XlsxTestBook::officeRelations + kind + "\" Target=\"" + target
           + "\"/>";
}

QByteArray relationsPart(const QByteArray &relations)
{
    return "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">" + relations
           + "</Relationships>";
}

QString valueText(const Book &book, const CellRecord &cell)
{
    switch (cell.type) {
    case CellType::String: {
        const std::string_view text = book.text(cell.textId());
        return '"' + QString::fromUtf8(text.data(), static_cast<int>(text.size())) + '"';
    }
    case CellType::Boolean:
        return cell.number == 0.0 ? "false" : "true";
    case CellType::Error: {
        const std::string_view text = errorText(static_cast<int>(cell.number));
        return QString::fromLatin1(text.data(), static_cast<int>(text.size()));
    }
    case CellType::Blank:
        return "~";
    default:
        return (cell.type == CellType::StrictDate ? "d:" : "") + QString::number(cell.number, 'g', 15);
    }
}

} // namespace

QByteArray zipped(const QMap<QByteArray, QByteArray> &parts, bool packed)
{
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t *target = zip_source_buffer_create(nullptr, 0, 0, &error);
    zip_t *archive = zip_open_from_source(target, ZIP_TRUNCATE, &error);
    zip_source_keep(target);
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        zip_source_t *content = zip_source_buffer(
            archive, part->constData(), static_cast<zip_uint64_t>(part->size()), 0);
        const zip_int64_t index = zip_file_add(archive, part.key().constData(), content, ZIP_FL_ENC_UTF_8);
        zip_set_file_compression(
            archive, static_cast<zip_uint64_t>(index), packed ? ZIP_CM_DEFLATE : ZIP_CM_STORE, packed ? 1 : 0);
    }
    zip_close(archive);
    QByteArray bytes;
    zip_stat_t state;
    if (zip_source_stat(target, &state) == 0 && zip_source_open(target) == 0) {
        bytes.resize(static_cast<int>(state.size));
        zip_source_read(target, bytes.data(), state.size);
        zip_source_close(target);
    }
    zip_source_free(target);
    return bytes;
}

XlsxTestBook::XlsxTestBook()
{
    part("[Content_Types].xml", "<Types/>");
    part("_rels/.rels", relationsPart(relation("a", "officeDocument", "xl/workbook.xml")));
    part("xl/workbook.xml", rooted("workbook", "<sheets><sheet name=\"Data\" sheetId=\"3\" r:id=\"s1\"/></sheets>"));
    part("xl/_rels/workbook.xml.rels",
        relationsPart(relation("s1", "worksheet", "worksheets/data.xml") + relation("s2", "sharedStrings", "texts.xml")
                      + relation("s3", "styles", "styles.xml") + relation("s4", "theme", "theme/theme.xml")));
    rows(QByteArray());
}

XlsxTestBook &XlsxTestBook::sheet(const QByteArray &content)
{
    return part(sheetName, rooted("worksheet", content));
}

XlsxTestBook &XlsxTestBook::texts(const QByteArray &items)
{
    return part("xl/texts.xml", rooted("sst", items));
}

XlsxTestBook &XlsxTestBook::styles(const QByteArray &content)
{
    return part("xl/styles.xml", rooted("styleSheet", content));
}

XlsxTestBook &XlsxTestBook::relations(const QByteArray &name, const QByteArray &content)
{
    return part(name, relationsPart(content));
}

LoadedXlsx::LoadedXlsx(const QByteArray &file)
{
    // One folder for all, since some tests read thousands of files.
    static const QTemporaryDir folder;
    static int count = 0;
    m_path = folder.filePath(QString("book%1.xlsx").arg(++count));
    QFile written(m_path);
    if (written.open(QIODevice::WriteOnly)) {
        written.write(file);
        written.close();
        m_isLoaded = m_book.load(m_path);
    }
}

LoadedXlsx::~LoadedXlsx()
{
    QFile::remove(m_path);
}

QString LoadedXlsx::cells()
{
    const Sheet *sheet = m_isLoaded ? first() : nullptr;
    if (!sheet) {
        return m_book.errorMessage();
    }
    QStringList texts;
    for (const auto &[row, content] : sheet->cells()) {
        for (const CellRecord &cell : content.cells) {
            QString text = QString::fromLatin1(cellReference(row, cell.column)) + '=' + valueText(m_book, cell);
            if (cell.format != 0) {
                text += '/' + QString::number(cell.format);
            }
            if (cell.isFormula) {
                text += '{' + QString::fromUtf8(sheet->cells().formula(row, cell.column)->stored) + '}';
            }
            texts.append(text);
        }
    }
    return texts.join(' ');
}
