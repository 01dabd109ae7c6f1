#include "document/documentparser.h"
#include "document/documentwriter.h"
#include "document/sampledocument.h"
#include "support/printers.h"
#include "support/scopedlocale.h"

#include <QDomDocument>
#include <QMap>
#include <gtest/gtest.h>

namespace {

/// In these tables a '|' stands for the character that parts the entries of stored lists.
QString stored(const char *text)
{
    return QString::fromLatin1(withSeparators(text));
}

/// One attribute: its name, what is written when it was absent (null: nothing), and a stored value that differs.
struct Field
{
    const char *name;
    const char *fallback;
    const char *other;
};

using Attributes = QMap<QString, QString>;

const std::vector<Field> inputFieldTable{{"medium", "0", "2"}, {"comment", nullptr, "a%20%3C%0A%C3%A9"},
    {"ignored_rows", "0", "3"}, {"header", "0", "2"}, {"watching", "0", "1"}, {"json_arrays_as_rows", "1", "0"},
    {"trim", "0", "1"}, {"simplify", "0", "1"}, {"ignore_empty", "1", "0"}, {"ignore_empty_cols", "0", "1"},
    {"ignore_excel_hidden_cols", "0", "1"}, {"ignore_excel_hidden_rows", "0", "1"}, {"show_meta", "0", "3"},
    {"meta_text", nullptr, "%24%28FileName%29"}, {"meta_col_name", "Meta%20Info", "Source"},
    {"schema_in_use", "0", "1"}, {"schema_col_name", nullptr, "id|qty%20sold"},
    {"schema_missing_value", nullptr, "|none"}, {"schema_missing_cols", "0", "1"}, {"schema_reorder_cols", "0", "1"},
    {"schema_extra_cols", "0", "2"}, {"path", nullptr, "%2Fdata%2Fin.csv"},
    {"multi_file_folder", nullptr, "%2Fdata%2Fall"}, {"multi_file_match", "%2A.csv", "%2A.txt"},
    {"multi_sheetmatch", "%2A", "Q%2A"}, {"multi_file_recurse", "0", "1"}, {"file_type", "11", "3"},
    {"alias", nullptr, "orders"}, {"delimiter", "1", "8"}, {"custom_delimiter", "%2A", "%7C"}, {"quote", "0", "2"},
    {"ignore_repeated_delim", "0", "1"}, {"auto_fixed_widths", "1", "0"}, {"fixed_widths", nullptr, "3|12"},
    {"encoding", "Automatic", "ISO-8859-1"}, {"worksheet", nullptr, "Sheet%202"}, {"text", nullptr, "a%2Cb%0A1%2C2"},
    {"pos_v12", "0|0", "239.4|-119.7"}};

const std::vector<Field> outputFieldTable{{"single_or_multi", "0", "1"}, {"multi_file_column", "", "2"},
    {"multi_file_confirm", "1", "0"}, {"comment", nullptr, "out"}, {"pos_v12", "0|0", "1|2"},
    {"path", nullptr, "%2Fdata%2Fout.csv"}, {"file_type", "11", "4"}, {"alias", nullptr, "result"},
    {"custom_delimiter", "%2A", "%7C"}, {"delimiter", "1", "4"}, {"line_endings", "0", "2"}, {"quote", "0", "1"},
    {"excel_output", "0", "2"}, {"excel_use_style_template", "0", "1"},
    {"excel_style_template_path", nullptr, "%2Fstyles.xlsx"}, {"excel_manual_col_formats", "", "1|0|3"},
    {"json_types", "0", "2"}, {"json_manual_col_types", "", "2|1"}, {"encoding", "UTF-8", "UTF-16"}, {"bom", "1", "0"},
    {"xml_above_root", nullptr, "%3C%21--x--%3E"}, {"xml_root", "root", "rows"}, {"xml_below_root", nullptr, "y"},
    {"xml_row", "record", "row"}, {"html_encode", "1", "0"}, {"enable_output", "1", "3"}, {"overwrite_sheet", "1", "0"},
    {"worksheet", nullptr, "Data"}, {"write_header", "1", "0"}, {"write_header_first_append_only", "1", "0"},
    {"remove_empty", "1", "0"}, {"file_comment", nullptr, "by%20us"}};

const std::vector<Field> chartFieldTable{{"comment", nullptr, "c"}, {"pos_v12", "0|0", "5|6"}, {"chart_type", "0", "8"},
    {"chart_x_column", "", "3*0"}, {"chart_x_as", "0", "3"}, {"chart_y_columns", "", "1*0|2*0"},
    {"chart_layout", "0", "2"}, {"chart_facets_across", "2", "5"}, {"write_file", "0", "1"},
    {"path", nullptr, "%2Fplot.png"}, {"chart_image_type", "0", "2"}, {"chart_image_width", "1024", "800"},
    {"chart_image_height", "1024", "600"}, {"chart_pdf_size", "9", "0"}, {"chart_pdf_orientation", "0", "1"},
    {"alias", nullptr, "plot"}, {"chart_show_x_axis", "1", "0"}, {"chart_show_x_axis_grid", "1", "0"},
    {"chart_x_axis_title_option", "2", "1"}, {"chart_x_axis_custom_title", "%24%28X%29", "Time"},
    {"chart_x_axis_scale", "0", "3"}, {"chart_x_axis_min_range_option", "0", "1"},
    {"chart_x_axis_min_range_custom_value", "0", "-2.5"}, {"chart_x_axis_nice_values", "1", "0"},
    {"chart_x_axis_max_range_option", "0", "1"}, {"chart_x_axis_max_range_custom_value", "10", "1e+06"},
    {"chart_x_axis_show_labels", "1", "0"}, {"chart_x_axis_label_angle", "0", "45"},
    {"chart_x_axis_label_format", "0", "6"}, {"chart_x_axis_label_precision", "2", "4"},
    {"chart_x_axis_label_date_format", nullptr, "dd%2FMM%2Fyy"}, {"chart_show_y_axis", "1", "0"},
    {"chart_show_y_axis_grid", "1", "0"}, {"chart_y_axis_title_option", "2", "0"},
    {"chart_y_axis_custom_title", "%24%28Y%29", "Sold"}, {"chart_y_axis_scale", "0", "2"},
    {"chart_y_axis_min_range_option", "0", "1"}, {"chart_y_axis_min_range_custom_value", "0", "0.5"},
    {"chart_y_axis_max_range_option", "0", "1"}, {"chart_y_axis_max_range_custom_value", "10", "20"},
    {"chart_y_axis_same_range_all_facets", "0", "1"}, {"chart_y_axis_nice_values", "1", "0"},
    {"chart_y_axis_show_labels", "1", "0"}, {"chart_y_axis_label_angle", "0", "-45"},
    {"chart_y_axis_label_format", "0", "1"}, {"chart_y_axis_label_precision", "2", "0"}, {"chart_theme", "0", "6"},
    {"chart_title_option", "0", "2"}, {"chart_custom_title", "%24%28Y%29%20vs%20%24%28X%29", "Sales"},
    {"chart_legend_position", "0", "5"}, {"chart_line_thickness", "2", "3.5"}, {"chart_opacity", "100", "50"},
    {"chart_show_Line_data_points", "0", "1"}, {"chart_point_size_option", "0", "1"},
    {"chart_custom_points_size", "15", "7.5"}, {"chart_pdf_resolution", "150", "300"}};

const std::vector<Field> noteFieldTable{{"comment", nullptr, "see%20here"}, {"pos_v12", "0|0", "7|8"},
    {"color", "255|255|255", "1|2|3"}, {"arrow", "0", "4"}};

const std::vector<Field> transformFieldTable{
    {"name", nullptr, "Pad"}, {"comment", nullptr, "p"}, {"pos_v12", "0|0", "9|10"}};

struct Kind
{
    const char *group;
    const char *tag;
    const std::vector<Field> &fields;
};
const Kind kinds[] = {{"inputs", "input", inputFieldTable}, {"transforms", "transform", transformFieldTable},
    {"outputs", "output", outputFieldTable}, {"charts", "chart", chartFieldTable}, {"notes", "note", noteFieldTable}};

/// Reads a document whose only item has these attributes, and gives the attributes that are written for it.
Attributes rewritten(const Kind &kind, const Attributes &attributes)
{
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("root"));
    QDomElement group = document.createElement(QString::fromLatin1(kind.group));
    QDomElement item = document.createElement(QString::fromLatin1(kind.tag));
    document.appendChild(root).appendChild(group).appendChild(item);
    item.setAttribute(QStringLiteral("id"), 7);
    for (auto it = attributes.constBegin(); it != attributes.constEnd(); ++it) {
        item.setAttribute(it.key(), it.value());
    }
    QDomDocument copy;
    const QDomElement written = writeRecords(parseDocument(root), copy);
    const QDomNamedNodeMap map =
        written.firstChildElement(QString::fromLatin1(kind.group)).firstChildElement().attributes();
    Attributes result;
    for (int i = 0; i < map.count(); ++i) {
        result.insert(map.item(i).toAttr().name(), map.item(i).toAttr().value());
    }
    EXPECT_EQ(result.take(QStringLiteral("id")), QStringLiteral("7"));
    result.remove(QStringLiteral("pos"));
    return result;
}

