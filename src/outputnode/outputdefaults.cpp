#include "outputnode/outputdefaults.h"

#include "outputnode/outputnode.h"
#include "outputs/outputpaths.h"
#include "settings/optionwalk.h"

namespace {

QString extensionOf(const OutputNode &node)
{
    if (node.medium() == Medium::Clipboard) {
        return QStringLiteral("clipboard");
    }
    const QString extension = OutputPaths::extension(node.path());
    return extension.isEmpty() ? QStringLiteral("(Empty)") : extension;
}

} // namespace

OptionWalk::DefaultsPlace OutputDefaults::place(const OutputNode &node)
{
    return {QStringLiteral("outputs"), FileType::label(node.fileType()), extensionOf(node)};
}

void OutputDefaults::apply(OutputNode &node)
{
    OutputOptions options = node.options();
    OptionWalk::applyDefaults(OutputOptions::fields(), options, place(node));
    node.setOptions(options);
}

void OutputDefaults::remember(const OutputNode &node, const QString &key)
{
    OptionWalk::saveDefault(OutputOptions::fields(), node.options(), place(node), key);
}
