#include "spreadsheet/xlsx/write/sharedtextsedit.h"

#include "spreadsheet/sizes.h"
#include "spreadsheet/texttable.h"
#include "spreadsheet/xlsx/write/package.h"
#include "spreadsheet/xlsx/write/startedit.h"
#include "spreadsheet/xlsx/write/textescape.h"
#include "spreadsheet/xlsx/write/xmloutline.h"

#include <algorithm>

namespace spreadsheet {
namespace {

constexpr size_t pieceSize = 32 << 10;

bool isSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n';
}

/// UTF-16 units of a text in UTF-8.
qint64 unitCount(std::string_view text)
{
    qint64 count = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        count += (byte & 0xC0) == 0x80 ? 0 : byte >= 0xF0 ? 2 : 1;
    }
    return count;
}

} // namespace

SharedTextsEdit::SharedTextsEdit(const TextTable &texts, const XlsxSource *source, quint32 presentCount)
    : m_texts(texts)
    , m_presentCount(presentCount)
    , m_numbers(texts.size(), 0)
{
    if (source && source->textsLoaded) {
        m_firstLoaded = source->firstText;
        m_loadedCount = source->loadedTexts;
    }
}

quint32 SharedTextsEdit::add(quint32 id)
{
    m_added.push_back(id);
    m_numbers[id] = m_presentCount + static_cast<quint32>(m_added.size());
    return m_numbers[id] - 1;
}

int SharedTextsEdit::overlongCount() const
{
    return static_cast<int>(std::count_if(m_added.begin(), m_added.end(), [this](quint32 id) {
        const std::string_view text = m_texts.text(id);
        return text.size() > maxTextLength && unitCount(text) > maxTextLength;
    }));
}

bool SharedTextsEdit::write(Package &package, const QString &part) const
{
    XmlOutline outline(0);
    if (!package.outline(part, &outline)) {
        return false;
    }
    const XmlElement &root = outline.root();
    const quint64 oldUses = std::max<quint64>(root.attribute("count").toULongLong(), m_droppedUses);
    PartEdit edit;
    stateEncoding(outline, &edit);
    StartEdit(root)
        .set("uniqueCount", QByteArray::number(m_presentCount + static_cast<quint32>(m_added.size())))
        .set("count", QByteArray::number(oldUses - m_droppedUses + m_useCount))
        .apply(&edit, StartEdit::Content::Added);
    const std::string prefix = root.prefix().toStdString();
    const auto writeItems = [&](DeflatedPart &out) {
        const std::string plain = '<' + prefix + "si><" + prefix + "t>";
        const std::string spaced = '<' + prefix + "si><" + prefix + "t xml:space=\"preserve\">";
        const std::string end = "</" + prefix + "t></" + prefix + "si>";
        std::string piece;
        for (const quint32 id : m_added) {
            const std::string_view text = m_texts.text(id);
            const bool keepsSpace = !text.empty() && (isSpace(text.front()) || isSpace(text.back()));
            piece += keepsSpace ? spaced : plain;
            appendCellText(piece, text);
            piece += end;
            if (piece.size() >= pieceSize) {
                out.write(piece);
                piece.clear();
            }
        }
        out.write(piece);
    };
    edit.replace(root.contentEnd, root.contentEnd, writeItems);
    if (root.isEmptyTag()) {
        edit.insert(root.end, "</" + root.name + '>');
    }
    return package.change(part, std::move(edit));
}

} // namespace spreadsheet
