#include "spreadsheet/cellreference.h"
#include "spreadsheet/xlsx/xlsxwritepackage.h"

#include <QDir>
#include <QDomDocument>
#include <QHash>
#include <QSet>
#include <QUrl>

using namespace spreadsheet;

namespace {

std::vector<QDomElement> children(const QDomElement &parent, const QString &name = QString())
{
    std::vector<QDomElement> found;
    for (QDomElement child = parent.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        if (name.isEmpty() || child.localName() == name) {
            found.push_back(child);
        }
    }
    return found;
}

QDomElement child(const QDomElement &parent, const QString &name)
{
    const std::vector<QDomElement> found = children(parent, name);
    return found.empty() ? QDomElement() : found.front();
}

bool rangeOf(const QString &text, CellRange *range)
{
    const QByteArray bytes = text.toLatin1();
    return parseRange({bytes.constData(), static_cast<size_t>(bytes.size())}, range);
}

class PackageCheck
{
public:
    explicit PackageCheck(const QString &path)
        : m_package(TestPackage::read(path))
    {
    }

    QStringList run()
    {
        if (m_package.parts.empty()) {
            return {QStringLiteral("no archive")};
        }
        parseParts();
        checkTypes();
        for (const TestPackage::Part &part : m_package.parts) {
            if (part.name.endsWith(QLatin1String(".rels"))) {
                checkRelations(part.name);
            }
        }
        checkIds();
        checkTexts();
        checkStyles();
        checkSheetList();
        for (auto part = m_types.begin(); part != m_types.end(); ++part) {
            if (part.value().endsWith(QLatin1String(".worksheet+xml"))) {
                checkSheet(part.key());
            }
        }
        return m_findings;
    }

private:
    void expect(bool condition, const QString &part, const QString &what)
    {
        if (!condition) {
            m_findings << part + QStringLiteral(": ") + what;
        }
    }

    void parseParts()
    {
        QSet<QString> names;
        for (const TestPackage::Part &part : m_package.parts) {
            expect(!names.contains(part.name.toLower()), part.name, QStringLiteral("twice in the archive"));
            names.insert(part.name.toLower());
            if (part.name.endsWith(QLatin1String(".xml")) || part.name.endsWith(QLatin1String(".rels"))) {
                QDomDocument document;
                expect(document.setContent(part.bytes, true), part.name, QStringLiteral("not well-formed"));
                m_roots[part.name] = document.documentElement();
            }
        }
    }

    void checkTypes()
    {
        const QString list = QStringLiteral("[Content_Types].xml");
        QSet<QString> extensions;
        for (const QDomElement &type : children(m_roots[list])) {
            if (type.localName() == QLatin1String("Default")) {
                extensions.insert(type.attribute(QStringLiteral("Extension")).toLower());
                continue;
            }
            const QString part = type.attribute(QStringLiteral("PartName")).mid(1);
            expect(m_package.find(part), list, QStringLiteral("names %1, which isn't there").arg(part));
            expect(!m_types.contains(part), list, QStringLiteral("names %1 twice").arg(part));
            m_types[part] = type.attribute(QStringLiteral("ContentType"));
        }
        for (const TestPackage::Part &part : m_package.parts) {
            expect(part.name == list || m_types.contains(part.name)
                       || extensions.contains(part.name.section(QLatin1Char('.'), -1).toLower()),
                part.name, QStringLiteral("has no type"));
        }
    }

    void checkRelations(const QString &part)
    {
        const QString folder = part.section(QStringLiteral("_rels/"), 0, -2);
        const QString owner = folder + part.section(QLatin1Char('/'), -1).chopped(5);
        expect(owner.isEmpty() || m_package.find(owner), part, QStringLiteral("belongs to no part"));
        for (const QDomElement &relation : children(m_roots[part])) {
            const QString id = relation.attribute(QStringLiteral("Id"));
            const QString target = relation.attribute(QStringLiteral("Target"));
            expect(!id.isEmpty() && !m_ids[owner].contains(id), part, QStringLiteral("has the id %1 twice").arg(id));
            const bool isAbsolute = target.startsWith(QLatin1Char('/'));
            const QString name = QDir::cleanPath(isAbsolute ? target : QLatin1Char('/') + folder + target).mid(1);
            m_ids[owner].insert(id, name);
            if (relation.attribute(QStringLiteral("TargetMode")) == QLatin1String("External")) {
                expect(!target.isEmpty() && QUrl(target, QUrl::StrictMode).isValid(), part,
                    QStringLiteral("leads to %1, which is no address").arg(target));
            } else {
                expect(m_package.find(name), part, QStringLiteral("leads to %1, which isn't there").arg(name));
            }
        }
    }

