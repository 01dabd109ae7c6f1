#pragma once

#include "spreadsheet/cellstyle.h"

#include <QByteArray>

namespace spreadsheet {

/// Writes parts of a style as elements of the styles part, whose names begin with a prefix, mostly an empty one.
class StyleXml
{
public:
    explicit StyleXml(const QByteArray &prefix)
        : m_prefix(prefix)
    {
    }

    QByteArray font(const FontStyle &font) const;
    QByteArray fill(const FillStyle &fill) const;
    QByteArray border(const BorderStyle &border) const;
    QByteArray numberFormat(int id, const QString &code) const;

    struct FormatNumbers
    {
        int numberFormat, font, fill, border;
    };
    /// A cell format that refers to the others by number.
    QByteArray format(const CellStyle &style, const FormatNumbers &numbers) const;

private:
    QByteArray open(const char *name) const { return '<' + m_prefix + name; }
    QByteArray close(const char *name) const { return "</" + m_prefix + name + '>'; }
    QByteArray value(const char *name, const QByteArray &value) const;
    QByteArray color(const char *name, const StyleColor &color) const;
    QByteArray line(const char *name, const BorderLine &line) const;
    QByteArray alignment(const Alignment &alignment) const;

    QByteArray m_prefix;
};

} // namespace spreadsheet
