#include "app/flowreport/flowreport.h"

#include "app/flowreport/flowdescription.h"
#include "app/programinfo.h"
#include "data/values.h"
#include "platform/paths.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QSaveFile>

namespace {

const char *const style =
    "body{font-family:sans-serif;max-width:60em;margin:2em auto;padding:0 1em;color:#222;background:#fff}"
    "img{max-width:100%;border:1px solid #ccc}table{border-collapse:collapse}"
    "td{border:1px solid #ccc;padding:.2em .6em;vertical-align:top}td:first-child{background:#f3f3f3}"
    ".warning{color:#a33}.quiet{color:#666}"
    "@media(prefers-color-scheme:dark){body{color:#ddd;background:#1e1e1e}td:first-child{background:#2a2a2a}"
    "td,img{border-color:#555}.warning{color:#f99}.quiet{color:#aaa}}";

/// The marks of one kind of file; texts are handed in as they are.
class Markup
{
public:
    virtual ~Markup() = default;
    QString text; ///< so far

    virtual void begin(const QString &title) = 0;
    virtual void heading(const QString &words) = 0;
    virtual void paragraph(const QString &words) = 0;
    virtual void warning(const QString &words) = 0;
    virtual void picture(const QByteArray &png) = 0;
    virtual void rows(const InfoRows &rows) = 0;
    virtual void end(const QString &words) = 0;
};

class HtmlMarkup final : public Markup
{
public:
    void begin(const QString &title) override
    {
        text = QStringLiteral(
            "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>%1</title>\n"
            "<style>%2</style>\n</head>\n<body>\n<h1>%1</h1>\n")
                   .arg(escaped(title), QLatin1String(style));
    }
    void heading(const QString &words) override { add("<h2>%1</h2>", words); }
    void paragraph(const QString &words) override { add("<p>%1</p>", words); }
    void warning(const QString &words) override { add("<p class=\"warning\"><b>Warning:</b> %1</p>", words); }
    void picture(const QByteArray &png) override
    {
        text += QStringLiteral("<p><img alt=\"The flow\" src=\"data:image/png;base64,%1\"></p>\n")
                    .arg(QLatin1String(png.toBase64()));
    }
    void rows(const InfoRows &rows) override
    {
        text += QStringLiteral("<table>\n");
        for (const InfoRow &row : rows) {
            text += QStringLiteral("<tr><td>%1</td><td>%2</td></tr>\n").arg(escaped(row.first), escaped(row.second));
        }
        text += QStringLiteral("</table>\n");
    }
    void end(const QString &words) override
    {
        add("<p class=\"quiet\">%1</p>", words);
        text += QStringLiteral("</body>\n</html>\n");
    }

private:
    static QString escaped(const QString &words)
    {
        return words.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>\n"));
    }
    void add(const char *form, const QString &words)
    {
        text += QString::fromLatin1(form).arg(escaped(words)) + QLatin1Char('\n');
    }
};

class MarkdownMarkup final : public Markup
{
public:
    void begin(const QString &title) override { add("# %1", title); }
    void heading(const QString &words) override { add("## %1", words); }
    void paragraph(const QString &words) override { add("%1", words); }
    void warning(const QString &words) override { add("**Warning:** %1", words); }
    void picture(const QByteArray &png) override
    {
        text += QStringLiteral("![The flow](data:image/png;base64,%1)\n\n").arg(QLatin1String(png.toBase64()));
    }
    void rows(const InfoRows &rows) override
    {
        text += QStringLiteral("| Option | Value |\n|---|---|\n");
        for (const InfoRow &row : rows) {
            text += QStringLiteral("| %1 | %2 |\n").arg(escaped(row.first), escaped(row.second));
        }
        text += QLatin1Char('\n');
    }
    void end(const QString &words) override { add("%1", words); }

private:
    static QString escaped(const QString &words)
    {
        static const QRegularExpression special(QStringLiteral("([\\\\`*_{}\\[\\]<>#|~!&])"));
        QString safe = words;
        return safe.replace(special, QStringLiteral("\\\\1")).replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    }
    void add(const char *form, const QString &words)
    {
        text += QString::fromLatin1(form).arg(escaped(words)) + QStringLiteral("\n\n");
    }
};

QString joined(const QList<int> &counts)
{
    QStringList texts;
    for (const int count : counts) {
        texts.append(formatInteger(count, true));
    }
    return texts.join(QStringLiteral(" + "));
}

QString change(const char *form, const QList<int> &before, int after)
{
    const QString now = formatInteger(after, true);
    return QString::fromLatin1(form).arg(
        before.isEmpty() ? now : QStringLiteral("%1 \u2192 %2").arg(joined(before), now));
}

/// The items upstream, each with its number in the report, since several may have one name.
QString sourcesText(const FlowItem &item, const QHash<int, int> &numbers)
{
    QStringList texts;
    for (int i = 0; i < item.sources.size(); ++i) {
        texts.append(
            QStringLiteral("%1. %2").arg(formatInteger(numbers.value(item.sourceIds.at(i)), true), item.sources.at(i)));
    }
    return texts.join(QStringLiteral(", "));
}

void addItem(const FlowItem &item, const QHash<int, int> &numbers, Markup &markup)
{
    markup.heading(QStringLiteral("%1. %2: %3").arg(formatInteger(numbers.value(item.id), true), item.kind, item.name));
    markup.paragraph(item.description);
    if (!item.comment.isEmpty()) {
        markup.paragraph(QStringLiteral("Comment: ") + item.comment);
    }
    if (!item.sources.isEmpty()) {
        markup.paragraph(QStringLiteral("Reads: ") + sourcesText(item, numbers));
    }
    if (!item.options.isEmpty()) {
        markup.rows(item.options);
    }
    if (item.hasRun) {
        markup.paragraph(change("Rows: %1. ", item.rowsBefore, item.rowsAfter)
                         + change("Columns: %1.", item.columnsBefore, item.columnsAfter));
    }
    if (!item.state.isEmpty()) {
        markup.warning(QStringLiteral("This item is in the state '%1'.").arg(item.state));
    }
    for (const QString &warning : item.warnings) {
        markup.warning(warning);
    }
}

QString rendered(const FlowDescription &flow, Markup &markup)
{
    markup.begin(flow.name.isEmpty() ? QStringLiteral("Flow") : QStringLiteral("Flow: ") + flow.name);
    if (!flow.notes.isEmpty()) {
        markup.paragraph(flow.notes);
    }
    if (!flow.picture.isEmpty()) {
        markup.picture(flow.picture);
    }
    QHash<int, int> numbers; // by id
    for (const FlowItem &item : flow.items) {
        numbers.insert(item.id, numbers.size() + 1);
    }
    for (const FlowItem &item : flow.items) {
        addItem(item, numbers, markup);
    }
    if (!flow.noteTexts.isEmpty()) {
        markup.heading(QStringLiteral("Notes on the canvas"));
        for (const QString &note : flow.noteTexts) {
            markup.paragraph(note);
        }
    }
    markup.end(QStringLiteral("Written by %1.").arg(ProgramInfo::nameAndVersion()));
    return markup.text;
}

} // namespace

QString FlowReport::html(const FlowDescription &flow)
{
    HtmlMarkup markup;
    return rendered(flow, markup);
}

QString FlowReport::markdown(const FlowDescription &flow)
{
    MarkdownMarkup markup;
    return rendered(flow, markup);
}

bool FlowReport::write(const QString &path, const FlowDescription &flow, QString *error)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    const bool isMarkdown = suffix == QLatin1String("md") || suffix == QLatin1String("markdown");
    if (!isMarkdown && suffix != QLatin1String("html") && suffix != QLatin1String("htm")) {
        // A document or a table named by mistake must not be lost.
        *error = QStringLiteral("The name of a report ends in .html, .htm, .md or .markdown, not as '%1' does.")
                     .arg(QDir::toNativeSeparators(path));
        return false;
    }
    const QByteArray bytes = (isMarkdown ? markdown(flow) : html(flow)).toUtf8();
    QSaveFile file(platform::resolvedPath(path));
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        *error = QStringLiteral("Unable to write the report '%1': %2")
                     .arg(QDir::toNativeSeparators(path), file.errorString());
        return false;
    }
    return true;
}
