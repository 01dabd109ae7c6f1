#include "outputs/htmlwriter.h"

#include "outputs/cellrows.h"
#include "outputs/storedtext.h"
#include "outputs/textlayout.h"
#include "outputs/textsink.h"

namespace {

const char styleSheet[] = "table,td,th{border:1px solid black;text-align:left;vertical-align:top;border-spacing:0px;"
                          "border-color:gray;font-family:Verdana,sans-serif;}th{background-color:#E0E0E0;}"
                          "td,th{padding:5px;}";

class Page
{
public:
    Page(TextSink &sink, const HtmlWriter::Format &format, const TextLayout &layout)
        : m_sink(sink)
        , m_format(format)
        , m_layout(layout)
    {
    }

    void writeHead()
    {
        if (!m_format.comment.isEmpty()) {
            line(0, QStringLiteral("<!--") + m_format.comment.toHtmlEscaped() + QStringLiteral("-->"));
        }
        line(0, QStringLiteral("<!DOCTYPE html>"));
        line(0, QStringLiteral("<html>"));
        line(1, QStringLiteral("<head>"));
        line(2, QStringLiteral("<meta charset=\"") + m_format.encoding + QStringLiteral("\"/>"));
        line(2, QStringLiteral("<title>") + m_format.title.toHtmlEscaped() + QStringLiteral("</title>"));
        line(2,
            QStringLiteral("<style>") + QString::fromLatin1(styleSheet).toHtmlEscaped() + QStringLiteral("</style>"));
        line(1, QStringLiteral("</head>"));
        line(1, QStringLiteral("<body>"));
        line(2, QStringLiteral("<table>"));
        line(3, QStringLiteral("<tbody>"));
    }

    void writeNames(const QStringList &names)
    {
        line(4, QStringLiteral("<tr>"));
        for (const QString &name : names) {
            const QString text = m_format.escape ? name.toHtmlEscaped() : name;
            line(5, QStringLiteral("<th>") + text + QStringLiteral("</th>"));
        }
        line(4, QStringLiteral("</tr>"));
    }

    void writeRows(const CellRows &cells)
    {
        const QByteArray rowStart = indented(4, "<tr>") + m_layout.lineEnding;
        const QByteArray rowEnd = indented(4, "</tr>") + m_layout.lineEnding;
        const QByteArray valueStart = indented(5, "<td>");
        const QByteArray valueEnd = "</td>" + m_layout.lineEnding;
        for (int row = 0; row < cells.rowCount(); ++row) {
            m_sink.append(rowStart);
            for (int column = 0; column < cells.columnCount(); ++column) {
                m_sink.append(valueStart);
                writeValue(cells.at(row, column));
                m_sink.append(valueEnd);
            }
            m_sink.append(rowEnd);
            m_layout.reportRow(row, cells.rowCount());
        }
    }

    void writeEnd()
    {
        line(3, QStringLiteral("</tbody>"));
        line(2, QStringLiteral("</table>"));
        line(1, QStringLiteral("</body>"));
        line(0, QStringLiteral("</html>"));
    }

private:
    static QByteArray indented(int depth, const char *text) { return QByteArray(2 * depth, ' ') + text; }

    void line(int depth, const QString &text)
    {
        m_sink.append(2 * depth, ' ');
        m_sink.append(text);
        m_sink.append(m_layout.lineEnding);
    }

    void writeValue(const Cell &cell)
    {
        if (m_format.escape) {
            appendHtmlEscaped(m_sink, StoredText(cell));
        } else {
            m_sink.append(cell);
        }
    }

    TextSink &m_sink;
    const HtmlWriter::Format &m_format;
    const TextLayout &m_layout;
};

} // namespace

void HtmlWriter::write(TextSink &sink, const Dataset &dataset, const Format &format, const TextLayout &layout)
{
    Page page(sink, format, layout);
    page.writeHead();
    if (layout.writeHeader) {
        page.writeNames(dataset.columnNames());
    }
    page.writeRows(CellRows(dataset));
    page.writeEnd();
}