    /// Each id that a part uses has to be one of its relations.
    void checkIds()
    {
        for (auto root = m_roots.begin(); root != m_roots.end(); ++root) {
            checkIdsBelow(root.value(), root.key());
        }
    }

    void checkIdsBelow(const QDomElement &element, const QString &part)
    {
        const QDomNamedNodeMap attributes = element.attributes();
        for (int i = 0; i < attributes.count(); ++i) {
            const QDomAttr attribute = attributes.item(i).toAttr();
            if (attribute.namespaceURI().endsWith(QLatin1String("/relationships"))) {
                expect(m_ids[part].contains(attribute.value()), part,
                    QStringLiteral("uses the relation %1, which isn't there").arg(attribute.value()));
            }
        }
        for (const QDomElement &below : children(element)) {
            checkIdsBelow(below, part);
        }
    }

    QString partOfType(const char *end) const
    {
        for (auto type = m_types.begin(); type != m_types.end(); ++type) {
            if (type.value().endsWith(QLatin1String(end))) {
                return type.key();
            }
        }
        return {};
    }

    void checkCount(const QString &part, const QDomElement &list, const char *attribute)
    {
        const QString count = list.attribute(QLatin1String(attribute));
        expect(count.isEmpty() || count.toInt() == static_cast<int>(children(list).size()), part,
            QStringLiteral("%1 of %2 is wrong").arg(QLatin1String(attribute), list.localName()));
    }

    void checkTexts()
    {
        const QString part = partOfType(".sharedStrings+xml");
        if (!part.isEmpty()) {
            checkCount(part, m_roots[part], "uniqueCount");
            m_textCount = static_cast<int>(children(m_roots[part], QStringLiteral("si")).size());
        }
    }

    void checkStyles()
    {
        const QString part = partOfType(".styles+xml");
        const QDomElement root = m_roots[part];
        checkOrder(part, root,
            QStringLiteral("numFmts fonts fills borders cellStyleXfs cellXfs cellStyles dxfs "
                           "tableStyles colors extLst"));
        for (const QDomElement &list : children(root)) {
            checkCount(part, list, "count");
        }
        const auto count = [&](const char *name) { return children(child(root, QLatin1String(name))).size(); };
        const QDomElement formats = child(root, QStringLiteral("cellXfs"));
        m_formatCount = static_cast<int>(children(formats).size());
        QSet<int> numbers;
        for (const QDomElement &number : children(child(root, QStringLiteral("numFmts")))) {
            const int id = number.attribute(QStringLiteral("numFmtId")).toInt();
            expect(!numbers.contains(id), part, QStringLiteral("number format %1 twice").arg(id));
            numbers.insert(id);
        }
        for (const QDomElement &format : children(formats)) {
            const auto id = [&](const char *name) { return format.attribute(QLatin1String(name)).toUInt(); };
            const int number = format.attribute(QStringLiteral("numFmtId")).toInt();
            expect(id("fontId") < count("fonts") && id("fillId") < count("fills") && id("borderId") < count("borders"),
                part, QStringLiteral("a format refers to what isn't there"));
            expect(number < 164 || numbers.contains(number), part, QStringLiteral("no number format %1").arg(number));
        }
    }

    void checkOrder(const QString &part, const QDomElement &root, const QString &names)
    {
        const QStringList order = names.split(QLatin1Char(' '));
        int last = 0;
        for (const QDomElement &element : children(root)) {
            const int place = order.indexOf(element.localName());
            expect(place < 0 || place >= last, part, QStringLiteral("%1 is out of order").arg(element.localName()));
            last = qMax(last, place);
        }
    }

