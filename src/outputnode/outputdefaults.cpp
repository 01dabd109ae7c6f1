#include "outputnode/outputdefaults.h"

#include "outputnode/outputnode.h"
#include "outputs/outputpaths.h"
#include "settings/settings.h"

namespace {

/// One option that is remembered: how it is read from an item and put into one.
struct Entry
{
    const char *key;
    QVariant (*value)(const OutputNode &node);
    void (*setValue)(OutputNode &node, const QVariant &value);
};

template<auto field>
QVariant optionValue(const OutputNode &node)
{
    return node.options().*field;
}

template<auto field>
void setOptionValue(OutputNode &node, const QVariant &value)
{
    OutputOptions options = node.options();
    using Value = std::remove_reference_t<decltype(options.*field)>;
    options.*field = value.value<Value>();
    node.setOptions(options);
}

template<auto field>
Entry option(const char *key)
{
    return {key, &optionValue<field>, &setOptionValue<field>};
}

QChar firstCharacter(const QString &text)
{
    return text.isEmpty() ? QChar() : text.at(0);
}

const QVector<Entry> &entries()
{
    static const QVector<Entry> table{
        {"delimiter", [](const OutputNode &node) { return QVariant(node.delimiterKind()); },
            [](OutputNode &node, const QVariant &value) { node.setDelimiterKind(value.toInt()); }},
        {"custom_delimiter", [](const OutputNode &node) { return QVariant(QString(node.customDelimiter())); },
            [](OutputNode &node, const QVariant &value) { node.setCustomDelimiter(firstCharacter(value.toString())); }},
        option<&OutputOptions::quoting>("quoting"),
        option<&OutputOptions::lineEndings>("line_endings"),
        {"encoding", [](const OutputNode &node) { return QVariant(node.encoding()); },
            [](OutputNode &node, const QVariant &value) { node.setEncoding(value.toString()); }},
        option<&OutputOptions::writeBom>("bom"),
        option<&OutputOptions::removeEmpty>("remove_empty"),
        option<&OutputOptions::xmlAboveRoot>("xml_above_root"),
        option<&OutputOptions::xmlRootName>("xml_root_name"),
        option<&OutputOptions::xmlBelowRoot>("xml_below_root"),
        option<&OutputOptions::xmlRowName>("xml_row_name"),
        option<&OutputOptions::escapeHtml>("escape_html"),
        option<&OutputOptions::writeHeader>("write_header"),
        option<&OutputOptions::fileComment>("file_comment"),
    };
    return table;
}

QString extensionOf(const OutputNode &node)
{
    if (node.medium() == Medium::Clipboard) {
        return QStringLiteral("clipboard");
    }
    const QString extension = OutputPaths::extension(node.path());
    return extension.isEmpty() ? QStringLiteral("(Empty)") : extension;
}

} // namespace

void OutputDefaults::apply(OutputNode &node)
{
    const QString kind = QStringLiteral("outputs");
    const QString type = FileType::label(node.fileType());
    const QString extension = extensionOf(node);
    const Settings &settings = Settings::current();
    for (const Entry &entry : entries()) {
        const QString key = QString::fromLatin1(entry.key);
        if (settings.hasDefaultOption(kind, type, extension, key)) {
            entry.setValue(node, settings.defaultOption(kind, type, extension, key, QVariant()));
        }
    }
}

void OutputDefaults::remember(const OutputNode &node, const QString &key)
{
    for (const Entry &entry : entries()) {
        if (key == QLatin1String(entry.key)) {
            Settings::current().setDefaultOption(
                QStringLiteral("outputs"), FileType::label(node.fileType()), extensionOf(node), key, entry.value(node));
        }
    }
}
