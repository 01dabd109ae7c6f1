#include "document/sampledocument.h"

#include "document/documentwriter.h"
#include "document/markup.h"

#include <QDomDocument>
#include <QHashFunctions>
#include <gtest/gtest.h>

QByteArray withSeparators(QByteArray text)
{
    return text.replace('|', 0x1F);
}

QByteArray documentText(const QByteArray &body, int version)
{
    return "<!DOCTYPE Quillmere>\n<root><meta><version value=\"" + QByteArray::number(version) + "\"/></meta>"
           + withSeparators(body) + "</root>\n";
}

QByteArray fullDocument()
{
    return documentText(
        "<inputs><input id=\"0\" name=\"x\" path=\"%2Fnowhere%2Fin.csv\" file_type=\"0\" header=\"1\" trim=\"1\""
        " comment=\"%3C100%25%3E%0A%C3%A9\" alias=\"orders\" delimiter=\"8\" custom_delimiter=\"%7C\" pos_v12=\"0|0\"/>"
        "<input id=\"7\" medium=\"1\" text=\"a%2Cb%0A1%2C2\" file_type=\"0\" alias=\"pasted\" "
        "pos_v12=\"0|120\"/></inputs>"
        "<transforms><transform id=\"2\" name=\"Pad\" comment=\"wide%20enough\" pos_v12=\"239.4|-10\"><parameters>"
        "<parameter name=\"Columns\" value=\"1|3\"/><parameter name=\"Length\" value=\"12\"/>"
        "<parameter name=\"Left_Right\" value=\"Right\"/><parameter name=\"Pad_With\" value=\"%5E\"/>"
        "</parameters></transform></transforms>"
        "<outputs><output id=\"3\" path=\"%2Fnowhere%2Fout.json\" file_type=\"4\" enable_output=\"0\" json_types=\"2\""
        " json_manual_col_types=\"1|2\" multi_file_column=\"2\" alias=\"result\" xml_row=\"r\"/></outputs>"
        "<charts><chart id=\"5\" chart_type=\"2\" chart_x_column=\"1*0\" chart_y_columns=\"2*0|3*0\""
        " chart_opacity=\"50\" alias=\"plot\"/></charts>"
        "<notes><note id=\"6\" comment=\"Check%20this\" color=\"255|250|200\" arrow=\"1\" pos_v12=\"5|5\"/></notes>"
        "<connections><connection start_id=\"0\" end_id=\"2\"/><connection start_id=\"2\" end_id=\"3\"/>"
        "<connection start_id=\"7\" end_id=\"5\"/></connections>");
}

DocumentContents readText(const QByteArray &text, GraphScene &scene, const QString &path)
{
    QDomDocument document;
    MarkupError error;
    EXPECT_TRUE(parseMarkup(text, document, error)) << error.text.toStdString();
    return readDocument(document, scene, path);
}

QByteArray savedText(const GraphScene &scene, bool selectedOnly)
{
    qSetGlobalQHashSeed(0);
    QDomDocument document(documentTypeName());
    writeDocument(scene, selectedOnly, DocumentHead(), document);
    return withoutSaver(document.toByteArray(4));
}

QByteArray withoutSaver(const QByteArray &text)
{
    QList<QByteArray> lines = text.split('\n');
    for (int i = lines.size() - 1; i >= 0; --i) {
        if (lines.at(i).contains("<last_saved_by ")) {
            lines.removeAt(i);
        }
    }
    return lines.join('\n');
}