Attributes fallbacks(const Kind &kind)
{
    Attributes all;
    for (const Field &field : kind.fields) {
        if (field.fallback) {
            all.insert(QString::fromLatin1(field.name), stored(field.fallback));
        }
    }
    return all;
}

QString asText(const Attributes &attributes)
{
    QString text;
    for (auto it = attributes.constBegin(); it != attributes.constEnd(); ++it) {
        text += it.key() + QLatin1Char('=') + it.value() + QLatin1Char('\n');
    }
    return text;
}

} // namespace

TEST(DocumentFields, AnItemWithOnlyAnIdHasAllFallbacks)
{
    for (const Kind &kind : kinds) {
        SCOPED_TRACE(kind.tag);
        EXPECT_EQ(asText(rewritten(kind, {})), asText(fallbacks(kind)));
    }
}

TEST(DocumentFields, EachAttributeSetsItsOwnFieldAndNoOther)
{
    for (const Kind &kind : kinds) {
        for (const Field &field : kind.fields) {
            SCOPED_TRACE(std::string(kind.tag) + " " + field.name);
            const QString name = QString::fromLatin1(field.name);
            const QString other = stored(field.other);
            Attributes expected = fallbacks(kind);
            expected.insert(name, other);
            if (name == QLatin1String("text")) {
                expected.insert(QStringLiteral("medium"), QStringLiteral("1"));
            }
            EXPECT_EQ(asText(rewritten(kind, {{name, other}})), asText(expected));
        }
    }
}

