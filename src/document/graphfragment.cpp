#include "document/graphfragment.h"

#include "document/documentbuilder.h"
#include "document/documentwriter.h"
#include "document/markup.h"
#include "graph/graphscene.h"
#include "settings/product.h"

#include <QDebug>
#include <QDomDocument>

namespace {

constexpr int indent = 4;

} // namespace

QByteArray GraphFragment::ofSelection(const GraphScene &scene)
{
    if (scene.nodes(true).isEmpty()) {
        return {};
    }
    QDomDocument tree(documentTypeName());
    writeDocument(scene, true, {scene.documentPath(), QString(), scene.isAutoRunOn()}, tree);
    return tree.toByteArray(indent);
}

bool GraphFragment::read(const QByteArray &bytes, GraphScene &scene, const QString &docPath)
{
    QDomDocument tree;
    MarkupError error;
    if (!parseMarkup(bytes, tree, error)) {
        qDebug().noquote() << "Paste error=" << error.text << " line=" << error.line << " col=" << error.column;
        return false;
    }
    if (tree.doctype().name() != documentTypeName()) {
        qDebug() << "Incorrect document type pasted.";
        return false;
    }
    readDocument(tree, scene, docPath);
    return true;
}
