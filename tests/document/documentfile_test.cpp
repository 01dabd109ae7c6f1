#include "document/documentfile.h"
#include "document/documenthandle.h"
#include "document/sampledocument.h"
#include "graph/graphscene.h"
#include "graph/notenode.h"
#include "support/printers.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

class DocumentFileTest : public testing::Test
{
protected:
    QString at(const char *name) const { return m_dir.filePath(QString::fromLatin1(name)); }

    QString write(const char *name, const QByteArray &bytes) const
    {
        QFile file(at(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    static QByteArray read(const QString &path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    /// The error, empty for success.
    QString load(const QString &path)
    {
        QString error;
        const bool ok = loadDocument(
            path, m_scene,
            [this]() {
                m_wasCleared = true;
                m_scene.clearAll();
            },
            m_loaded, error);
        EXPECT_EQ(ok, error.isEmpty());
        return error;
    }

    QString save(const QString &path, DocumentHandle *handle = nullptr, FileExposure exposure = FileExposure::Normal)
    {
        QString error;
        const DocumentToSave document{&m_scene, m_loaded.notes, m_loaded.autoRunOn, m_loaded.batch};
        const bool ok = saveDocument(handle, path, document, error, exposure);
        EXPECT_EQ(ok, error.isEmpty());
        return error;
    }

    QTemporaryDir m_dir;
    GraphScene m_scene;
    LoadedDocument m_loaded;
    bool m_wasCleared = false;
};

/// Fails where it is told to.
class BrokenHandle final : public DocumentHandle
{
public:
    enum Fault { AtSeek, AtWrite, ShortWrite, AtTruncate, AtFlush };
    explicit BrokenHandle(Fault fault)
        : m_fault(fault)
    {
    }
    bool seek(qint64) override { return m_fault != AtSeek; }
    qint64 write(const QByteArray &bytes) override
    {
        return m_fault == AtWrite ? -1 : m_fault == ShortWrite ? bytes.size() - 1 : bytes.size();
    }
    bool truncate() override { return m_fault != AtTruncate; }
    bool flush() override { return m_fault != AtFlush; }

private:
    Fault m_fault;
};

} // namespace

TEST_F(DocumentFileTest, WhatIsNoDocumentLeavesTheOpenOneAlone)
{
    const QString format = QStringLiteral("Format error '%1' detected at line %2 column %3.\n"
                                          "Contact support if you are sure this a Quillmere file.");
    const struct
    {
        const char *what;
        QByteArray bytes;
        QString error;
    } cases[] = {
        {"an empty file", "", QStringLiteral("File '%1' is empty (size=0).").arg(at("empty"))},
        {"words", "hello", format.arg(QStringLiteral("error occurred while parsing element"), "1", "1")},
        {"a document cut off", "<!DOCTYPE Quillmere>\n<root>\n<meta>",
            format.arg(QStringLiteral("unexpected end of file"), "3", "7")},
        {"a text that holds a place marker", "<!DOCTYPE Quillmere>\n<root><%1/></root>",
            format.arg(QStringLiteral("error occurred while parsing element"), "2", "8")},
        {"entities", "<!DOCTYPE Quillmere [\n<!ENTITY a \"b\">]><root/>",
            format.arg(QStringLiteral("entity declarations are not allowed"), "2", "1")},
        {"another program's document", "<!DOCTYPE Other><root/>", QStringLiteral("Incorrect document type.")},
        {"markup without a type", "<root/>", QStringLiteral("Incorrect document type.")},
        {"another root", "<!DOCTYPE Quillmere><html/>", QStringLiteral("Document root not found.")},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(load(write(c.bytes.isEmpty() ? "empty" : "file", c.bytes)), c.error);
    }
    EXPECT_EQ(load(at("none")), QStringLiteral("Can't open file '%1'.").arg(at("none")));
    EXPECT_EQ(load(m_dir.path()), QStringLiteral("Can't open file '%1'.").arg(m_dir.path()));
    EXPECT_FALSE(m_wasCleared);
}

TEST_F(DocumentFileTest, APipeIsNeitherReadNorReplaced)
{
    const QString pipe = at("pipe");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(load(pipe), QStringLiteral("Can't open file '%1'.").arg(pipe));
    EXPECT_EQ(save(pipe), QStringLiteral("Can't open file '%1' to write.").arg(pipe));
    struct stat status;
    ASSERT_EQ(::lstat(QFile::encodeName(pipe).constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

TEST_F(DocumentFileTest, SavedAndOpenedAgainItIsTheSame)
{
    m_loaded.notes = QStringLiteral("Why\nand how");
    ASSERT_EQ(load(write("first.transform", fullDocument())), QString());
    m_loaded.notes = QStringLiteral("Why\nand how");
    m_loaded.autoRunOn = false;
    m_loaded.batch.values.insert({1, QStringLiteral("orders")}, QStringLiteral("/data/*.csv"));
    m_loaded.batch.verbosity = 4;
    m_loaded.batch.loggingEnabled = true;
    m_loaded.batch.logPath = QStringLiteral("/log {date}.txt");
    m_loaded.batch.logMode = BatchSettings::Overwrite;
    const BatchSettings batch = m_loaded.batch;
    m_scene.setSnapToGrid(true);
    const QString path = at("saved.transform");
    ASSERT_EQ(save(path), QString());
    const QByteArray first = read(path);
    EXPECT_EQ(
        std::count_if(first.begin(), first.end(), [](char c) { return (c < 32 && c != '\n' && c != 31) || c > 126; }),
        0)
        << "the file is plain ASCII";

    m_scene.setSnapToGrid(false);
    ASSERT_EQ(load(path), QString());
    EXPECT_EQ(m_loaded.notes, QStringLiteral("Why\nand how"));
    EXPECT_FALSE(m_loaded.autoRunOn);
    EXPECT_TRUE(m_scene.snapToGrid());
    EXPECT_EQ(m_loaded.locale, QStringLiteral("en_US"));
    EXPECT_EQ(m_loaded.batch, batch);
    EXPECT_EQ(m_scene.document()->nextId, 8) << "new items come behind the largest id";
    ASSERT_EQ(save(path), QString());
    EXPECT_EQ(withoutSaver(read(path)).toStdString(), withoutSaver(first).toStdString());
}

TEST_F(DocumentFileTest, ReadingAsideLeavesTheOpenDocumentAlone)
{
    ASSERT_EQ(load(write("open.transform", fullDocument())), QString());
    const std::unique_ptr<GraphScene> kept = m_scene.copy();
    const NoteNode *first = kept->addNote({}, NoteNode::NoArrow);
    EXPECT_EQ(first->id(), 8);

    GraphScene aside;
    LoadedDocument loaded;
    QString error;
    ASSERT_TRUE(loadDocument(
        write("small.transform", "<!DOCTYPE Quillmere><root/>"), aside, [] {}, loaded, error));
    EXPECT_EQ(aside.addNote({}, NoteNode::NoArrow)->id(), 0) << "a new document begins anew";
    EXPECT_EQ(m_scene.addNote({}, NoteNode::NoArrow)->id(), 9) << "one id in all scenes of a document";
}

TEST_F(DocumentFileTest, SavingLeavesTheHashSeedAlone)
{
    ASSERT_EQ(load(write("first.transform", fullDocument())), QString());
    const int before = qGlobalQHashSeed();
    QByteArray first;
    for (const int seed : {0, 1741}) {
        SCOPED_TRACE(seed);
        qSetGlobalQHashSeed(seed);
        EXPECT_EQ(save(at("saved.transform")), QString());
        EXPECT_EQ(qGlobalQHashSeed(), seed);
        const QByteArray saved = withoutSaver(read(at("saved.transform")));
        EXPECT_TRUE(first.isEmpty() || saved == first) << "the seed shows in the file";
        first = saved;
    }
    qSetGlobalQHashSeed(before);
}

TEST_F(DocumentFileTest, EverySaveHasTheSameOrderOfAttributes)
{
    ASSERT_EQ(load(write("first.transform", fullDocument())), QString());
    ASSERT_EQ(save(at("a")), QString());
    const QByteArray first = withoutSaver(read(at("a")));
    for (int i = 0; i < 5; ++i) {
        ASSERT_EQ(save(at("a")), QString());
        EXPECT_EQ(withoutSaver(read(at("a"))), first);
    }
}

TEST_F(DocumentFileTest, TellsWhoSavedIt)
{
    ASSERT_EQ(save(at("a")), QString());
    const QString text = QString::fromLatin1(read(at("a")));
    EXPECT_TRUE(
        text.contains(QRegularExpression(QStringLiteral("<last_saved_by value=\"Quillmere_v\\d+_\\d+_\\d+_on_[^ "
                                                        ":.()\"-]+_at_\\d{4}_\\d\\d_\\d\\d_\\d\\d_\\d\\d_\\d\\d\"/>"))))
        << text.toStdString();
}

TEST_F(DocumentFileTest, AFailedSaveTellsAndKeepsTheOldFile)
{
    EXPECT_EQ(save(at("none/a")), QStringLiteral("Can't open file '%1' to write.").arg(at("none/a")));
    EXPECT_EQ(save(m_dir.path()), QStringLiteral("Can't open file '%1' to write.").arg(m_dir.path()));
    const struct
    {
        const char *what;
        BrokenHandle::Fault fault;
        const char *error;
    } cases[] = {
        {"the position can't be set", BrokenHandle::AtSeek, "Can't access file 'p' to write."},
        {"nothing can be written", BrokenHandle::AtWrite, "Can't write to file 'p'."},
        {"not all of it can be written", BrokenHandle::ShortWrite, "Failed to write to file 'p'."},
        {"the rest of the old text stays", BrokenHandle::AtTruncate, "Failed to write to file 'p'."},
        {"it doesn't reach the disk", BrokenHandle::AtFlush, "Failed to write to file 'p'."},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        BrokenHandle handle(c.fault);
        EXPECT_EQ(save(QStringLiteral("p"), &handle), QString::fromLatin1(c.error));
    }
}

TEST_F(DocumentFileTest, AHeldFileIsWrittenInPlace)
{
    QFile file(write("held", QByteArray(100000, 'x')));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    DeviceHandle handle(file);
    ASSERT_EQ(save(file.fileName(), &handle), QString());
    const QByteArray shorter = read(file.fileName());
    ASSERT_EQ(save(at("other")), QString());
    EXPECT_EQ(shorter.size() > 0 && shorter.size() < 100000, true);
    EXPECT_TRUE(shorter.endsWith("</root>\n"));

    ASSERT_EQ(load(write("full", fullDocument())), QString());
    ASSERT_EQ(save(file.fileName(), &handle), QString()) << "a longer text over a shorter one";
    EXPECT_EQ(load(file.fileName()), QString());
    EXPECT_EQ(m_loaded.nodes.size(), 6);
}

TEST_F(DocumentFileTest, ASaveKeepsTheModeAndFollowsALink)
{
    const QString target = write("target", "old");
    ASSERT_TRUE(QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    ASSERT_TRUE(QFile::link(target, at("link")));
    ASSERT_EQ(save(at("link")), QString());
    EXPECT_TRUE(QFileInfo(at("link")).isSymLink());
    EXPECT_TRUE(read(target).startsWith("<!DOCTYPE Quillmere>"));
    const auto others = QFile::ReadOther | QFile::WriteOther | QFile::WriteGroup;
    EXPECT_FALSE(QFile::permissions(target) & others);
    EXPECT_TRUE(QFile::permissions(target) & QFile::ReadGroup);
}

TEST_F(DocumentFileTest, APrivateSaveReplacesALinkAndIsReadByItsOwnerOnly)
{
    const QString target = write("target", "someone else's");
    ASSERT_TRUE(QFile::link(target, at("link")));
    ASSERT_EQ(save(at("link"), nullptr, FileExposure::OwnerOnly), QString());
    EXPECT_EQ(read(target), QByteArray("someone else's"));
    EXPECT_FALSE(QFileInfo(at("link")).isSymLink());
    const auto others = QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther;
    EXPECT_FALSE(QFile::permissions(at("link")) & others);
}

TEST_F(DocumentFileTest, AFragmentHoldsWhatIsSelected)
{
    ASSERT_EQ(load(write("full", fullDocument())), QString());
    m_loaded.nodesById.value(2)->setSelected(true);
    const QByteArray one = savedText(m_scene, true);
    EXPECT_TRUE(one.contains("<connections/>"));
    EXPECT_TRUE(one.contains("<inputs/>"));
    EXPECT_TRUE(one.contains("name=\"Pad\""));
    EXPECT_FALSE(one.contains("batch_"));

    for (QGraphicsItem *item : m_scene.items()) {
        item->setSelected(true);
    }
    m_loaded.nodesById.value(3)->setSelected(false);
    GraphScene pasted;
    EXPECT_EQ(readText(savedText(m_scene, true), pasted).nodes.size(), 5);
    EXPECT_EQ(pasted.connections().size(), 2) << "a connection goes in with both of its ends only";
}
