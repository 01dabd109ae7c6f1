#include "panes/items/datasetexport.h"

#include "data/dataset.h"
#include "outputs/delimitedwriter.h"
#include "outputs/textlayout.h"
#include "outputs/textsink.h"
#include "panes/dialogs/prompts.h"
#include "panes/table/tableclipboard.h"
#include "settings/settings.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTemporaryFile>
#include <QUrl>

namespace {

bool writeDelimited(QIODevice &device, const Dataset &dataset, QChar delimiter)
{
    TextSink sink(&device, QStringLiteral("UTF-8"), false);
    TextLayout layout;
    layout.writeHeader = dataset.hasHeader();
    DelimitedWriter::write(sink, dataset, {delimiter, CsvEncoder::AsNeeded}, layout);
    return sink.finish();
}

bool isTabbed(const QString &path)
{
    const QString extension = QFileInfo(path).suffix().toLower();
    return extension == QLatin1String("tsv") || extension == QLatin1String("tab");
}

/// Files in the folder for temporary ones, left there for the editor that has them open.
QString temporaryFile()
{
    QTemporaryFile file(QDir::temp().filePath(QStringLiteral("quillmere-XXXXXX.csv")));
    file.setAutoRemove(false);
    return file.open() ? file.fileName() : file.fileTemplate();
}

} // namespace

void DatasetExport::copy(const Dataset &dataset)
{
    TableClipboard::copyConfirmed(m_prompts, dataset);
}

bool DatasetExport::write(const Dataset &dataset, const QString &path)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    const bool written = file.open(QIODevice::WriteOnly)
                         && writeDelimited(file, dataset, isTabbed(path) ? QLatin1Char('\t') : QLatin1Char(','))
                         && file.commit();
    QApplication::restoreOverrideCursor();
    if (!written) {
        m_prompts.warning(QStringLiteral("Unable to write to '%1'.").arg(QDir::toNativeSeparators(path)));
    }
    return written;
}

void DatasetExport::edit(const Dataset &dataset)
{
    const QString path = temporaryFile();
    if (write(dataset, path) && !QDesktopServices::openUrl(QUrl::fromLocalFile(path))) {
        m_prompts.warning(
            QStringLiteral("Unable to open '%1'. Make sure there is an editor associated with this file type.")
                .arg(QDir::toNativeSeparators(path)));
    }
}

void DatasetExport::save(const Dataset &dataset, const QString &name)
{
    const Settings &settings = Settings::current();
    const QString extension = settings.defaultExportExtension();
    QString base = QFileInfo(name).completeBaseName();
    base.replace(QRegularExpression(QStringLiteral("[^\\w .()-]+")), QStringLiteral("_"));
    FileRequest request;
    request.title = QStringLiteral("Export dataset");
    request.start = QDir(settings.lastOutputDataDir()).filePath(base + QLatin1Char('.') + extension);
    request.filter = QStringLiteral("Comma separated (*.csv *.txt);;Tab separated (*.tsv *.tab);;All files (*)");
    saveAs(dataset, request);
}

void DatasetExport::saveAs(const Dataset &dataset, const FileRequest &request)
{
    QString path = m_prompts.saveFile(request);
    if (path.isEmpty()) {
        return;
    }
    if (QFileInfo(path).suffix().isEmpty()) {
        path += QLatin1Char('.') + QFileInfo(request.start).suffix();
    }
    if (write(dataset, path)) {
        Settings::current().setLastOutputDataDir(QFileInfo(path).absolutePath());
    }
}
