#pragma once

#include "spreadsheet/xlsx/write/stylexml.h"

#include <QHash>
#include <vector>

namespace spreadsheet {

class Package;
class PartEdit;
class XmlOutline;
struct BookData;
struct XmlElement;

/// Adds the formats that were made here to the styles part, which otherwise stays byte for byte. Fonts, fills and
/// borders that are there already are taken.
class StylesWriter
{
public:
    explicit StylesWriter(const BookData &book)
        : m_book(book)
    {
    }

    bool write(Package &package, const QString &part);
    /// The file's number of a format of the book; known after write().
    quint32 number(quint32 format) const { return format < m_firstNew ? format : format - m_firstNew + m_presentCount; }

private:
    /// Items of one kind: their numbers by what they say, and those to be added.
    struct Pool
    {
        const char *container;
        QHash<QByteArray, int> numbers;
        QByteArray added;
        int count = 0;

        int use(const QByteArray &item);
    };

    void takeFormats(const XmlOutline &outline, const StyleXml &xml);
    int numberFormat(const CellStyle &style, const StyleXml &xml);
    QByteArray newFormats(const StyleXml &xml);

    const BookData &m_book;
    quint32 m_firstNew = 0, m_presentCount = 0;
    Pool m_fonts{"fonts", {}, {}, 0}, m_fills{"fills", {}, {}, 0}, m_borders{"borders", {}, {}, 0};
    QHash<QString, int> m_codes; // numbers of number formats
    int m_nextCode = 0;
    Pool m_numberFormats{"numFmts", {}, {}, 0};
};

} // namespace spreadsheet
