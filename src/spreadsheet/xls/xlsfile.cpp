#include "spreadsheet/xls/xlsfile.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/xls/compoundfile.h"
#include "spreadsheet/xls/globalsreader.h"
#include "spreadsheet/xls/xlserrors.h"
#include "spreadsheet/xls/xlssheetreader.h"

#include <QFile>
#include <QFileInfo>

namespace spreadsheet {
namespace {

constexpr qint64 headSize = 512;

/// The stream of the workbook; -1 for none. Where there are two, the other one is for programs from before version 97.
int findWorkbook(const CompoundFile &file)
{
    const int part = file.find(QStringLiteral("Workbook"));
    return part >= 0 ? part : file.find(QStringLiteral("Book"));
}

/// Why a compound file without a workbook has none.
QString missingWorkbookText(const CompoundFile &file)
{
    if (file.find(QStringLiteral("EncryptedPackage")) >= 0) {
        return encryptedText();
    }
    return QStringLiteral("The file holds no workbook.");
}

} // namespace

XlsFile::XlsFile() = default;
XlsFile::~XlsFile() = default;

bool XlsFile::load(const QString &path, BookData &book)
{
    QFile file(path);
    // Reading from anything but a plain file might never end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return fail(QStringLiteral("The file can't be read."));
    }
    const QByteArray head = file.read(headSize);
    file.close();
    if (!CompoundFile::isCompound(head)) {
        return fail(foreignFileText(head));
    }
    CompoundFile compound;
    if (!compound.open(path)) {
        return fail(compound.error());
    }
    const int part = findWorkbook(compound);
    if (part < 0) {
        return fail(missingWorkbookText(compound));
    }
    auto source = std::make_unique<XlsSource>();
    source->path = path;
    source->streamName = compound.parts()[static_cast<size_t>(part)].path;
    if (!compound.read(part, &source->workbook)) {
        return fail(compound.error());
    }
    GlobalsReader globals(*source, book);
    if (!globals.read()) {
        return fail(globals.error());
    }
    m_source = std::move(source);
    return true;
}

bool XlsFile::readSheet(int source, BookData &book, Sheet &sheet)
{
    QString error;
    const auto number = static_cast<size_t>(source);
    if (!m_source || number >= m_source->sheets.size()) {
        return fail(QStringLiteral("The sheet isn't in the file."));
    }
    return readXlsSheet(*m_source, m_source->sheets[number], book, sheet, &error) || fail(error);
}

bool XlsFile::hasCells(int source, BookData &)
{
    const auto number = static_cast<size_t>(source);
    return m_source && number < m_source->sheets.size() && hasXlsCells(*m_source, m_source->sheets[number]);
}

} // namespace spreadsheet
