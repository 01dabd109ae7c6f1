#include "document/documentfile.h"

#include "document/documenthandle.h"
#include "document/documentparser.h"
#include "document/documentwriter.h"
#include "document/markup.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/runcontrol.h"
#include "platform/filereplacement.h"
#include "platform/ownfile.h"
#include "settings/product.h"

#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QHashFunctions>
#include <QTemporaryFile>
#include <QTextStream>

namespace {

constexpr int indent = 4;

/// Keeps the order of attributes the same from one save to the next while it lives, and leaves the seed as it was.
class StableAttributeOrder
{
public:
    StableAttributeOrder() { qSetGlobalQHashSeed(0); }
    ~StableAttributeOrder() { qSetGlobalQHashSeed(m_seed); }
    Q_DISABLE_COPY(StableAttributeOrder)

private:
    const int m_seed = qGlobalQHashSeed();
};

QString formatError(const MarkupError &error)
{
    return QStringLiteral("Format error '%1' detected at line %2 column %3.\n"
                          "Contact support if you are sure this a %4 file.")
        .arg(
            error.text, QString::number(error.line), QString::number(error.column), QString::fromLatin1(Product::name));
}

bool readBytes(const QString &path, QByteArray &bytes, QString &error)
{
    constexpr qint64 largest = 512LL * 1024 * 1024;
    QFile file(path);
    // Reading from a pipe might never end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("Can't open file '%1'.").arg(path);
        return false;
    }
    if (file.size() == 0) {
        error = QStringLiteral("File '%1' is empty (size=0).").arg(path);
        return false;
    }
    if (file.size() > largest) {
        error = formatError({QStringLiteral("the file is too large"), 1, 1});
        return false;
    }
    bytes = file.readAll();
    return true;
}

bool readTree(const QString &path, QDomDocument &tree, QString &error)
{
    QByteArray bytes;
    MarkupError markupError;
    if (!readBytes(path, bytes, error)) {
        return false;
    }
    if (!parseMarkup(bytes, tree, markupError)) {
        error = formatError(markupError);
        return false;
    }
    if (tree.doctype().name() != documentTypeName()) {
        error = QStringLiteral("Incorrect document type.");
        return false;
    }
    if (tree.documentElement().tagName() != QLatin1String("root")) {
        error = QStringLiteral("Document root not found.");
        return false;
    }
    return true;
}

int nextFreeId(const GraphScene &scene)
{
    int next = 0;
    for (const Node *node : scene.nodes()) {
        next = qMax(next, node->id() + 1);
    }
    return next;
}

bool saveThroughHandle(DocumentHandle &handle, const QString &path, const QString &text, QString &error)
{
    const QByteArray bytes = text.toLatin1();
    if (!handle.seek(0)) {
        error = QStringLiteral("Can't access file '%1' to write.").arg(path);
        return false;
    }
    const qint64 written = handle.write(bytes);
    if (written < 0) {
        error = QStringLiteral("Can't write to file '%1'.").arg(path);
        return false;
    }
    if (written < bytes.size() || !handle.truncate() || !handle.flush()) {
        error = QStringLiteral("Failed to write to file '%1'.").arg(path);
        return false;
    }
    return true;
}

bool writeText(QIODevice &device, const QString &text, QString &error)
{
    QTextStream stream(&device);
    stream.setCodec("UTF-8");
    stream << text;
    stream.flush();
    if (stream.status() != QTextStream::Ok) {
        error = QStringLiteral("Can't save to file. %1").arg(device.errorString());
        return false;
    }
    return true;
}

QString openError(const QString &path)
{
    return QStringLiteral("Can't open file '%1' to write.").arg(path);
}

QString commitError(const QString &reason)
{
    return QStringLiteral("Can't commit to file. %1").arg(reason);
}

bool saveToPath(const QString &path, const QString &text, QString &error)
{
    platform::FileReplacement target(path);
    if (!target.open()) {
        error = openError(path);
        return false;
    }
    if (!writeText(target.file(), text, error)) {
        return false;
    }
    if (!target.commit()) {
        error = commitError(target.error());
        return false;
    }
    return true;
}

/// A temporary file is made for its owner alone, and putting it in the place of a link doesn't follow the link.
bool saveForOwnerOnly(const QString &path, const QString &text, QString &error)
{
    QTemporaryFile file(path + QStringLiteral(".XXXXXX"));
    if (!file.open()) {
        error = openError(path);
        return false;
    }
    if (!writeText(file, text, error)) {
        return false;
    }
    file.close();
    if (!platform::moveOver(file.fileName(), path)) {
        error = commitError(qt_error_string());
        return false;
    }
    file.setAutoRemove(false);
    return true;
}

} // namespace

bool loadDocument(const QString &path, GraphScene &scene, const std::function<void()> &clearCurrent,
    LoadedDocument &loaded, QString &error)
{
    QDomDocument tree;
    if (!readTree(path, tree, error)) {
        return false;
    }
    if (clearCurrent) {
        clearCurrent();
    }
    RunControl::keepAlive();
    const DocumentRecords records = parseDocument(tree.documentElement());
    // before there are nodes: turning it on moves nodes, which may change the order of a transform's inputs
    scene.setSnapToGrid(records.meta.snapToGrid);
    static_cast<DocumentContents &>(loaded) = buildDocument(records, scene, path);
    loaded.batch = parseBatchSettings(tree.documentElement(), loaded.version);
    scene.layOutConnections();
    scene.updateSceneRect();
    // New items come behind those of this document, not of the one that was there before.
    scene.document()->nextId = nextFreeId(scene);
    return true;
}

bool saveDocument(
    DocumentHandle *handle, const QString &path, const DocumentToSave &document, QString &error, FileExposure exposure)
{
    const StableAttributeOrder order;
    QDomDocument tree(documentTypeName());
    QDomElement root = writeDocument(*document.scene, false, {path, document.notes, document.autoRunOn}, tree);
    writeBatchSettings(document.batch, root);
    const QString text = tree.toString(indent);
    if (handle) {
        return saveThroughHandle(*handle, path, text, error);
    }
    return exposure == FileExposure::OwnerOnly ? saveForOwnerOnly(path, text, error) : saveToPath(path, text, error);
}
