#pragma once

#include "spreadsheet/xlsx/write/stylexml.h"
#include "spreadsheet/xlsx/write/xmloutline.h"

#include <QHash>
#include <QString>
#include <vector>

namespace spreadsheet {

class Package;
struct BookData;

/// Numbers the formats that cells use as those of the styles part, and adds to it what isn't there; the rest stays byte
/// for byte. Formats, fonts, fills and borders that stand there already are taken, so that a workbook which is written
/// again and again doesn't grow.
class StylesWriter
{
public:
    explicit StylesWriter(const BookData &book)
        : m_book(book)
    {
    }

    /// Looks through the part, before any number is asked for. Without it the formats have the numbers of the book.
    bool begin(Package &package, const QString &part);
    /// The file's number of a format of the book, which counts as used from now on.
    quint32 number(quint32 format)
    {
        if (format < m_firstNew) {
            return format;
        }
        const int known = format < m_numbers.size() ? m_numbers[format] : notKnown;
        return static_cast<quint32>(known == notKnown ? addFormat(format) : known);
    }
    /// Writes what was used and isn't there yet. False with an error in the package or in error().
    bool finish(Package &package);

    /// In words for the user; empty unless the file has no room for a format that cells can't be without.
    const QString &error() const { return m_error; }
    /// True when some cells got the usual format in the place of theirs.
    bool isFull() const { return m_isFull; }

private:
    static constexpr int notKnown = -1;

    /// Items of one kind: their numbers by what they say, and those to be added.
    struct Pool
    {
        const char *container;
        QHash<QByteArray, int> numbers;
        QByteArray added;
        int count = 0;
        std::vector<int> sameAs; ///< of those in the file, the first one that says the same; below 0 when not yet known

        int use(const QByteArray &item);
        void keep(const QByteArray &item, int number);
        /// The first one in the file that says the same as its number `own`; below 0 when it has none of that number.
        template<typename MakeItem>
        int known(int own, MakeItem makeItem);
    };

    void takeFills();
    void takeNumberFormats();
    void takeFormats();
    int numberFormat(const CellStyle &style);
    QByteArray formatXml(const CellStyle &style);
    int addFormat(quint32 format);

    const BookData &m_book;
    QString m_part;
    XmlOutline m_outline{3, "xf"};
    StyleXml m_xml{QByteArray()};
    quint32 m_firstNew = ~0u;   // formats of the book from here on aren't those of the file
    std::vector<int> m_numbers; // of the file, by format of the book; known for those from m_firstNew on
    Pool m_fonts{"fonts", {}, {}, 0, {}}, m_fills{"fills", {}, {}, 0, {}}, m_borders{"borders", {}, {}, 0, {}};
    Pool m_formats{"cellXfs", {}, {}, 0, {}};
    QHash<QString, int> m_codes; // numbers of number formats
    int m_nextCode = 0;
    Pool m_numberFormats{"numFmts", {}, {}, 0, {}};
    QString m_error;
    bool m_isFull = false;
};

} // namespace spreadsheet
