#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

namespace spreadsheet {

class XmlAttributes;
struct SheetLayout;
struct XlsxSource;

/// Reads what a sheet part has beside its cells into a layout.
class SheetExtras
{
public:
    explicit SheetExtras(SheetLayout *layout)
        : m_layout(layout)
    {
    }

    void takeDefaults(const XmlAttributes &attributes);
    void takeColumns(const XmlAttributes &attributes);
    void takeMerge(const XmlAttributes &attributes);
    /// False when there are too many.
    bool takeHyperlink(const XmlAttributes &attributes);
    /// To be called behind the last element: brings columns in order and finds the targets of links.
    bool finish(XlsxSource &source, const QString &part, QString *error);

private:
    bool findTargets(XlsxSource &source, const QString &part, QString *error);

    SheetLayout *m_layout;
    std::vector<QString> m_relationIds; // of the links, in their order; empty for those without one
    bool m_hasRelations = false;
};

} // namespace spreadsheet
