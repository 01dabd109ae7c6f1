#include "spreadsheet/xlsx/xlsxfile.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/xls/compoundfile.h"
#include "spreadsheet/xlsx/encryptedpackage.h"
#include "spreadsheet/xlsx/sheetreader.h"
#include "spreadsheet/xlsx/stylesreader.h"
#include "spreadsheet/xlsx/workbookreader.h"
#include "spreadsheet/xlsx/xlsxsource.h"

#include <QFile>
#include <QFileInfo>

namespace spreadsheet {
namespace {

QString encryptedText()
{
    return QStringLiteral("The file is encrypted");
}

/// What to say of a file that is no zip archive; empty when there is no more to say than that.
QString otherKindOfFile(const QString &path)
{
    QFile file(path);
    // Reading from anything but a plain file might never end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return QStringLiteral("The file can't be opened for reading");
    }
    if (file.size() == 0) {
        return QStringLiteral("The file is empty");
    }
    constexpr int pieceSize = 1 << 20;
    QByteArray piece = file.read(pieceSize);
    if (!piece.startsWith(QByteArrayLiteral("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"))) {
        return {};
    }
    // The encrypted workbook is a stream of a compound file. Its name may stand anywhere.
    const QString name = QStringLiteral("EncryptedPackage");
    const QByteArray wanted(reinterpret_cast<const char *>(name.utf16()), name.size() * 2);
    while (!piece.contains(wanted)) {
        const QByteArray next = file.read(pieceSize);
        if (next.isEmpty()) {
            return QStringLiteral("The file is an .xls workbook, not an .xlsx one");
        }
        piece = piece.right(wanted.size()) + next;
    }
    return encryptedText();
}

/// The archive in an encrypted file; empty when that has a password of its own.
QByteArray decryptedArchive(const QString &path)
{
    CompoundFile file;
    return file.open(path) ? decryptPackage(file) : QByteArray();
}

} // namespace

XlsxFile::XlsxFile() = default;
XlsxFile::~XlsxFile() = default;

bool XlsxFile::load(const QString &path, BookData &book)
{
    const QString otherKind = otherKindOfFile(path);
    const QByteArray decrypted = otherKind == encryptedText() ? decryptedArchive(path) : QByteArray();
    if (!otherKind.isEmpty() && decrypted.isEmpty()) {
        return fail(otherKind);
    }
    auto source = std::make_unique<XlsxSource>();
    source->path = path;
    source->archive = std::make_unique<ZipArchive>();
    QString error;
    if (!(decrypted.isEmpty() ? source->archive->open(path) : source->archive->open(decrypted))) {
        return fail(source->archive->error());
    }
    if (!decrypted.isEmpty()) {
        book.whyUnchangeable = QStringLiteral("The file is encrypted, it can be read but not changed.");
    }
    if (!readWorkbook(*source, book, &error)
        || !readStyles(*source->archive, source->stylesPart, source->themePart, book, &error)) {
        return fail(error);
    }
    m_source = std::move(source);
    return true;
}

bool XlsxFile::readSheet(int source, BookData &book, Sheet &sheet)
{
    QString error;
    return readSheetPart(*m_source, source, book, sheet, &error) || fail(error);
}

bool XlsxFile::hasCells(int source, BookData &book)
{
    QString error;
    bool found = false;
    return hasUsedCell(*m_source, source, book, &found, &error) ? found : fail(error);
}

} // namespace spreadsheet