TEST(DocumentFields, AllAttributesTogetherComeBackAsTheyWere)
{
    for (const Kind &kind : kinds) {
        SCOPED_TRACE(kind.tag);
        Attributes all;
        for (const Field &field : kind.fields) {
            all.insert(QString::fromLatin1(field.name), stored(field.other));
        }
        EXPECT_EQ(asText(rewritten(kind, all)), asText(all));
    }
}

TEST(DocumentFields, ValuesThatAreTheReadersBusinessComeBackAsTheyWere)
{
    for (const auto &[name, value] : {std::pair("custom_delimiter", "%00"), std::pair("json_arrays_as_rows", "2"),
             std::pair("json_arrays_as_rows", "-1")}) {
        EXPECT_EQ(rewritten(kinds[0], {{QString(name), QString(value)}}).value(name), value) << name;
    }
}

TEST(DocumentFields, ValuesThatNoListHasGiveTheFallback)
{
    for (const Kind &kind : kinds) {
        for (const Field &field : kind.fields) {
            const QString name = QString::fromLatin1(field.name);
            bool isNumber = field.fallback;
            QString::fromLatin1(field.fallback).toInt(&isNumber);
            if (!isNumber) {
                continue;
            }
            SCOPED_TRACE(std::string(kind.tag) + " " + field.name);
            EXPECT_EQ(asText(rewritten(kind, {{name, QStringLiteral("x")}})), asText(fallbacks(kind)));
        }
    }
    EXPECT_EQ(rewritten(kinds[0], {{QStringLiteral("quote"), QStringLiteral("3")}}).value(QStringLiteral("quote")),
        QStringLiteral("0"));
    EXPECT_EQ(
        rewritten(kinds[3], {{QStringLiteral("chart_type"), QStringLiteral("-1")}}).value(QStringLiteral("chart_type")),
        QStringLiteral("0"));
    EXPECT_EQ(rewritten(kinds[3], {{QStringLiteral("chart_image_width"), QStringLiteral("2000000000")}})
                  .value(QStringLiteral("chart_image_width")),
        QStringLiteral("1024"));
}

TEST(DocumentFields, TheOldPositionCountsOnlyWithoutTheNewOne)
{
    const QString pos = QStringLiteral("pos");
    const QString newPos = QStringLiteral("pos_v12");
    const QString old = QStringLiteral("10^20");
    EXPECT_EQ(rewritten(kinds[0], {{pos, old}}).value(newPos), QStringLiteral("10\u001f20"));
    EXPECT_EQ(rewritten(kinds[0], {{pos, old}, {newPos, QStringLiteral("1\u001f2")}}).value(newPos),
        QStringLiteral("1\u001f2"));
    EXPECT_EQ(
        rewritten(kinds[1], {{pos, old}, {newPos, QStringLiteral("?")}}).value(newPos), QStringLiteral("0\u001f0"));
    EXPECT_EQ(rewritten(kinds[3], {{pos, old}}).value(newPos), QStringLiteral("0\u001f0")) << "charts never had it";
}

TEST(DocumentFields, SomeFallbacksDependOnOtherAttributes)
{
    const QString path = QStringLiteral("path");
    const QString quote = QStringLiteral("quote");
    EXPECT_EQ(rewritten(kinds[2], {{path, QStringLiteral("a.tsv")}}).value(quote), QStringLiteral("2"));
    EXPECT_EQ(rewritten(kinds[2], {{path, QStringLiteral("a.txt")}, {quote, QStringLiteral("1")}}).value(quote),
        QStringLiteral("1"));
    EXPECT_EQ(rewritten(kinds[2], {{path, QStringLiteral("a.TSV")}}).value(quote), QStringLiteral("0"));
    EXPECT_EQ(rewritten(kinds[0], {{path, QStringLiteral("a.csv")}, {QStringLiteral("text"), QStringLiteral("x")}})
                  .value(QStringLiteral("medium")),
        QStringLiteral("0"));
    const ScopedLocale british(QStringLiteral("en_GB"));
    EXPECT_EQ(rewritten(kinds[3], {}).value(QStringLiteral("chart_pdf_size")), QStringLiteral("4"));
}
