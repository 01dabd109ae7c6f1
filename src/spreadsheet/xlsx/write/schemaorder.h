#pragma once

#include "spreadsheet/xlsx/write/partedit.h"
#include "spreadsheet/xlsx/write/xmloutline.h"

namespace spreadsheet {

/// In which order the children of a part's root have to stand.
class SchemaOrder
{
public:
    /// `names` is closed by a null.
    explicit SchemaOrder(const char *const *names)
        : m_names(names)
    {
    }

    /// Puts an element in place of the one that the root has, or where the root may have it. An empty text takes it
    /// away. For edits that openPart() began.
    void put(const XmlOutline &outline, const char *name, PartEdit::Writer writer, PartEdit *edit) const;
    void put(const XmlOutline &outline, const char *name, const QByteArray &element, PartEdit *edit) const;

    static const SchemaOrder &ofSheet();
    static const SchemaOrder &ofWorkbook();
    static const SchemaOrder &ofStyles();

private:
    int rank(const QByteArray &name) const;

    const char *const *m_names;
};

} // namespace spreadsheet