    void checkSheetList()
    {
        const QString part = partOfType(".sheet.main+xml");
        QSet<QString> seen;
        for (const QDomElement &sheet : children(child(m_roots[part], QStringLiteral("sheets")))) {
            for (const QString &key : {QStringLiteral("i") + sheet.attribute(QStringLiteral("sheetId")),
                     QStringLiteral("n") + sheet.attribute(QStringLiteral("name")).toLower()}) {
                expect(!seen.contains(key), part, QStringLiteral("a sheet's number or name is there twice"));
                seen.insert(key);
            }
        }
        expect(!seen.isEmpty(), part, QStringLiteral("has no sheets"));
    }

    void checkSheet(const QString &part)
    {
        const QDomElement root = m_roots[part];
        checkOrder(part, root,
            QStringLiteral(
                "sheetPr dimension sheetViews sheetFormatPr cols sheetData sheetCalcPr sheetProtection protectedRanges "
                "scenarios autoFilter sortState dataConsolidate customSheetViews mergeCells phoneticPr "
                "conditionalFormatting dataValidations hyperlinks printOptions pageMargins pageSetup headerFooter "
                "rowBreaks colBreaks customProperties cellWatches ignoredErrors smartTags drawing legacyDrawing "
                "legacyDrawingHF drawingHF picture oleObjects controls webPublishItems tableParts extLst"));
        expect(
            children(root, QStringLiteral("sheetData")).size() == 1, part, QStringLiteral("has no or two sheetData"));
        CellRange area;
        const QDomElement dimension = child(root, QStringLiteral("dimension"));
        const bool hasArea = rangeOf(dimension.attribute(QStringLiteral("ref")), &area);
        expect(dimension.isNull() || hasArea, part, QStringLiteral("has a bad dimension"));
        int lastRow = 0;
        for (const QDomElement &row : children(child(root, QStringLiteral("sheetData")))) {
            const int number = row.attribute(QStringLiteral("r")).toInt();
            expect(number > lastRow, part, QStringLiteral("row %1 is out of order").arg(number));
            lastRow = number;
            checkCells(part, row, number - 1, hasArea ? &area : nullptr);
        }
        checkRanges(part, root);
        for (const QDomElement &table : children(child(root, QStringLiteral("tableParts")))) {
            checkTable(part, m_ids[part].value(table.attributeNS(
                                 QStringLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships"),
                                 QStringLiteral("id"))));
        }
    }

    void checkCells(const QString &part, const QDomElement &row, int rowNumber, const CellRange *area)
    {
        int lastColumn = -1;
        for (const QDomElement &cell : children(row)) {
            CellRange place;
            const QString reference = cell.attribute(QStringLiteral("r"));
            expect(rangeOf(reference, &place) && place.rowFirst == rowNumber && place.columnFirst > lastColumn, part,
                QStringLiteral("the cell %1 is out of order").arg(reference));
            lastColumn = place.columnFirst;
            expect(!area
                       || (place.rowFirst >= area->rowFirst && place.rowFirst <= area->rowLast
                           && place.columnFirst >= area->columnFirst && place.columnFirst <= area->columnLast),
                part, QStringLiteral("the cell %1 lies outside the dimension").arg(reference));
            expect(cell.attribute(QStringLiteral("s")).toInt() < m_formatCount, part,
                QStringLiteral("the cell %1 has no format").arg(reference));
            const QString value = child(cell, QStringLiteral("v")).text();
            const bool isShared = cell.attribute(QStringLiteral("t")) == QLatin1String("s");
            expect(!isShared || (!value.isEmpty() && value.toInt() < m_textCount), part,
                QStringLiteral("the cell %1 has no text").arg(reference));
            m_cellTexts[part][reference] = isShared ? value.toInt() : -1;
            const QDomElement formula = child(cell, QStringLiteral("f"));
            if (formula.attribute(QStringLiteral("t")) == QLatin1String("shared")) {
                if (formula.hasAttribute(QStringLiteral("ref"))) {
                    m_masters.insert(part + formula.attribute(QStringLiteral("si")));
                }
                expect(m_masters.contains(part + formula.attribute(QStringLiteral("si"))), part,
                    QStringLiteral("the cell %1 shares a formula that isn't there").arg(reference));
            }
        }
    }

