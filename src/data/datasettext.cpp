#include "data/csvencoder.h"
#include "data/dataset.h"

#include <QMimeData>

namespace {

void appendEncoded(QByteArray &out, const QString &text)
{
    TextCoding::appendEncoded(out, text.constData(), text.size());
}

void appendElement(QByteArray &out, const char *tag, const QByteArray &content)
{
    out.append('<').append(tag).append('>').append(content).append("</").append(tag).append('>');
}

CsvEncoder encoderFor(TextForm form)
{
    return form == TextForm::TabSeparated ? CsvEncoder(QLatin1Char('\t'), CsvEncoder::Never)
                                          : CsvEncoder(QLatin1Char(','), CsvEncoder::AsNeeded);
}

} // namespace

QString Dataset::toText(TextForm form) const
{
    const char *const lineEnd = "\r\n";
    CsvEncoder encoder = encoderFor(form);
    QByteArray out;
    if (m_hasHeader && form == TextForm::Plain) {
        appendEncoded(out, columnNames().join(QString()));
    } else if (m_hasHeader) {
        encoder.appendLine(out, m_header);
    }
    for (int row = 0; row < m_rowCount; ++row) {
        if (row > 0 || m_hasHeader) {
            out.append(lineEnd);
        }
        for (int column = 0; column < columnCount(); ++column) {
            const Cell &value = m_columns.at(column).at(row);
            if (form == TextForm::Plain) {
                out.append(value.bytes(), value.size());
                continue;
            }
            if (column > 0) {
                encoder.appendDelimiter(out);
            }
            encoder.appendValue(out, value);
        }
    }
    return TextCoding::decode(out.constData(), out.size());
}

QString Dataset::csvLine(const QStringList &values, QChar delimiter, int quoting)
{
    QByteArray line;
    CsvEncoder(delimiter, static_cast<CsvEncoder::Quoting>(quoting)).appendLine(line, values);
    return TextCoding::decode(line.constData(), line.size());
}

QString Dataset::toHtml() const
{
    QByteArray table;
    QByteArray line;
    if (m_hasHeader) {
        for (const QString &name : m_header) {
            QByteArray text;
            appendEncoded(text, name);
            appendElement(line, "th", text);
        }
        appendElement(table, "tr", line);
    }
    for (int row = 0; row < m_rowCount; ++row) {
        line.resize(0);
        for (const CellColumn &column : m_columns) {
            const Cell &value = column.at(row);
            appendElement(line, "td", QByteArray::fromRawData(value.bytes(), value.size()));
        }
        appendElement(table, "tr", line);
    }
    QByteArray body;
    for (const char *tag : {"tbody", "table", "body"}) {
        body.clear();
        appendElement(body, tag, table);
        table = body;
    }
    QByteArray document;
    appendElement(document, "html", "<head><meta charset=\"utf-8\"/></head>" + body);
    return TextCoding::decode(document.constData(), document.size());
}

QMimeData *Dataset::toMimeData(TextForm form) const
{
    auto *data = new QMimeData;
    data->setText(toText(form));
    data->setHtml(toHtml());
    data->setData(QStringLiteral("text/csv"), toText(TextForm::CommaSeparated).toUtf8());
    return data;
}