    void checkRanges(const QString &part, const QDomElement &root)
    {
        std::vector<CellRange> merges;
        for (const QDomElement &merge : children(child(root, QStringLiteral("mergeCells")))) {
            CellRange range;
            expect(rangeOf(merge.attribute(QStringLiteral("ref")), &range), part, QStringLiteral("has a bad merge"));
            for (const CellRange &other : merges) {
                expect(range.rowFirst > other.rowLast || other.rowFirst > range.rowLast
                           || range.columnFirst > other.columnLast || other.columnFirst > range.columnLast,
                    part, QStringLiteral("merged ranges overlap"));
            }
            merges.push_back(range);
        }
        for (const char *list : {"mergeCells", "tableParts", "hyperlinks", "cols"}) {
            const QDomElement element = child(root, QLatin1String(list));
            expect(element.isNull() || !children(element).empty(), part,
                QLatin1String(list) + QStringLiteral(" is empty"));
            checkCount(part, element, "count");
        }
        for (const QDomElement &link : children(child(root, QStringLiteral("hyperlinks")))) {
            CellRange range;
            expect(rangeOf(link.attribute(QStringLiteral("ref")), &range), part, QStringLiteral("has a bad link"));
        }
        int lastColumn = 0;
        for (const QDomElement &column : children(child(root, QStringLiteral("cols")))) {
            const int first = column.attribute(QStringLiteral("min")).toInt();
            expect(first > lastColumn, part, QStringLiteral("columns overlap"));
            lastColumn = column.attribute(QStringLiteral("max")).toInt();
            expect(lastColumn >= first && column.attribute(QStringLiteral("style")).toInt() < m_formatCount, part,
                QStringLiteral("a column is wrong"));
        }
    }

    void checkTable(const QString &sheet, const QString &part)
    {
        CellRange range;
        const QDomElement root = m_roots[part];
        const std::vector<QDomElement> columns = children(child(root, QStringLiteral("tableColumns")));
        expect(rangeOf(root.attribute(QStringLiteral("ref")), &range)
                   && range.columnLast - range.columnFirst + 1 == static_cast<int>(columns.size()),
            part, QStringLiteral("has a bad range"));
        const std::vector<QDomElement> texts = children(
            m_roots[partOfType(".sharedStrings+xml")], QStringLiteral("si"));
        const bool hasHeader = root.attribute(QStringLiteral("headerRowCount")) != QLatin1String("0");
        for (size_t i = 0; hasHeader && i < columns.size(); ++i) {
            const QString place = QString::fromLatin1(
                cellReference(range.rowFirst, range.columnFirst + static_cast<int>(i)));
            const int text = m_cellTexts[sheet].value(place, -1);
            expect(text >= 0 && texts[static_cast<size_t>(text)].text() == columns[i].attribute(QStringLiteral("name")),
                part, QStringLiteral("the header %1 differs").arg(place));
        }
        const QDomElement filter = child(root, QStringLiteral("autoFilter"));
        expect(filter.isNull() || filter.attribute(QStringLiteral("ref")) == root.attribute(QStringLiteral("ref")),
            part, QStringLiteral("the filter's range differs"));
    }

    TestPackage m_package;
    QStringList m_findings;
    QHash<QString, QDomElement> m_roots;
    QHash<QString, QString> m_types;
    QHash<QString, QHash<QString, QString>> m_ids;   // targets by part and id
    QHash<QString, QHash<QString, int>> m_cellTexts; // numbers of texts by sheet and cell
    QSet<QString> m_masters;
    int m_textCount = 0, m_formatCount = 0;
};

} // namespace

QStringList checkPackage(const QString &path)
{
    return PackageCheck(path).run();
}
